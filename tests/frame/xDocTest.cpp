#include "frame/xDoc.h"

#include "gui/xRecordingMenuBar.h"
#include "gui/xRecordingPlatform.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <sys/stat.h>

TEST(DocReadLine, EveryLineEndReadsAndReportsItsKindAndAFailedStreamGivesNothing)
{
    std::istringstream in("one\ntwo\r\nthree\rfour\r\rsix");
    // The last line has no end: it reads, the result says end, the stream stays good.
    const std::pair<int, std::string> lines[] = {{2, "one"}, {1, "two"}, {3, "three"},
                                                 {3, "four"}, {3, ""}, {0, "six"}};
    std::string text;
    for (const auto& line : lines) {
        EXPECT_EQ(xDoc::ReadLine(in, &text), line.first);
        EXPECT_EQ(text, line.second);
    }
    EXPECT_TRUE(in.good());

    // A null text drops the line; any byte but a line end is text.
    std::string bytes("a\0b\xff\x01", 5);
    std::istringstream any("skip me\r\n" + bytes + "\n");
    EXPECT_EQ(xDoc::ReadLine(any, nullptr), 1);
    EXPECT_EQ(xDoc::GetLine(any), bytes);

    std::istringstream failed("12 abc\nline\n");
    int number = 0;
    failed >> number >> number;
    text = "old";
    EXPECT_EQ(xDoc::ReadLine(failed, &text), 0);
    EXPECT_EQ(text, "");   // a failed stream gives nothing
}

namespace {

// A text document that reads its lines and writes a given text.
class LineDoc : public xDoc {
public:
    LineDoc() { fileKind = 0; }
    void Read() override
    {
        lines.clear();
        std::string text;
        int end;
        do {
            end = ReadLine(&text);
            if (end != 0 || !text.empty())
                lines.push_back(text);
        } while (end != 0);
    }
    void Write() override { *outStream << content; }
    void ReadPastTheEnd()
    {
        int number = 0;
        *inStream >> number >> number;
    }

    std::vector<std::string> lines;
    std::string content;
};

struct CountingWindow : xDocWindow {
    explicit CountingWindow(int* closed) : closed(closed) {}
    void UpdateMenus() override { ++menuUpdates; }
    void SetTitle(const std::string&) override {}
    void Closing() override { ++*closed; }
    int menuUpdates = 0;
    int* closed;
};

class DocFile : public ::testing::Test {
protected:
    xTempDirectory dir;   // first: the platform takes it as its start-up directory
    xRecordingPlatform platform;
};

} // namespace

TEST_F(DocFile, NameTypeCreatorPathsAndTheMissingFileWarning)
{
    xDoc doc;
    doc.SetFileName("survey.DSC");
    doc.SetFileName("survey.dsc1");   // a long extension leaves the type as it was
    EXPECT_EQ(doc.GetFileType(), "DSC");
    doc.SetFileName("name.");
    EXPECT_EQ(doc.GetFileType(), "");

    doc.SetFileCreator("ABCD");
    doc.SetFileCreator("ABCDE");
    EXPECT_EQ(doc.GetFileCreator(), "ABCD");
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"xDoc::Attempt to set illegal file creator string."});
    doc.SetFileCreator("");
    EXPECT_EQ(doc.GetFileCreator(), "????");

    // A missing file is reported only when asked for.
    platform.Clear();
    doc.reportMissing = false;
    EXPECT_FALSE(doc.OpenForRead(dir / "none.DSC"));
    EXPECT_TRUE(platform.messages.empty());
    doc.reportMissing = true;
    EXPECT_FALSE(doc.OpenForRead(dir / "none.DSC"));
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"File " + (dir / "none.DSC") + " does not exist."});

    // Paths split at the last separator of either kind.
    doc.SetFilePath("C:\\old\\B.DSC");
    EXPECT_EQ(doc.GetFullPath(), "C:/old/B.DSC");
    doc.SetFilePath("bare.txt");
    EXPECT_EQ(doc.GetFullPath(), dir / "bare.txt");

    // A relative directory is taken from where the name was given, so that
    // opening, which makes the directory current, still finds the file.
    mkdir((dir / "sub").c_str(), 0755);
    xTempDirectory::Write(dir / "sub/r.txt", "r\n");
    doc.SetFilePath("sub/r.txt");
    EXPECT_EQ(doc.GetFullPath(), dir / "sub/r.txt");
    EXPECT_TRUE(doc.OpenForRead());
    EXPECT_TRUE(doc.OpenForRead("../sub/r.txt"));
    EXPECT_EQ(doc.GetFullPath(), dir / "sub/../sub/r.txt");
}

TEST_F(DocFile, LoadAndStoreTruncateAndBinaryAccessSeeksAnywhere)
{
    xTempDirectory::Write(dir / "a.DSC", "first\r\nsecond\n");
    LineDoc doc;
    ASSERT_TRUE(doc.OpenForRead(dir / "a.DSC"));
    std::string text;
    doc.ReadLine(&text);
    EXPECT_EQ(doc.GetFileSize(), 14);   // keeps the buffer open, from its start again
    EXPECT_TRUE(doc.IsAttached());
    EXPECT_EQ(doc.ReadLine(&text), 1);
    EXPECT_EQ(text, "first");
    EXPECT_TRUE(doc.Load());
    EXPECT_EQ(doc.lines, (std::vector<std::string>{"first", "second"}));

    doc.content = "x\n";
    EXPECT_TRUE(doc.Store());
    EXPECT_FALSE(doc.IsAttached());
    EXPECT_EQ(xTempDirectory::Read(dir / "a.DSC"), "x\n");
    // The file has gone since: the document stays as it was.
    std::remove((dir / "a.DSC").c_str());
    EXPECT_FALSE(doc.Load());
    EXPECT_EQ(doc.lines.size(), 2u);

    // Binary random access over the same one buffer.
    doc.fileKind = 1;
    doc.SetFilePath(dir / "m.bin");
    ASSERT_TRUE(doc.OpenForWrite());
    const char bytes[] = {'\0', '\r', '\n', '\x1a', '\xff'};
    EXPECT_TRUE(doc.WriteBytes(bytes, 5));
    EXPECT_TRUE(doc.Seek(1));
    char back[4] = {};
    EXPECT_TRUE(doc.ReadBytes(back, 4));
    EXPECT_EQ(std::string(back, 4), std::string(bytes + 1, 4));
    EXPECT_FALSE(doc.ReadBytes(back, 1));   // past the end
    EXPECT_TRUE(doc.DeleteFile());
    EXPECT_FALSE(doc.FileExists());
}

TEST_F(DocFile, ReadOnlyFileOpensForReadingAndRefusesWriting)
{
    xTempDirectory::Write(dir / "ro.DSC", "keep\n");
    chmod((dir / "ro.DSC").c_str(), 0444);
    LineDoc doc;
    ASSERT_TRUE(doc.OpenForRead(dir / "ro.DSC"));
    EXPECT_TRUE(doc.readOnly);
    EXPECT_FALSE(doc.WriteBytes("zz", 2));
    doc.content = "lost";
    EXPECT_FALSE(doc.Store());
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"Attempt to write to read only file."});
    EXPECT_EQ(xTempDirectory::Read(dir / "ro.DSC"), "keep\n");

    // It stays read-only under another name, and the file chosen keeps its bytes.
    xTempDirectory::Write(dir / "other.DSC", "other\n");
    platform.ChooseNext(2, dir / "other.DSC");
    EXPECT_FALSE(doc.DoSaveAs());
    EXPECT_EQ(platform.Texts(xPlatform::kWarning).size(), 2u);
    EXPECT_EQ(xTempDirectory::Read(dir / "other.DSC"), "other\n");
}

TEST_F(DocFile, OverwriteQuestionAnswers)
{
    const std::string path = dir / "o.DSC";
    LineDoc doc;
    doc.overwrite = false;
    doc.SetFilePath(path);

    xTempDirectory::Write(path, "old text\n");
    platform.AnswerNext(2);   // Cancel
    EXPECT_FALSE(doc.OpenForWrite());
    EXPECT_EQ(platform.questions.back().text, "o.DSC already exists. Do you want to overwrite it?");
    EXPECT_FALSE(doc.IsAttached());

    platform.AnswerNext(7);   // an answer no button gives: said, then opened as it stands
    doc.content = "new";
    EXPECT_TRUE(doc.Store());
    EXPECT_EQ(platform.Texts(xPlatform::kError), std::vector<std::string>{"Invalid return from ask."});
    EXPECT_EQ(xTempDirectory::Read(path), "new text\n");

    platform.AnswerNext(1);   // Yes
    EXPECT_TRUE(doc.Store());
    EXPECT_EQ(xTempDirectory::Read(path), "new");

    platform.AnswerNext(0);   // No: another name
    platform.ChooseNext(2, dir / "other.DSC");
    doc.content = "other";
    EXPECT_TRUE(doc.Store());
    EXPECT_EQ(xTempDirectory::Read(dir / "other.DSC"), "other");
    EXPECT_EQ(xTempDirectory::Read(path), "new");
}

TEST_F(DocFile, ResetStreamRecoversAFailedStreamAndIsFatalWithoutAFile)
{
    xTempDirectory::Write(dir / "r.txt", "12");
    LineDoc doc;
    doc.reportMissing = false;
    ASSERT_TRUE(doc.OpenForRead(dir / "r.txt"));
    doc.ReadPastTheEnd();
    EXPECT_FALSE(doc.StreamGood());
    doc.ResetStream();
    EXPECT_TRUE(doc.StreamGood());
    EXPECT_EQ(doc.ReadLine(nullptr), 0);
    EXPECT_EQ(doc.Tell(), 2);

    doc.CloseFile();
    std::remove((dir / "r.txt").c_str());
    EXPECT_THROW(doc.ResetStream(), xFatalExitError);
    EXPECT_EQ(platform.Texts(xPlatform::kFatal),
              std::vector<std::string>{"xDoc::Attempt to reset unattached stream for output."});
}

TEST_F(DocFile, ChangedFlagUpdatesMenusOnlyOnANewValue)
{
    int closed = 0;
    xDoc doc;
    auto* window = static_cast<CountingWindow*>(doc.AddWindow(std::make_unique<CountingWindow>(&closed)));
    doc.SetChanged(false);
    doc.SetChanged(true);
    doc.SetChanged(true);
    EXPECT_EQ(window->menuUpdates, 1);

    xRecordingMenuBar bar;
    doc.DoUpdateMenus(bar);
    EXPECT_EQ(bar.State(xDoc::kSaveAs), 1);
    EXPECT_EQ(bar.State(xDoc::kSave) + bar.State(xDoc::kPrint), 0);   // no file yet
    doc.fileKind = 0;
    doc.SetFilePath(dir / "p.txt");
    xTempDirectory::Write(dir / "p.txt", "");
    doc.DoUpdateMenus(bar);
    EXPECT_EQ(bar.State(xDoc::kSave) + bar.State(xDoc::kPrint), 2);
    doc.fileKind = 1;
    EXPECT_FALSE(doc.DoPrint());
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"xDoc::DoPrint() - currently supports printing of ASCII files only."});

    // Closing all windows drops the changes without a question.
    doc.CloseWindows();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_TRUE(platform.questions.empty());
}

TEST_F(DocFile, CloseAsksUntilSavedDiscardedOrCancelled)
{
    int closed = 0;
    LineDoc doc;
    doc.SetFilePath(dir / "c.DSC");
    doc.AddWindow(std::make_unique<CountingWindow>(&closed));
    doc.AddWindow(std::make_unique<CountingWindow>(&closed));
    doc.SetChanged(true);

    platform.AnswerNext(2);   // the second window asks: Cancel
    EXPECT_FALSE(doc.DoClose());
    EXPECT_EQ(closed, 1);
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "c.DSC has changed, save before closing?");

    // Save with no file runs Save As; its dialog is cancelled, so it asks again.
    platform.AnswerNext(0);
    platform.AnswerNext(1);   // Discard
    EXPECT_TRUE(doc.DoClose());
    EXPECT_EQ(platform.questions.size(), 3u);
    EXPECT_EQ(platform.dialogRequests.at(0).title, "Save As :");
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_EQ(closed, 2);

    // Save that works: the file is written and the flag cleared.
    doc.SetChanged(true);
    doc.content = "saved";
    platform.AnswerNext(0);
    platform.ChooseNext(2, dir / "c.DSC");
    EXPECT_TRUE(doc.CanCloseWindow(nullptr));
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_EQ(xTempDirectory::Read(dir / "c.DSC"), "saved");
}
