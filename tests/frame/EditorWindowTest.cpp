#include "app/xAboutDlg.h"
#include "app/xEditorApp.h"
#include "app/xQtMenuBar.h"
#include "app/xStartDlg.h"
#include "app/xTaskWin.h"
#include "app/xTutorialDlg.h"
#include "cards/xEMSysCard.h"
#include "frame/xCardCatalog.h"
#include "frame/xDescWin.h"
#include "frame/xEMWinDesc.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMSHeader.h"
#include "tests/model/xStreamText.h"
#include "tests/xEditorTestKit.h"
#include "tests/xTempDirectory.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;
using Kit = xEditorTestKit;

class EditorWindow : public ::testing::Test {
protected:
    // An application started on a copy of an example in the temporary directory.
    void StartOn(xEditorApp& app, const std::string& example, const std::string& name)
    {
        original = xTempDirectory::Read(Kit::Example(example));
        xTempDirectory::Write(dir / name, original);
        app.SetStartupFiles({dir / name});
        app.StartUp();
        Kit::Settle();
    }
    static xEMWinDesc& Doc(xEditorApp& app, size_t index = 0)
    {
        return *static_cast<xEMWinDesc*>(app.Document(index));
    }
    static xEMSysCard& SystemCard(xEMWinDesc& doc)
    {
        return *static_cast<xEMSysCard*>(doc.DescWindow()->FindCard("System Description"));
    }

    xTempDirectory dir;
    xRecordingPlatform platform;
    std::string original;
};

} // namespace

TEST_F(EditorWindow, TheStartDialogOpensNewOrExistingAndCancelEnds)
{
    {
        xEditorApp app;
        Kit::OnNextDialog([](QDialog& dialog) { dialog.reject(); });
        app.StartUp();
        EXPECT_TRUE(app.HasEnded());
        EXPECT_EQ(app.DocumentCount(), 0u);
        EXPECT_EQ(app.TaskWindow(), nullptr);
    }
    {
        xEditorApp app;
        Kit::OnNextDialog([](QDialog& dialog) {
            auto& start = static_cast<xStartDlg&>(dialog);
            EXPECT_TRUE(start.NewButton()->isChecked());
            QTest::mouseClick(start.OpenButton(), Qt::LeftButton);
            QTest::keyClick(&dialog, Qt::Key_Return);   // Return is OK
        });
        platform.ChooseNext(2, Kit::Example("survey-time-domain.DSC"));
        app.StartUp();
        ASSERT_EQ(app.DocumentCount(), 1u);
        EXPECT_EQ(Doc(app).DescWindow()->windowTitle().toStdString(), "survey-time-domain.DSC[*]");
        EXPECT_EQ(platform.dialogRequests.at(0).title, "Select file :");
    }
    {
        xEditorApp app;
        Kit::OnNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
        app.StartUp();
        ASSERT_EQ(app.DocumentCount(), 1u);
        EXPECT_EQ(Doc(app).GetFileName(), "untitled.DSC");
        // Closing the last window leaves the task window with New and Open.
        EXPECT_TRUE(Kit::ChooseMenu(Doc(app).DescWindow()->MenuBar(), xDoc::kClose));
        EXPECT_EQ(app.DocumentCount(), 0u);
        ASSERT_NE(app.TaskWindow(), nullptr);
        EXPECT_TRUE(app.TaskWindow()->MenuBar().IsEnabled(xDoc::kNew));
        EXPECT_TRUE(app.TaskWindow()->MenuBar().IsEnabled(xDoc::kOpen));
        QTest::mouseClick(app.TaskWindow()->NewButton(), Qt::LeftButton);
        Kit::Settle();
        EXPECT_EQ(app.DocumentCount(), 1u);
        EXPECT_EQ(app.TaskWindow(), nullptr);
    }
    EXPECT_TRUE(platform.questions.empty());
}

TEST_F(EditorWindow, MenusKeysAboutSaveAndTheModifiedMarkFollowTheDocument)
{
    xEditorApp app;
    StartOn(app, "survey-time-domain.DSC", "marked.DSC");
    xDescWin& window = *Doc(app).DescWindow();
    xQtMenuBar& bar = window.MenuBar();
    EXPECT_EQ(window.windowTitle().toStdString(), "marked.DSC[*]");
    EXPECT_EQ(bar.BarTags(), (std::vector<long>{32000, 32025, 32450}));
    EXPECT_EQ(bar.EntryIds(32000),
              (std::vector<long>{32001, 32002, 32003, 32004, 32005, 32006, 0, 32008, 32007, 0, 32009}));
    EXPECT_EQ(bar.EntryIds(32025), (std::vector<long>{32026, 0, 32027, 32028, 32029, 32030}));
    EXPECT_EQ(bar.Text(32006) + "|" + bar.Text(32026) + "|" + bar.Text(32029) + "|" + bar.Text(32005),
              "Re&vert to Saved|&Undo   Ctrl+Z|&Paste  Ctrl+V|Save &As...");   // each keeps its own spacing

    std::vector<std::pair<long, std::string>> keys;
    for (QAction* key : bar.Keys())
        keys.emplace_back(xQtMenuBar::IdOf(key), key->shortcut().toString().toStdString());
    EXPECT_EQ(keys, (std::vector<std::pair<long, std::string>>{
                        {32028, "Ctrl+C"}, {32029, "Ctrl+V"}, {32026, "Alt+Backspace"}, {32030, "Ctrl+Del"},
                        {32027, "Shift+Del"}, {32457, "Ctrl+F1"}, {32462, "Alt+F1"}, {32033, "Ctrl+Ins"},
                        {32032, "Shift+Ins"}, {32031, "Ctrl+X"}, {32034, "Ctrl+Z"}}));

    for (long id : {32001, 32002, 32003, 32005, 32009, 10241, 32010})
        EXPECT_TRUE(bar.IsEnabled(id)) << id;
    for (long id : {32004, 32006, 32007, 32008, 32026, 32027, 32028, 32029, 32030})
        EXPECT_FALSE(bar.IsEnabled(id)) << id;
    EXPECT_FALSE(window.isWindowModified());

    // A key typed in the window marks the document, whatever it does.
    QTest::keyClick(SystemCard(Doc(app)).Box(5000)->Field(), Qt::Key_End);
    EXPECT_TRUE(Doc(app).IsChanged() && window.isWindowModified());
    EXPECT_TRUE(bar.IsEnabled(32004));

    // About in the help menu tells the versions.
    std::string first;
    Kit::OnNextDialog([&first](QDialog& dialog) {
        first = static_cast<xAboutDlg&>(dialog).Lines().front()->text().toStdString();
        dialog.accept();
    });
    EXPECT_TRUE(Kit::ChooseMenu(bar, 32010));
    EXPECT_EQ(first, "Tolvad v. 5.00 (file v.9)");

    // Save and Save As write what the cards hold.
    xEMSysCard& card = SystemCard(Doc(app));
    Kit::TypeInto(*card.Box(5000), "Bird 7");
    Kit::ChooseIn(*card.List(5009), "sec");
    EXPECT_TRUE(Kit::ChooseMenu(bar, xDoc::kSave));
    std::string expected = Replaced(Replaced(original, "Tolvad demo towed-bird TEM", "Bird 7"), "[mSec]", "[sec]");
    EXPECT_EQ(xTempDirectory::Read(dir / "marked.DSC"), expected);
    EXPECT_FALSE(Doc(app).IsChanged() || window.isWindowModified());
    platform.ChooseNext(2, dir / "copy.DSC");
    EXPECT_TRUE(Kit::ChooseMenu(bar, xDoc::kSaveAs));
    EXPECT_EQ(xTempDirectory::Read(dir / "copy.DSC"), expected);
    EXPECT_EQ(window.windowTitle().toStdString(), "copy.DSC[*]");
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(EditorWindow, ClosingAsksOnlyAboutChangesFromTheMenuAndFromTheFrame)
{
    xEditorApp app;
    StartOn(app, "survey-time-domain.DSC", "first.DSC");
    xTempDirectory::Write(dir / "second.DSC", original);
    platform.ChooseNext(2, dir / "second.DSC");
    EXPECT_TRUE(Kit::ChooseMenu(Doc(app).DescWindow()->MenuBar(), xDoc::kOpen));
    ASSERT_EQ(app.DocumentCount(), 2u);
    EXPECT_EQ(Doc(app, 1).DescWindow()->pos(), Doc(app, 0).DescWindow()->pos() + QPoint(20, 20));

    Doc(app, 0).SetChanged(true);
    platform.AnswerNext(2);   // Cancel
    EXPECT_TRUE(Kit::ChooseMenu(Doc(app, 0).DescWindow()->MenuBar(), xDoc::kClose));
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "first.DSC has changed, save before closing?");
    EXPECT_EQ(app.DocumentCount(), 2u);
    platform.AnswerNext(1);   // Discard
    EXPECT_TRUE(Kit::ChooseMenu(Doc(app, 0).DescWindow()->MenuBar(), xDoc::kClose));
    ASSERT_EQ(app.DocumentCount(), 1u);
    EXPECT_EQ(xTempDirectory::Read(dir / "first.DSC"), original);

    // The frame's close box: the cards are complete, the document asks, Save writes.
    Kit::TypeInto(*SystemCard(Doc(app)).Box(5001), "3.3");
    platform.AnswerNext(0);   // Save
    Doc(app).DescWindow()->close();
    Kit::Settle();
    EXPECT_EQ(platform.questions.back().text, "second.DSC has changed, save before closing?");
    EXPECT_EQ(app.DocumentCount(), 0u);
    EXPECT_EQ(xTempDirectory::Read(dir / "second.DSC"), Replaced(original, "\n3.2\n", "\n3.3\n"));
    EXPECT_NE(app.TaskWindow(), nullptr);
    EXPECT_EQ(platform.questions.size(), 3u);
}

TEST_F(EditorWindow, OpenCancelledAndQuitEndsEverythingUnasked)
{
    xEditorApp app;
    StartOn(app, "survey-frequency-domain.DSC", "changed.DSC");
    Doc(app).SetChanged(true);
    platform.ChooseNext(1);   // the file dialog cancelled
    platform.AnswerNext(0);   // Quit
    EXPECT_TRUE(Kit::ChooseMenu(Doc(app).DescWindow()->MenuBar(), xDoc::kOpen));
    EXPECT_TRUE(app.HasEnded());
    EXPECT_EQ(app.DocumentCount(), 0u);
    EXPECT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "You have to select a DSC file at this stage.");
}

TEST_F(EditorWindow, OpensEveryExampleAndDescriptorsWithoutOrientations)
{
    xTempDirectory::Write(dir / "six.DSC", "FILE FORMAT VERSION\n6\n");
    for (const std::string& name : {Kit::Example("survey-time-domain.DSC"), Kit::Example("survey-frequency-domain.DSC"),
                                    Kit::Example("survey-version7.DSC"), dir / "six.DSC"}) {
        xEditorApp app;
        app.SetStartupFiles({name});
        app.StartUp();
        ASSERT_EQ(app.DocumentCount(), 1u) << name;
        xDescWin* window = Doc(app).DescWindow();
        ASSERT_NE(window, nullptr) << name;
        int existing = 0;   // the cards that exist
        for (const std::string& title : Doc(app).CardTitles())
            existing += xCardCatalog::Exists(title) ? 1 : 0;
        EXPECT_EQ(window->CardCount(), existing) << name;
        EXPECT_TRUE(window->IsSelected(window->FindCard("System Description"))) << name;
    }
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Currently unsupported version of EM descriptor (version 6)"});

    // With no records, a new orientation gets new ones.
    xEditorApp app;
    app.SetStartupFiles({dir / "six.DSC"});
    app.StartUp();
    QTest::mouseClick(SystemCard(Doc(app)).OrientationBox(101), Qt::LeftButton);
    EXPECT_EQ(Doc(app).current, 101);
    EXPECT_NE(Doc(app).system, nullptr);
}

// Run twice by ctest: at 96 DPI and with QT_SCALE_FACTOR=2.
TEST_F(EditorWindow, EveryLabelTabButtonAndPromptLineShowsWhole)
{
    std::unique_ptr<xEMWinDesc> doc;
    for (const char* example : {"survey-frequency-domain.DSC", "survey-version7.DSC", "survey-time-domain.DSC"}) {
        doc = Kit::OpenWindow(Kit::Example(example));
        EXPECT_EQ(Kit::ClippedTexts(*doc->DescWindow()), Texts{}) << example;
    }
    // The longest prompt lines a card brings widen the window.
    xDescWin& window = *doc->DescWindow();
    EXPECT_EQ(window.devicePixelRatio(), qEnvironmentVariable("QT_SCALE_FACTOR") == "2" ? 2.0 : 1.0);
    xCard* card = window.CardAt(0);
    const char* prompt =
        "Number of items per EM data record.\nSpecify number of items in each data record.\nPlease note that "
        "following information has to be present in each data record: line, station (or FID), x, y, z "
        "(coordinates)\nand at least three sampling channels.";
    card->AddPromptItem(QRect(0, 0, 30, 30), prompt);
    window.FitToCards();
    xEditorTestKit::MoveMouse(*card, QPoint(5, 5));
    EXPECT_FALSE(window.PromptLine(2)->text().isEmpty());
    EXPECT_EQ(Kit::ClippedTexts(window), Texts{});

    long result = 0;
    xStartDlg start(&result);
    xAboutDlg about;
    EXPECT_EQ(Kit::ClippedTexts(start), Texts{});
    EXPECT_EQ(Kit::ClippedTexts(about), Texts{});
    xEditorApp app;
    app.SetStartupFiles({"wrong.ds"});
    app.StartUp();
    ASSERT_NE(app.TaskWindow(), nullptr);
    EXPECT_EQ(Kit::ClippedTexts(*app.TaskWindow()), Texts{});
}

TEST_F(EditorWindow, CommandLineTellsItsUseAndVersion)
{
    // Neither needs a screen.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QString::fromUtf8(name));
    auto run = [&environment](const char* option) {
        QProcess editor;
        editor.setProcessEnvironment(environment);
        editor.start(QStringLiteral(TOLVAD_EDITOR), {QString::fromUtf8(option)});
        EXPECT_TRUE(editor.waitForFinished(20000) && editor.exitCode() == 0) << option;
        return editor.readAllStandardOutput().toStdString();
    };
    EXPECT_EQ(run("--version"), "Tolvad v. 5.00 (file v.9)\n");
    std::string help = run("--help");
    EXPECT_NE(help.find("[FILE.DSC]"), std::string::npos) << help;
}

TEST_F(EditorWindow, TutorialDialogAsksWithItsBox)
{
    xTutorialDlg tutorial;
    Kit::OnNextDialog([](QDialog& dialog) {
        QCheckBox* box = static_cast<xTutorialDlg&>(dialog).Box();
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));   // on its square
        dialog.accept();
    });
    EXPECT_TRUE(tutorial.Run());
    EXPECT_EQ(tutorial.windowTitle().toStdString(), "Set Tutorial Dialog");
    EXPECT_EQ(tutorial.Box()->text().toStdString(), "Build tutorial project");
    QList<QLabel*> lines = tutorial.findChildren<QLabel*>();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[1]->text().toStdString(), "Run all processes starting from ASCII->BIN. This will");
}
