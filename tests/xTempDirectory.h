#ifndef TOLVAD_TESTS_XTEMPDIRECTORY_H
#define TOLVAD_TESTS_XTEMPDIRECTORY_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

// A fresh directory under the temporary directory that is the current one for
// the lifetime of the object; the former current directory comes back and the
// directory goes at the end.
class xTempDirectory {
public:
    xTempDirectory() : saved(std::filesystem::current_path())
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "tolvadXXXXXX").string();
        if (mkdtemp(pattern.data()))
            path = pattern;
        std::filesystem::current_path(path);
    }
    ~xTempDirectory()
    {
        std::error_code ignored;
        std::filesystem::current_path(saved, ignored);
        std::filesystem::remove_all(path, ignored);
    }

    // The full path of a name in the directory.
    std::string operator/(const std::string& name) const { return path + "/" + name; }

    static void Write(const std::string& file, const std::string& bytes)
    {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    static std::string Read(const std::string& file)
    {
        std::ifstream in(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    std::string path;

private:
    std::filesystem::path saved;
};

#endif
