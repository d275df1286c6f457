#include "gui/xRecordingPlatform.h"
#include "widgets/xCardClipboard.h"
#include "widgets/xChoiceEdWin.h"
#include "widgets/xEdGrid.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xFloatEdWin.h"
#include "widgets/xGridEdView.h"
#include "widgets/xGridEdViewWin.h"
#include "widgets/xGridValues.h"
#include "widgets/xLongEdWin.h"
#include "widgets/xMtGridEdWin.h"
#include "widgets/xMultipleBEditBox.h"
#include "widgets/xPointFlagEdWin.h"
#include "widgets/xTextEdWin.h"
#include "widgets/xVectorEdWin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {
// Runs the window modally while the action plays the user.
template <class Window, class Action>
void RunWith(Window& window, Action action)
{
    QTimer::singleShot(0, [&window, action] { action(window); });
    window.Run();
}
using Texts = std::vector<std::string>;
} // namespace

TEST(ModalWindows, StayInsideTheScreenAndShareTheCancelFlag)
{
    xRecordingPlatform platform;
    platform.screenWidth = 800;
    platform.screenHeight = 600;
    xModalEdWin corner(nullptr, "t", QPoint(5, 590), 340, 130);
    EXPECT_EQ(corner.geometry(), QRect(10, 600 - 10 - 130, 340, 130));
    EXPECT_FALSE(corner.ResizeToFit(900, 130));   // would leave the screen
    EXPECT_FALSE(corner.ResizeToFit(300, 200));   // recentred, it would pass the bottom
    EXPECT_TRUE(corner.ResizeToFit(300, 110));
    EXPECT_EQ(corner.size(), QSize(300, 110));
    EXPECT_EQ(corner.OkButton()->y(), 110 - xModalEdWin::kButtonRow + 8);

    RunWith(corner, [](xModalEdWin& w) { w.CancelButton()->click(); });
    EXPECT_TRUE(xModalEdWin::Cancelled);
    xModalEdWin next(nullptr, "t", QPoint(400, 300), 200, 100);
    EXPECT_FALSE(xModalEdWin::Cancelled);   // a new window clears it
    RunWith(next, [](xModalEdWin& w) { QTest::keyClick(&w, Qt::Key_Return); });
    EXPECT_EQ(next.result(), QDialog::Accepted);
}

TEST(ModalWindows, PointsTakeTheTypedNumbersAndFlagsFollowTheirNumbers)
{
    xRecordingPlatform platform;
    float point[3] = {1.0f, 2.0f, 3.0f};
    xPointEdWin window(nullptr, "p");
    window.SetUpUserItem(point);
    RunWith(window, [](xPointEdWin& w) {
        w.Column()->Item(2)->SetText("1e39");   // no float holds it: the window stays open
        w.OkButton()->click();
        EXPECT_TRUE(w.isVisible());
        w.Column()->Item(2)->SetText("5");
        w.OkButton()->click();
    });
    EXPECT_EQ(point[1], 5.0f);
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Value can't be converted to float."});

    float flags[3] = {0.9f, 2.0f, 0.0f};
    xPointFlagEdWin flagWin(nullptr, "Components");
    flagWin.SetUpUserItem(flags);
    EXPECT_FALSE(flagWin.Column()->FlagItem(1)->IsChecked());   // 0.9 truncates to 0
    EXPECT_TRUE(flagWin.Column()->FlagItem(2)->IsChecked());
    RunWith(flagWin, [](xPointFlagEdWin& w) {
        QTest::mouseClick(w.Column()->FlagItem(3)->FlagBox(), Qt::LeftButton);
        QTest::mouseClick(w.Column()->FlagItem(2)->FlagBox(), Qt::LeftButton);
        w.OkButton()->click();
    });
    EXPECT_EQ(std::vector<float>(flags, flags + 3), (std::vector<float>{0.9f, 0.0f, 1.0f}));
}

TEST(ModalWindows, VectorTakesBackTheTypedNumbersUnderItsPrompt)
{
    xRecordingPlatform platform;
    FloatArray scales(1, 2);
    scales = 2.0f;
    xVectorEdWin window(nullptr, "Rx Waveform Amplitude Scaling", 340, "first line\na much longer second line");
    window.SetUpUserItem(&scales, {"equivalent secondary amplitude", "nominal (primary) amplitude "});
    ASSERT_EQ(window.PromptLines().size(), 2u);
    EXPECT_EQ(window.PromptLines()[1]->palette().color(QPalette::WindowText), QColor(Qt::blue));
    EXPECT_EQ(window.height(), 130 + 2 * window.PromptLines()[0]->height());
    RunWith(window, [](xVectorEdWin& w) {
        w.Column()->Item(2)->SetText("4.5");
        w.OkButton()->click();
    });
    EXPECT_EQ(scales[2], 4.5f);

    xVectorEdWin cancelled(nullptr, "Time scaling", 250);
    cancelled.SetUpUserItem(&scales, {"a", "b"});
    RunWith(cancelled, [](xVectorEdWin& w) {
        w.Column()->Item(1)->SetText("9");
        QTest::keyClick(&w, Qt::Key_Escape);
    });
    EXPECT_TRUE(xModalEdWin::Cancelled);
    EXPECT_EQ(scales[1], 2.0f);
}

TEST(ModalWindows, GridWindowStoresTheCellBeingTyped)
{
    xRecordingPlatform platform;
    FloatMatrix weights(0, 2, 1, 1);
    for (int r = 0; r <= 2; ++r)
        *weights.Element(r, 1) = 1.0f;
    xGridEdViewWin window(nullptr, "Edit Response Weights");
    window.SetCapacity(3, 1);
    window.SetVisibleSize(3, 1);
    window.SetUpUserItem(&weights);
    RunWith(window, [](xGridEdViewWin& w) {
        xEditField* field = w.View()->EditField();
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Down);
        field->selectAll();
        QTest::keyClicks(field, "0.5");
        w.OkButton()->click();
    });
    EXPECT_EQ(weights.RowLower(), 0);
    EXPECT_EQ(weights.Row(1)[1], 0.5f);
}

TEST(ModalWindows, TextChoiceAndSingleNumbers)
{
    xRecordingPlatform platform;
    float f = 1.0f;
    xFloatEdWin floatWin(nullptr, "f");
    floatWin.SetUpUserItem(&f, "value");
    RunWith(floatWin, [](xFloatEdWin& w) {
        w.Box()->SetText("2.5e1 m");
        w.OkButton()->click();
    });
    EXPECT_EQ(f, 25.0f);
    long l = 3;
    xLongEdWin longWin(nullptr, "l");
    longWin.SetUpUserItem(&l);
    RunWith(longWin, [](xLongEdWin& w) {
        w.Box()->SetText("12abc");
        w.OkButton()->click();
    });
    EXPECT_EQ(l, 12);

    std::string name = "old";
    xTextEdWin text(nullptr, "User Item");
    text.SetUpUserItem(&name, "Enter new user defined item label:");
    RunWith(text, [](xTextEdWin& w) {
        w.Field()->setText("z_new");
        QTest::keyClick(w.Field(), Qt::Key_Return);   // Return in the field is OK
    });
    EXPECT_EQ(name, "z_new");

    int index = 1;
    xChoiceEdWin choice(nullptr, "Remove User Item ", {"a", "b", "c"});
    choice.SetUpUserItem(&index, "pick");
    EXPECT_EQ(choice.List()->currentIndex(), 1);
    RunWith(choice, [](xChoiceEdWin& w) {
        w.List()->setCurrentIndex(2);
        w.OkButton()->click();
    });
    EXPECT_EQ(index, 2);
}

TEST(FixedGrid, FormatsLabelsAndReadsBack)
{
    xRecordingPlatform platform;
    FloatMatrix m(1, 2, 1, 2);
    *m.Element(1, 1) = 1234567.0f;
    *m.Element(1, 2) = 0.5f;
    *m.Element(2, 1) = NoValue;
    xMtGridEdWin wrong(nullptr, "matrix", 300, 200, 3, 2);
    wrong.SetUpUserItem(&m, {}, {});
    EXPECT_EQ(wrong.Grid(), nullptr);
    xMtGridEdWin window(nullptr, "matrix", 300, 200, 2, 2);
    window.SetUpUserItem(&m, {"r1"}, {"c1", "c2"});
    EXPECT_EQ(platform.Transcript(), "error: xMtGridEdWin::SetUpUserItem() Illegal use of class, number of rows and "
                                     "cols has to be specified in advance.\nwarning: xEdGrid::DrawRowLabels -> no "
                                     "of labels does not correspond to number of rows...\n");
    xEdGrid* grid = window.Grid();
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->CellField(0, 0)->text(), "1234567.00");
    EXPECT_EQ(grid->CellField(0, 1)->text(), "0.5");
    EXPECT_EQ(grid->CellField(1, 0)->text(), "");
    EXPECT_EQ(grid->RowLabel(0) + grid->ColumnLabel(1), "0c2");   // the wrong row count left the default
    grid->SetCell(1, 1, 2.0f, "");
    RunWith(window, [](xMtGridEdWin& w) {
        w.Grid()->CellField(1, 0)->setText("7x");
        w.OkButton()->click();
    });
    EXPECT_EQ(m.Row(2)[1], 7.0f);
    EXPECT_EQ(m.Row(2)[2], 2.0f);
    FloatArray row(1, 2);
    row = 5.0f;
    EXPECT_FALSE(grid->GetRow(2, row));   // no such row: nothing read
    EXPECT_EQ(row[1], 5.0f);
}

namespace {
struct Card : QWidget, xCardClipboard {};
} // namespace

TEST(ClipboardViewer, ShowsTheTextLineByLineWhenThereIsText)
{
    xRecordingPlatform platform;
    Card card;
    EXPECT_EQ(card.ShowClipboard(), nullptr);
    platform.PutClipboardText(" 1.0000000e+00\n 2.0000000e+00\n");
    QDialog* window = card.ShowClipboard();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), "clipboard");
    EXPECT_EQ(window->findChild<QPlainTextEdit*>()->toPlainText(), " 1.0000000e+00\n 2.0000000e+00");
    window->close();
}
