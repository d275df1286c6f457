#include "gui/xCommandTarget.h"
#include "gui/xHeadlessPlatform.h"
#include "gui/xRecordingPlatform.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

TEST(HeadlessPlatform, WritesOneLinePerMessageAndTakesTheFirstButton)
{
    std::ostringstream out;
    xHeadlessPlatform headless(out);
    SetPlatform(&headless);
    PostNote("Old system descriptor, %s.", "updated");
    PostWarning("w %d", 7);
    PostError("two\nlines");
    EXPECT_EQ(PostAsk("Quit", "Try again", nullptr, "You have to select a DSC file at this stage."), 0);
    SetPlatform(nullptr);
    EXPECT_EQ(out.str(),
              "note: Old system descriptor, updated.\n"
              "warning: w 7\n"
              "error: two lines\n"
              "question: You have to select a DSC file at this stage. [Quit]\n");
}

TEST(HeadlessPlatform, FatalExitRunsTheHookAndEndsWithStatusTwo)
{
    EXPECT_EXIT(
        {
            xHeadlessPlatform headless;
            headless.SetFatalHook([] { std::fputs("hook ran\n", stderr); });
            SetPlatform(&headless);
            PostFatalExit("xDoc::Attempt to reset stream failed.");
        },
        ::testing::ExitedWithCode(2), "fatal: xDoc::Attempt to reset stream failed.\nhook ran");
}

// Files, sizes and the current directory are exercised through the documents
// and the file dialog; what they don't reach is here.
TEST(Platform, DirectoriesAndTheModulePath)
{
    xRecordingPlatform rec;
    xTempDirectory dir;
    xFileStatus st;
    ASSERT_TRUE(rec.StatFile(dir.path, st));
    EXPECT_TRUE(st.directory && !st.regular);
    EXPECT_FALSE(rec.RemoveFile(dir / "missing"));
    EXPECT_NE(rec.ModulePath().find("tolvad_tests_seam"), std::string::npos);
}

TEST(Platform, AProgramPathWithBlanksStartsWithItsArguments)
{
    xHeadlessPlatform headless;
    xTempDirectory dir;
    std::filesystem::create_directory(dir / "My Modules");
    // The module writes its arguments, one a line, beside itself.
    const std::string module = dir / "My Modules/tolvad313";
    xTempDirectory::Write(module, "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > \"$0.args.tmp\"\n"
                                  "mv \"$0.args.tmp\" \"$0.args\"\n");
    ASSERT_EQ(::chmod(module.c_str(), 0755), 0);

    std::string program;
    std::vector<std::string> arguments;
    headless.SplitCommand(module + " survey.DSC  \"line 7.DSC\"", program, arguments);
    EXPECT_EQ(program, module);
    EXPECT_EQ(arguments, (std::vector<std::string>{"survey.DSC", "line 7.DSC"}));
    // With no program found, the first word is the one that wasn't.
    headless.SplitCommand(dir / "My Modules/missing a", program, arguments);
    EXPECT_EQ(program, dir / "My");

    ASSERT_TRUE(headless.StartCommand(module + " survey.DSC"));
    for (int i = 0; i < 500 && !std::filesystem::exists(module + ".args"); ++i)
        ::usleep(10000);
    EXPECT_EQ(xTempDirectory::Read(module + ".args"), "survey.DSC\n");
    EXPECT_FALSE(headless.StartCommand(dir / "My Modules/missing a.DSC"));
    EXPECT_FALSE(headless.StartCommand("  "));
}

namespace {
struct Recorder : xCommandTarget {
    std::vector<long> got;
    void DoCommand(long command, void*) override { got.push_back(command); }
};
} // namespace

TEST(CommandTarget, PassesUnhandledCommandsUpTheChain)
{
    Recorder top;
    xCommandTarget middle(&top), bottom(&middle);
    bottom.DoCommand(9400, nullptr);
    xCommandTarget().DoCommand(1, nullptr);   // nobody above: dropped
    EXPECT_EQ(top.got, std::vector<long>{9400});
}
