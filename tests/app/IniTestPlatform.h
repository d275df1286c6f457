#ifndef TOLVAD_TESTS_APP_INITESTPLATFORM_H
#define TOLVAD_TESTS_APP_INITESTPLATFORM_H

#include "gui/xRecordingPlatform.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

// A recording platform started from a fresh temporary directory, which is
// removed with everything in it at the end.
class IniTestPlatform : public xRecordingPlatform {
public:
    IniTestPlatform()
    {
        char pattern[] = "/tmp/tolvad-app-XXXXXX";
        char* made = ::mkdtemp(pattern);
        directory = made ? made : "/tmp";
    }
    ~IniTestPlatform() override
    {
        std::error_code ignored;
        if (directory != "/tmp")
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
        std::ifstream in(Path(name), std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }

    std::string directory;
};

#endif
