#include "gui/xQtPlatform.h"
#include "xModalDriver.h"

#include <QFileDialog>
#include <QMessageBox>

#include <fstream>
#include <unistd.h>

TEST(QtPlatform, QuestionsAnswerWithThePlaceOfTheButton)
{
    xQtPlatform qt;
    OnModal([](QWidget* m) { Click(m, "Cancel"); });
    EXPECT_EQ(qt.Ask("Save", "Discard", "Cancel", "untitled.DSC has changed, save before closing?"), 2);
    OnModal([](QWidget* m) {
        EXPECT_EQ(m->findChildren<QPushButton*>().size(), 2);
        Click(m, "No");
    });
    EXPECT_EQ(qt.Ask("Yes", "No", "", "Replace existing file a.DSC"), 1);
    OnModal([](QWidget* m) {
        auto* box = qobject_cast<QMessageBox*>(m);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "Illegal clipboard contents.");
        EXPECT_EQ(box->icon(), QMessageBox::Information);
        box->accept();
    });
    qt.Note("Illegal clipboard contents.");
}

TEST(QtPlatform, FileDialogMatchesTheTypeInAnyCase)
{
    xFileDialogRequest request;
    request.filterDescription = "Open file <DSC>";
    request.filterPattern = "*.DSC";
    EXPECT_EQ(xQtPlatform::FilterFor(request), "Open file <DSC> (*.[dD][sS][cC])");

    char dirTemplate[] = "/tmp/tolvad-qt-XXXXXX";
    ASSERT_NE(mkdtemp(dirTemplate), nullptr);
    std::string dir = dirTemplate;
    std::ofstream(dir + "/lower.dsc") << "x";
    request.directory = dir;
    xQtPlatform qt;
    std::string chosen = "unchanged";
    OnModal([](QWidget* m) {
        auto* dialog = qobject_cast<QFileDialog*>(m);
        ASSERT_NE(dialog, nullptr);
        dialog->selectFile("lower.dsc");
        QMetaObject::invokeMethod(dialog, "accept");
    });
    EXPECT_EQ(qt.ChooseFile(request, chosen), 2);
    EXPECT_EQ(chosen, dir + "/lower.dsc");
    unlink((dir + "/lower.dsc").c_str());
    rmdir(dir.c_str());
}

TEST(QtPlatform, ClipboardScreenAndPrograms)
{
    xQtPlatform qt;
    qt.PutClipboardText(" 1.0000000e+00\n");
    EXPECT_TRUE(qt.HasClipboardText());
    EXPECT_EQ(qt.GetClipboardText(), " 1.0000000e+00\n");
    int w = 0, h = 0;
    qt.ScreenSize(w, h);
    EXPECT_GT(w * h, 0);
    EXPECT_FALSE(qt.StartCommand("/nonexistent/tolvad313 a.DSC"));
    EXPECT_TRUE(qt.StartCommand("/bin/true a.DSC"));
}

TEST(QtPlatform, FatalShowsTheMessageThenEndsWithStatusTwo)
{
    EXPECT_EXIT(
        {
            xQtPlatform qt;
            qt.SetFatalHook([] { std::fputs("hook ran\n", stderr); });
            OnModal([](QWidget* m) { qobject_cast<QDialog*>(m)->accept(); });
            qt.FatalExit("xDoc::Attempt to reset stream failed.");
        },
        ::testing::ExitedWithCode(2), "hook ran");
}
