#include "app/xModuleLauncher.h"

#include "IniTestPlatform.h"
#include "app/xIniSettings.h"
#include "app/xProjectItem.h"

#include <gtest/gtest.h>

namespace {

class ModuleLauncherTest : public ::testing::Test {
protected:
    void TearDown() override { editorName = "tolvad313.exe "; }
    IniTestPlatform platform;
};

TEST_F(ModuleLauncherTest, ACommandThatStartsAsksNothing)
{
    platform.AllowProgram("tolvad313.exe");
    RunModule("tolvad313.exe survey.DSC");
    EXPECT_EQ(platform.startedPrograms, std::vector<std::string>{"tolvad313.exe survey.DSC"});
    EXPECT_EQ(platform.beeps, 0);
    EXPECT_TRUE(platform.questions.empty());
}

TEST_F(ModuleLauncherTest, AMissingModuleIsAskedForOnce)
{
    // "No": nothing further.
    platform.AnswerNext(1);
    RunModule("tolvad313.exe a.DSC");
    EXPECT_EQ(platform.beeps, 1);
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "Select the module to execute?");
    EXPECT_EQ(platform.questions[0].first, "Yes");
    EXPECT_EQ(platform.questions[0].second, "No");
    EXPECT_TRUE(platform.dialogRequests.empty());
    EXPECT_EQ(editorName, "tolvad313.exe ");

    // "Yes" and a cancelled dialog: nothing started.
    platform.Clear();
    platform.AnswerNext(0);
    RunModule("tolvad313.exe a.DSC");
    ASSERT_EQ(platform.dialogRequests.size(), 1u);
    EXPECT_EQ(platform.dialogRequests[0].title, "Module Selection");
    EXPECT_EQ(platform.dialogRequests[0].filterPattern, "*.EXE");
    EXPECT_EQ(platform.startedPrograms.size(), 1u);

    // "Yes" and a choice: remembered with a blank, started without the old
    // arguments; its failure is not reported.
    platform.Clear();
    platform.AnswerNext(0);
    platform.ChooseNext(2, "/opt/varnel/Editor.exe");
    RunModule("tolvad313.exe a.DSC");
    EXPECT_EQ(editorName, "/opt/varnel/Editor.exe ");
    EXPECT_EQ(platform.startedPrograms,
              (std::vector<std::string>{"tolvad313.exe a.DSC", "/opt/varnel/Editor.exe"}));
    EXPECT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(ModuleLauncherTest, ProjectIsCompleteWithAllThreeFiles)
{
    xProjectItem item;
    EXPECT_EQ(item.title, "Latest Created File");
    EXPECT_FALSE(item.flag);

    xProjectItem project(platform.directory, "line7");
    platform.Put("line7.EMF", "");
    platform.Put("line7.EMW", "");
    EXPECT_FALSE(project.IsComplete());
    std::filesystem::create_directory(platform.Path("line7.EMG"));
    EXPECT_FALSE(project.IsComplete());
    std::filesystem::remove(platform.Path("line7.EMG"));
    platform.Put("line7.EMG", "");
    EXPECT_TRUE(project.IsComplete());
    EXPECT_TRUE(xProjectItem(platform.directory + "/", "line7").IsComplete());
}

} // namespace
