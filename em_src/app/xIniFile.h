#ifndef TOLVAD_APP_XINIFILE_H
#define TOLVAD_APP_XINIFILE_H

#include "frame/xDoc.h"

class xIniSettings;

// The settings file as a plain ASCII document: Load and Store open and close
// the file and hand its stream to the settings object's sections.
class xIniFile : public xDoc {
public:
    xIniFile(xIniSettings& settings, const std::string& directory, const std::string& name);

    void Read() override;
    void Write() override;

    // What the sections gave on the last Load and Store.
    bool sectionsRead = false;
    bool sectionsWritten = false;

private:
    xIniSettings& settings;
};

#endif
