#include "frame/xFileReplacer.h"

#include "../xTempDirectory.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

bool Replace(const std::string& path, const std::string& text, std::string* reason = nullptr,
             xFileReplacer::Fallback fallback = xFileReplacer::kNoFallback)
{
    xFileReplacer replacer(path, fallback);
    bool done = replacer.Begin();
    if (done) {
        replacer.Stream() << text;
        done = replacer.Commit();
    }
    if (reason)
        *reason = replacer.Reason();
    return done;
}

size_t EntryCount(const std::string& directory)
{
    return static_cast<size_t>(std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

} // namespace

TEST(FileReplacer, WritesANewFileOrTheWholeNewTextAndLeavesNoTemporary)
{
    xTempDirectory dir;
    ASSERT_TRUE(Replace("new.DSC", "first\n"));
    EXPECT_EQ(xTempDirectory::Read("new.DSC"), "first\n");
    ASSERT_TRUE(Replace(dir / "new.DSC", "second, longer\n"));
    EXPECT_EQ(xTempDirectory::Read("new.DSC"), "second, longer\n");
    EXPECT_EQ(EntryCount(dir.path), 1u);

    // Abandoned, or dropped unfinished: the old text stays and nothing is left beside it.
    {
        xFileReplacer replacer("new.DSC");
        ASSERT_TRUE(replacer.Begin());
        replacer.Stream() << "half";
        EXPECT_TRUE(fs::exists(replacer.TemporaryPath()));
        EXPECT_EQ(EntryCount(dir.path), 2u);
    }
    EXPECT_EQ(xTempDirectory::Read("new.DSC"), "second, longer\n");
    EXPECT_EQ(EntryCount(dir.path), 1u);
}

TEST(FileReplacer, KeepsModeAndWritesThroughSymbolicLinks)
{
    xTempDirectory dir;
    xTempDirectory::Write("real.DSC", "old\n");
    ::chmod("real.DSC", 0640);
    fs::create_directory("links");
    fs::create_symlink("../real.DSC", "links/relative.DSC");
    fs::create_symlink(dir / "links/relative.DSC", "chain.DSC");

    xFileReplacer replacer("chain.DSC");
    ASSERT_TRUE(replacer.Begin());
    EXPECT_EQ(fs::canonical(replacer.Target()), fs::canonical("real.DSC"));
    replacer.Stream() << "new\n";
    ASSERT_TRUE(replacer.Commit());

    EXPECT_TRUE(fs::is_symlink("chain.DSC") && fs::is_symlink("links/relative.DSC"));
    EXPECT_EQ(xTempDirectory::Read("real.DSC"), "new\n");
    struct stat st;
    ASSERT_EQ(::stat("real.DSC", &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(st.st_uid, ::geteuid());

    // A dangling link names the file to create.
    fs::create_symlink("made.DSC", "dangling.DSC");
    ASSERT_TRUE(Replace("dangling.DSC", "made\n"));
    EXPECT_TRUE(fs::is_symlink("dangling.DSC"));
    EXPECT_EQ(xTempDirectory::Read("made.DSC"), "made\n");
}

TEST(FileReplacer, RefusesReadOnlyFilesDirectoriesAndMissingFolders)
{
    xTempDirectory dir;
    xTempDirectory::Write("locked.DSC", "keep\n");
    ::chmod("locked.DSC", 0444);
    std::string reason;
    EXPECT_FALSE(Replace("locked.DSC", "lost\n", &reason));
    EXPECT_EQ(reason, "read-only file");
    EXPECT_EQ(xTempDirectory::Read("locked.DSC"), "keep\n");

    fs::create_directory("folder.DSC");
    EXPECT_FALSE(Replace("folder.DSC", "x", &reason));
    EXPECT_EQ(reason, "is a directory");
    EXPECT_FALSE(Replace("missing/x.DSC", "x", &reason));
    EXPECT_EQ(reason, "No such file or directory");
    EXPECT_FALSE(Replace("", "x", &reason));
    EXPECT_EQ(EntryCount(dir.path), 2u);
}

// What an ordinary user sees of a folder that takes no new file: the
// replacement fails plainly and then goes through in place. Folder permissions
// don't stop the superuser, so a child tries it as nobody.
TEST(FileReplacer, WritesInPlaceWhenTheFolderTakesNoNewFile)
{
    xTempDirectory dir;
    fs::create_directory("closed");
    xTempDirectory::Write("closed/Varnel.INI", "a much longer old text\n");
    const uid_t nobody = 65534;
    for (const char* path : {".", "closed", "closed/Varnel.INI"})
        ASSERT_TRUE(::geteuid() != 0 || ::chown(path, nobody, nobody) == 0);
    pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
            ::_exit(3);
        ::chmod("closed", 0555);
        std::string reason;
        bool plainFails = !Replace("closed/Varnel.INI", "new\n", &reason) && reason == "Permission denied";
        bool inPlace = Replace("closed/Varnel.INI", "new\n", &reason, xFileReplacer::kInPlace);
        ::chmod("closed", 0755);
        ::_exit(plainFails && inPlace && xTempDirectory::Read("closed/Varnel.INI") == "new\n" ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST(FileReplacer, SignalsRemoveTheTemporaryFile)
{
    xTempDirectory dir;
    xTempDirectory::Write("out.DSC", "old\n");
    for (int signal : {SIGINT, SIGTERM, SIGHUP}) {
        pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            xFileReplacer::RemoveTemporariesOnSignals();
            xFileReplacer replacer("out.DSC");
            if (!replacer.Begin())
                ::_exit(3);
            replacer.Stream() << "half" << std::flush;
            ::raise(signal);
            ::_exit(4);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        EXPECT_EQ(EntryCount(dir.path), 1u);
        EXPECT_EQ(xTempDirectory::Read("out.DSC"), "old\n");
    }
}
