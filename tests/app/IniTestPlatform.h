#ifndef TOLVAD_TESTS_APP_INITESTPLATFORM_H
#define TOLVAD_TESTS_APP_INITESTPLATFORM_H

#include "gui/xRecordingPlatform.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

// A recording platform started from a fresh temporary directory, removed
// with all it holds at the end.
class IniTestPlatform : public xRecordingPlatform {
public:
    IniTestPlatform()
    {
        char pattern[] = "/tmp/tolvad-app-XXXXXX";
        directory = ::mkdtemp(pattern) ? pattern : "/tmp/tolvad-app-unmade";
    }
    ~IniTestPlatform() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }
    std::string StartupDirectory() override { return directory; }

    std::string Path(const std::string& name) const { return directory + "/" + name; }
    void Put(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name), std::ios::binary) << text;
    }
    std::string Get(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(Path(name), std::ios::binary).rdbuf();
        return text.str();
    }

    std::string directory;
};

#endif
