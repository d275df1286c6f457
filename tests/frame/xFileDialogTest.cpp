#include "frame/xFileDialog.h"

#include "gui/xRecordingPlatform.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class FileDialogTest : public ::testing::Test {
protected:
    FileDialogTest()
    {
        std::filesystem::create_directory(dir / "sub");
        spec.SetDirectoryText(dir / "sub");
        spec.name = "old.DSC";
        spec.type = "DSC";
    }
    xTempDirectory dir;
    xRecordingPlatform platform;
    xFileSpec spec;
};

} // namespace

TEST_F(FileDialogTest, AChoiceSetsNameAndDirectoryAndKeepsTheCurrentDirectory)
{
    platform.ChooseNext(2, "/elsewhere/new.dsc");
    EXPECT_EQ(FileDialog(&spec, "Pick :", false), kFileDialogChosen);
    EXPECT_EQ(spec.FullPath(), "/elsewhere/new.dsc");
    EXPECT_EQ(std::filesystem::current_path().string(), dir.path);

    const xFileDialogRequest& request = platform.dialogRequests.at(0);
    EXPECT_EQ(request.directory, dir / "sub");
    EXPECT_EQ(request.suggestedName, "old.DSC");
    EXPECT_EQ(request.filterDescription, "Open file <DSC>");
    EXPECT_EQ(request.filterPattern, "*.DSC");
}

TEST_F(FileDialogTest, CancelAndFailuresLeaveTheFileSpec)
{
    platform.ChooseNext(1);
    EXPECT_EQ(FileOpenDialog(&spec, "x"), kFileDialogCancelled);
    EXPECT_EQ(spec.FullPath(), dir / "sub/old.DSC");
    EXPECT_EQ(platform.dialogRequests.at(0).suggestedName, "");

    platform.ChooseNext(2, "nodirectory.DSC");
    EXPECT_EQ(FileOpenDialog(&spec, "x"), kFileDialogFailed);
    EXPECT_EQ(spec.FullPath(), dir / "sub/old.DSC");

    EXPECT_EQ(FileOpenDialog(nullptr, "x"), kFileDialogFailed);
    spec.type = std::string(490, 'T');   // cut by no setter: a hand-made xFileSpec
    EXPECT_EQ(FileOpenDialog(&spec, "x"), kFileDialogFailed);
    EXPECT_EQ(platform.dialogRequests.size(), 2u);
    EXPECT_EQ(platform.Texts(xPlatform::kError),
              (std::vector<std::string>{"FileDialog: Cannon convert selected directory path.",
                                        "FileDialog: Empty file specification.",
                                        "FileDialog: A combine length of file filter description exceeds 500"}));
    EXPECT_EQ(std::filesystem::current_path().string(), dir.path);
}

TEST_F(FileDialogTest, SaveAsksToReplaceOnlyANameInTheCurrentDirectory)
{
    xTempDirectory::Write(dir / "sub/there.DSC", "");
    platform.ChooseNext(2, dir / "sub/there.DSC");
    EXPECT_EQ(FileSaveDialog(&spec, "Save As :"), kFileDialogChosen);
    EXPECT_TRUE(platform.questions.empty());

    xTempDirectory::Write(dir / "there.DSC", "");
    platform.ChooseNext(2, dir / "sub/there.DSC");
    platform.AnswerNext(1);
    EXPECT_EQ(FileSaveDialog(&spec, "Save As :"), kFileDialogCancelled);
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "Replace existing file there.DSC");
    EXPECT_EQ(platform.questions[0].first, "Yes");
}

TEST_F(FileDialogTest, FileAttributesByCode)
{
    xTempDirectory::Write(dir / "sub/old.DSC", "12345");
    EXPECT_EQ(GetFileAttribute(&spec, 1), 1);
    EXPECT_EQ(GetFileAttribute(&spec, 5), 0);
    EXPECT_EQ(GetFileAttribute(&spec, 7), 5);
    std::string text;
    EXPECT_EQ(GetFileAttribute(&spec, 13, &text), 1);
    EXPECT_EQ(text, "old.DSC");

    EXPECT_EQ(GetFileAttribute(nullptr, 1), -1);
    EXPECT_EQ(GetFileAttribute(&spec, 15), -1);
    spec.name = std::string(1100, 'n');
    EXPECT_EQ(GetFileAttribute(&spec, 11), -1);
    spec.name = "missing";
    EXPECT_EQ(GetFileAttribute(&spec, 11), -1);
}
