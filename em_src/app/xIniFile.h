#ifndef TOLVAD_APP_XINIFILE_H
#define TOLVAD_APP_XINIFILE_H

#include "frame/xDoc.h"

class xIniSettings;

// The settings file as a plain ASCII document to read: Load opens and closes
// the file and hands its stream to the settings object's sections. Writing
// replaces the file whole (see xIniSettings::Write).
class xIniFile : public xDoc {
public:
    xIniFile(xIniSettings& settings, const std::string& directory, const std::string& name);

    void Read() override;

    // What the sections gave on the last Load.
    bool sectionsRead = false;

private:
    xIniSettings& settings;
};

#endif
