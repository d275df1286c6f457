#include "app/xModuleLauncher.h"

#include "IniTestPlatform.h"
#include "app/xIniSettings.h"
#include "app/xProjectItem.h"

#include <gtest/gtest.h>

namespace {

TEST(ModuleLauncherTest, AMissingModuleIsAskedForOnce)
{
    // A module path with blanks is one program; only the file name follows it.
    IniTestPlatform platform;
    platform.AllowProgram("My Modules/tolvad313.exe");
    RunModule("My Modules/tolvad313.exe survey.DSC");
    EXPECT_EQ(platform.beeps + platform.questions.size(), 0u);

    // "No": nothing further.
    platform.AnswerNext(1);
    RunModule("other.exe a.DSC");
    EXPECT_EQ(platform.beeps, 1);
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "Select the module to execute?");
    EXPECT_EQ(platform.questions[0].first + platform.questions[0].second, "YesNo");
    EXPECT_TRUE(platform.dialogRequests.empty());

    // "Yes" and a choice: remembered with a blank and started by its whole path
    // without the old arguments; that it fails again is not reported.
    platform.AnswerNext(0);
    platform.ChooseNext(2, "/opt/My Modules/Editor.exe");
    RunModule("other.exe a.DSC");
    ASSERT_EQ(platform.dialogRequests.size(), 1u);
    EXPECT_EQ(platform.dialogRequests[0].title + platform.dialogRequests[0].filterPattern,
              "Module Selection*.EXE");
    EXPECT_EQ(editorName, "/opt/My Modules/Editor.exe ");
    EXPECT_EQ(platform.startedPrograms,
              (std::vector<std::vector<std::string>>{{"My Modules/tolvad313.exe", "survey.DSC"},
                                                     {"other.exe", "a.DSC"},
                                                     {"other.exe", "a.DSC"},
                                                     {"/opt/My Modules/Editor.exe"}}));
    EXPECT_EQ(platform.questions.size(), 2u);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    editorName = "tolvad313.exe ";
}

TEST(ProjectItemTest, CompleteWithAllThreeRegularFiles)
{
    IniTestPlatform platform;
    xProjectItem project(platform.directory, "line7");
    platform.Put("line7.EMF", "");
    platform.Put("line7.EMW", "");
    std::filesystem::create_directory(platform.Path("line7.EMG"));
    EXPECT_FALSE(project.IsComplete());
    std::filesystem::remove(platform.Path("line7.EMG"));
    platform.Put("line7.EMG", "");
    EXPECT_TRUE(xProjectItem(platform.directory + "/", "line7").IsComplete());
}

} // namespace
