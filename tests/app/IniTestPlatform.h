#ifndef TOLVAD_TESTS_APP_INITESTPLATFORM_H
#define TOLVAD_TESTS_APP_INITESTPLATFORM_H

#include "gui/xRecordingPlatform.h"
#include "tests/xTempDirectory.h"

// A recording platform started from a fresh temporary directory, removed
// with all it holds at the end.
class IniTestPlatform : public xRecordingPlatform {
public:
    std::string StartupDirectory() override { return temp.path; }

    std::string Path(const std::string& name) const { return temp / name; }
    void Put(const std::string& name, const std::string& text) const
    {
        xTempDirectory::Write(Path(name), text);
    }
    std::string Get(const std::string& name) const { return xTempDirectory::Read(Path(name)); }

    xTempDirectory temp;
    const std::string& directory = temp.path;
};

#endif
