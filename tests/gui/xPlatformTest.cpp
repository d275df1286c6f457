#include "gui/xCommandTarget.h"
#include "gui/xHeadlessPlatform.h"
#include "gui/xRecordingPlatform.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
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
            std::ostringstream out;
            xHeadlessPlatform headless;
            headless.SetFatalHook([] { std::fputs("hook ran\n", stderr); });
            SetPlatform(&headless);
            PostFatalExit("xDoc::Attempt to reset stream failed.");
        },
        ::testing::ExitedWithCode(2), "fatal: xDoc::Attempt to reset stream failed.\nhook ran");
}

TEST(RecordingPlatform, KeepsMessagesAnswersFromScriptAndThrowsOnFatal)
{
    xRecordingPlatform rec;
    rec.AnswerNext(2);
    PostNote("a %s", "note");
    EXPECT_EQ(PostAsk("Save", "Discard", "Cancel", "x has changed"), 2);
    EXPECT_EQ(PostAsk("Yes", "No", nullptr, "again"), 0);   // script ran out
    ASSERT_EQ(rec.questions.size(), 2u);
    EXPECT_EQ(rec.questions[0].third, "Cancel");
    EXPECT_EQ(rec.questions[1].third, "");
    EXPECT_THROW(PostFatalExit("FloatMatrix: Out of memory!"), xFatalExitError);
    EXPECT_EQ(rec.Transcript(), "note: a note\nfatal: FloatMatrix: Out of memory!\n");
    EXPECT_EQ(&Platform(), &rec);
}

TEST(Platform, FileSystemQueries)
{
    xRecordingPlatform rec;
    char dirTemplate[] = "/tmp/tolvad-seam-XXXXXX";
    ASSERT_NE(mkdtemp(dirTemplate), nullptr);
    std::string dir = dirTemplate;
    std::string file = dir + "/a.DSC";
    std::ofstream(file) << "12345";
    xFileStatus st;
    ASSERT_TRUE(rec.StatFile(file, st));
    EXPECT_TRUE(st.regular);
    EXPECT_FALSE(st.directory);
    EXPECT_EQ(st.size, 5);
    ASSERT_TRUE(rec.StatFile(dir, st));
    EXPECT_TRUE(st.directory);
    EXPECT_FALSE(rec.StatFile(dir + "/missing", st));
    std::string here = rec.CurrentDirectory();
    ASSERT_TRUE(rec.SetCurrentDirectory(dir));
    EXPECT_EQ(rec.CurrentDirectory(), dir);
    ASSERT_TRUE(rec.SetCurrentDirectory(here));
    EXPECT_TRUE(rec.RemoveFile(file));
    EXPECT_FALSE(rec.RemoveFile(file));
    rmdir(dir.c_str());
    EXPECT_NE(rec.ModulePath().find("tolvad_tests_seam"), std::string::npos);
}

namespace {
struct Recorder : xCommandTarget {
    using xCommandTarget::xCommandTarget;
    long got = 0;
    void DoCommand(long command, void* data) override
    {
        if (command == 9400)
            got = command;
        else
            xCommandTarget::DoCommand(command, data);
    }
};
} // namespace

TEST(CommandTarget, PassesUnhandledCommandsUpTheChain)
{
    Recorder top;
    xCommandTarget middle(&top);
    xCommandTarget bottom(&middle);
    bottom.DoCommand(9400, nullptr);
    EXPECT_EQ(top.got, 9400);
    bottom.DoCommand(1, nullptr);   // nobody takes it; it is dropped
    EXPECT_EQ(top.got, 9400);
}
