#ifndef TOLVAD_TESTS_TOOLS_TOLVADDSCFIXTURE_H
#define TOLVAD_TESTS_TOOLS_TOLVADDSCFIXTURE_H

#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
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
    // Starts the tool without a shell, standard output into outFile and
    // standard error onto errFd (none: both to /dev/null); gives its process id.
    pid_t Spawn(const std::vector<std::string>& arguments, int errFd = -1,
                const std::string& outFile = "/dev/null")
    {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (errFd < 0)
            posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
        else
            posix_spawn_file_actions_adddup2(&actions, errFd, 2);
        std::vector<char*> argv = {const_cast<char*>(TOLVAD_DSC_EXE)};
        for (const std::string& argument : arguments)
            argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        pid_t child = -1;
        if (posix_spawn(&child, TOLVAD_DSC_EXE, &actions, nullptr, argv.data(), environ) != 0)
            child = -1;
        posix_spawn_file_actions_destroy(&actions);
        return child;
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
    // The text of an example from the first from on up to the separator line after it.
    static std::string Block(const std::string& example, const std::string& from)
    {
        const std::string text = xTempDirectory::Read(kExamples + "/" + example);
        const size_t at = text.find(from);
        return text.substr(at, text.find("_____", at) - at);
    }

    xTempDirectory dir;
};

#endif
