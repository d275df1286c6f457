#include "app/xEdit2App.h"

#include "gui/xRecordingMenuBar.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMDesc.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

namespace {

// What a new descriptor saves: the documents are descriptors, and a file they
// read without a word has to be one.
std::string NewDescriptorText()
{
    std::ostringstream out;
    xEMDesc().WriteTo(out);
    return out.str();
}

class AppTest : public ::testing::Test {
protected:
    // Starts an application with these command-line names; gives the number
    // of documents it then holds.
    size_t Start(xEdit2App& app, const std::vector<std::string>& names)
    {
        app.SetStartupFiles(names);
        app.StartUp();
        EXPECT_EQ(app.StartupFileCount(), 0);
        return app.DocumentCount();
    }

    xTempDirectory dir;
    xRecordingPlatform platform;
};

// The screen form's start dialog, cancelled.
class CancelledStartApp : public xEdit2App {
protected:
    bool RunStartDialog(long&) override { return false; }
};

} // namespace

TEST_F(AppTest, StartNamesTakeAnyCaseAndFirstCharacterJoinWithOneBlankAndEndSilentlyOnNoFile)
{
    for (const char* name : {"survey.dsc", "SURVEY.DSC", "surveyxdsc"}) {
        xTempDirectory::Write(dir / name, NewDescriptorText());
        xEdit2App app;
        ASSERT_EQ(Start(app, {name}), 1u) << name;
        EXPECT_EQ(app.Document(0)->GetFullPath(), dir / name);
        EXPECT_EQ(app.Document(0)->GetFileType(), "DSC");
        EXPECT_FALSE(app.Document(0)->IsAttached());   // read and closed
    }
    xTempDirectory::Write(dir / "my survey.DSC", NewDescriptorText());
    xEdit2App joined;
    ASSERT_EQ(Start(joined, {"my", "survey.DSC"}), 1u);
    EXPECT_EQ(joined.Document(0)->GetFileName(), "my survey.DSC");

    std::filesystem::create_directory(dir / "folder.DSC");
    xEdit2App folder, missing;
    EXPECT_EQ(Start(folder, {dir / "folder.DSC"}), 0u);
    EXPECT_EQ(Start(missing, {dir / "none.DSC"}), 0u);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    xEdit2App wrong;
    EXPECT_EQ(Start(wrong, {"survey.ds"}), 0u);
    EXPECT_EQ(platform.Texts(xPlatform::kError),
              std::vector<std::string>{
                  "Wrong file selection! <***.DSC> file has to be selected. Please try again."});
    EXPECT_FALSE(wrong.HasEnded());
}

TEST_F(AppTest, StartWithoutNameRunsTheStartDialog)
{
    xEdit2App app;
    ASSERT_EQ(Start(app, {}), 1u);   // the first choice: New, of a descriptor
    EXPECT_EQ(app.Document(0)->fileKind, 0);

    CancelledStartApp cancelled;
    EXPECT_EQ(Start(cancelled, {}), 0u);
    EXPECT_TRUE(cancelled.HasEnded());
}

TEST_F(AppTest, OpenAsksUntilAFileOrQuitWhichEndsEverything)
{
    xTempDirectory::Write(dir / "b.DSC", "");
    xEdit2App app;
    platform.ChooseNext(1);
    platform.AnswerNext(1);   // Try again
    platform.ChooseNext(2, dir / "b.DSC");
    EXPECT_TRUE(app.DoOpen());
    ASSERT_EQ(app.DocumentCount(), 1u);
    EXPECT_EQ(app.Document(0)->GetFullPath(), dir / "b.DSC");
    EXPECT_EQ(platform.dialogRequests.at(1).title, "Select file :");

    app.Document(0)->SetChanged(true);
    platform.AnswerNext(0);   // Quit
    app.DoMenuCommand(xDoc::kOpen, false, false);
    ASSERT_EQ(platform.questions.size(), 2u);
    EXPECT_EQ(platform.questions[1].text, "You have to select a DSC file at this stage.");
    EXPECT_EQ(platform.questions[1].first + "|" + platform.questions[1].second, "Quit|Try again");
    EXPECT_EQ(app.DocumentCount(), 0u);   // the changed one too, unasked
    EXPECT_TRUE(app.HasEnded());
}

TEST_F(AppTest, CloseAllStopsAtTheFirstRefusal)
{
    xEdit2App app;
    for (size_t i = 0; i < 3; ++i) {
        app.DoNew();
        app.Document(i)->SetChanged(i > 0);
    }

    platform.AnswerNext(2);   // the second: Cancel
    app.DoMenuCommand(xDoc::kExit, false, false);
    EXPECT_FALSE(app.HasEnded());
    ASSERT_EQ(app.DocumentCount(), 2u);   // the first went, the refusing one and the later stay
    EXPECT_TRUE(app.Document(0)->IsChanged() && app.Document(1)->IsChanged());
    EXPECT_EQ(platform.questions.size(), 1u);

    platform.AnswerNext(1);   // Discard
    platform.AnswerNext(1);
    app.DoMenuCommand(xDoc::kExit, false, false);
    EXPECT_EQ(app.DocumentCount(), 0u);
    EXPECT_TRUE(app.HasEnded());
}

TEST_F(AppTest, MenuCommandsGoDownFromDocumentToApplication)
{
    xTempDirectory::Write(dir / "s.DSC", "old");
    xEdit2App app;
    app.DoNew();
    app.DoNew();
    xDoc* saved = app.Document(0);
    saved->SetFilePath(dir / "s.DSC");
    saved->SetChanged(true);

    app.RouteMenuCommand(xDoc::kSave, saved);     // the document's Save
    EXPECT_FALSE(saved->IsChanged());
    EXPECT_EQ(xTempDirectory::Read(dir / "s.DSC"), NewDescriptorText());

    app.RouteMenuCommand(xDoc::kClose, app.Document(1));   // closes that one alone
    EXPECT_EQ(app.DocumentCount(), 1u);
    app.RouteMenuCommand(xDoc::kNew, saved);       // passed on to the application
    EXPECT_EQ(app.DocumentCount(), 2u);
    saved->DoCommand(xDoc::kAbout, nullptr);      // up the chain from a document
    app.RouteMenuCommand(xEdit2App::kImportOld, nullptr);
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"Tolvad v. 5.00 (file v.9)",
                                        "xEdit2App::DoMenuCommand() Import of old format descriptors not supported."}));

    // Save of the application saves every changed document.
    saved->SetChanged(true);
    app.DoMenuCommand(xDoc::kSave, false, false);
    EXPECT_FALSE(saved->IsChanged());

    xRecordingMenuBar bar;
    app.DoSetUpMenus(bar);
    EXPECT_EQ(bar.removed, (std::set<long>{32050, 32350, 32450}));
    EXPECT_EQ(bar.updates, 1);
    EXPECT_THROW(xEdit2App::ReportPower(311, "xEdit2App.cpp", 12), xFatalExitError);
    EXPECT_EQ(platform.Texts(xPlatform::kFatal),
              std::vector<std::string>{"XVT-Power++ Error: #311, File:xEdit2App.cpp, Line:12"});
}

namespace {

// A window with a place on the screen.
class PlacedWindow : public xDocWindow {
public:
    PlacedWindow(int width, int height) : width(width), height(height) {}
    void UpdateMenus() override {}
    void SetTitle(const std::string&) override {}
    bool GetFrame(int& l, int& t, int& w, int& h) const override
    {
        std::tie(l, t, w, h) = std::make_tuple(left, top, width, height);
        return true;
    }
    void MoveTo(int l, int t) override { std::tie(left, top) = std::make_pair(l, t); }
    int left = 300, top = 300, width, height;
};

// A document that keeps the commands sent to it.
class ListeningDoc : public xDoc {
public:
    void DoCommand(long command, void* data) override
    {
        heard.push_back(command);
        xDoc::DoCommand(command, data);
    }
    std::vector<long> heard;
};

// The shell's own handlers, which the editor passes over, made reachable.
class ShellApp : public xEdit2App {
public:
    void ShellMenuCommand(long command) { xShellApp::DoMenuCommand(command, false, false); }
    void ShellCommand(long command, void* data) { xShellApp::DoCommand(command, data); }

protected:
    std::unique_ptr<xDoc> MakeDocument() override { return std::make_unique<ListeningDoc>(); }
    int TitleBarHeight() const override { return 20; }
};

class MenuListener : public xCommandTarget {
public:
    void DoCommand(long heard, void* data) override
    {
        command = heard;
        menu = static_cast<const xShellApp::Menu*>(data);
    }
    long command = 0;
    const xShellApp::Menu* menu = nullptr;
};

} // namespace

TEST_F(AppTest, ShellWindowsMenuCascadesAndTellsTheDocumentsButTheEditorPassesItOver)
{
    ShellApp app;
    app.DoNew();
    app.DoNew();
    auto* first = static_cast<PlacedWindow*>(app.Document(0)->AddWindow(std::make_unique<PlacedWindow>(400, 300)));
    auto* empty = static_cast<PlacedWindow*>(app.Document(0)->AddWindow(std::make_unique<PlacedWindow>(0, 300)));
    auto* second = static_cast<PlacedWindow*>(app.Document(1)->AddWindow(std::make_unique<PlacedWindow>(400, 300)));

    app.DoMenuCommand(xShellApp::kCascade, false, false);   // the editor's handler: no effect
    EXPECT_EQ(first->left, 300);

    app.ShellMenuCommand(xShellApp::kCascade);
    EXPECT_EQ(std::make_pair(first->left, first->top), std::make_pair(1, 21));
    EXPECT_EQ(std::make_pair(second->left, second->top), std::make_pair(11, 41));
    EXPECT_EQ(empty->left, 300);   // no size: left alone

    app.ShellMenuCommand(xShellApp::kRestoreSize);
    app.ShellMenuCommand(xShellApp::kMinimize);
    app.ShellMenuCommand(xDoc::kAbout);   // the application's own, then told to all
    for (size_t i = 0; i < 2; ++i)
        EXPECT_EQ(static_cast<ListeningDoc*>(app.Document(i))->heard, (std::vector<long>{501, 502, 511})) << i;
    EXPECT_EQ(platform.Texts(xPlatform::kNote), std::vector<std::string>{"Tolvad v. 5.00 (file v.9)"});

    MenuListener listener;
    app.ShellCommand(xShellApp::kAskWindowsMenu, &listener);
    EXPECT_EQ(listener.command, xShellApp::kWindowsMenuAnswer);
    ASSERT_NE(listener.menu, nullptr);
    std::string menu = std::to_string(listener.menu->tag) + listener.menu->mnemonic;
    for (const xShellApp::MenuEntry& entry : listener.menu->entries)
        menu += "|" + std::to_string(entry.id) + entry.text + entry.mnemonic;
    EXPECT_EQ(menu, "31899W|31898CascadeC|31897MinimizeM|31896Restore SizeR");
}
