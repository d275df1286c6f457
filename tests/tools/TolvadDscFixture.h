#ifndef TOLVAD_TESTS_TOOLS_TOLVADDSCFIXTURE_H
#define TOLVAD_TESTS_TOOLS_TOLVADDSCFIXTURE_H

#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/wait.h>
#include <vector>

struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

// Runs the tool in a directory of its own and keeps what it printed.
class TolvadDsc : public ::testing::Test {
protected:
    inline static const std::string kExamples = TOLVAD_EXAMPLES_DIR;

    ToolRun Tool(const std::string& arguments)
    {
        const std::string out = dir / ".stdout", err = dir / ".stderr";
        int raw = std::system(("'" + std::string(TOLVAD_DSC_EXE) + "' " + arguments + " >'" + out +
                               "' 2>'" + err + "'").c_str());
        ToolRun run{WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, xTempDirectory::Read(out),
                    xTempDirectory::Read(err)};
        std::filesystem::remove(out);
        std::filesystem::remove(err);
        return run;
    }
    // Quoted for the shell: a name in the directory, or an example.
    std::string In(const std::string& name) { return "'" + dir / name + "'"; }
    std::string Example(const std::string& name) { return "'" + kExamples + "/" + name + "'"; }
    // The files of the directory, hidden ones included.
    long Files() const
    {
        return std::distance(std::filesystem::directory_iterator(dir.path),
                             std::filesystem::directory_iterator());
    }
    // Writes name into the directory: an example with each pair's first text
    // replaced by its second.
    void WriteEdited(const std::string& name, const std::string& example,
                     const std::vector<std::pair<std::string, std::string>>& edits = {})
    {
        std::string text = xTempDirectory::Read(kExamples + "/" + example);
        for (const auto& [from, to] : edits) {
            const size_t at = text.find(from);
            ASSERT_NE(at, std::string::npos) << from;
            text.replace(at, from.size(), to);
        }
        xTempDirectory::Write(dir / name, text);
    }

    xTempDirectory dir;
};

#endif
