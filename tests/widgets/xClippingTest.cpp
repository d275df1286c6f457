// Every family of controls shows its texts whole at the desktop font sizes of
// 9 and 11 points: numbers in their full format, labels, captions, buttons.
// The suite runs a second time at twice the scale (QT_SCALE_FACTOR=2).

#include "gui/xRecordingPlatform.h"
#include "widgets/x2DGPort.h"
#include "widgets/xEdGrid.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "widgets/xMultipleBEditBox.h"
#include "widgets/xNoteWin.h"
#include "widgets/xPointFlagEdWin.h"
#include "widgets/xTableViewWin.h"
#include "widgets/xVectorEdWin.h"
#include "xCommandRecorder.h"
#include "xModalDriver.h"

#include <QLabel>
#include <QListWidget>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// The room a control gives its text: a line edit's as it lays its text out
// (the style's contents less its text margins, two pixels a side and one for
// the cursor), a label's contents; buttons know what their caption needs.
::testing::AssertionResult Fits(const QWidget* control, QString text = QString())
{
    QSize room = control->size(), needed = control->sizeHint();
    if (auto* edit = qobject_cast<const QLineEdit*>(control)) {
        QStyleOptionFrame option;
        option.initFrom(edit);
        option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
        const QRect contents = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
        room = contents.marginsRemoved(edit->textMargins()).size() - QSize(5, 2);
        text = edit->text();
    } else if (auto* label = qobject_cast<const QLabel*>(control)) {
        room = label->contentsRect().size() - QSize(std::max(0, label->indent()), 0);
        text = label->text();
    }
    if (!text.isNull())
        needed = QSize(control->fontMetrics().horizontalAdvance(text), control->fontMetrics().height());
    if (room.width() >= needed.width() && room.height() >= needed.height())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << control->metaObject()->className() << " \"" << text.toStdString()
                                         << "\" has " << room.width() << "x" << room.height() << ", needs "
                                         << needed.width() << "x" << needed.height();
}

// Both buttons whole, a margin apart and from the window's edges.
void ExpectButtonsWhole(const xModalEdWin& window)
{
    const QRect cancel = window.CancelButton()->geometry(), ok = window.OkButton()->geometry();
    EXPECT_TRUE(Fits(window.OkButton()));
    EXPECT_TRUE(Fits(window.CancelButton()));
    EXPECT_GE(ok.left() - cancel.right() - 1, xModalEdWin::kMargin) << window.windowTitle().toStdString();
    EXPECT_GE(cancel.left(), xModalEdWin::kMargin);
    EXPECT_LE(ok.right() + 1 + xModalEdWin::kMargin, window.width());
}

// Each test runs at 9 and at 11 points of the desktop's font.
class Clipping : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override
    {
        QFont font = saved;
        font.setPointSize(GetParam());
        QApplication::setFont(font);
    }
    void TearDown() override { QApplication::setFont(saved); }

    xRecordingPlatform platform;
    QFont saved = QApplication::font();
};

} // namespace

TEST_P(Clipping, EveryControlShowsItsTextWhole)
{
    xCommandRecorder card;
    xEditBox wide(&card, QRect(10, 10, 300, 23), 90, -1250.0f, "Scale factor", "%10.7e");
    xEditBox plain(&card, QRect(10, 40, 300, 23), 90, -3.3888888e+38f, "Plain");
    xEditBox count(&card, QRect(10, 70, 120, 23), 90, -2147483647L - 1, "No. of channels");
    for (const xEditBox* box : {&wide, &plain, &count}) {
        EXPECT_TRUE(Fits(box->Field()));
        EXPECT_TRUE(Fits(box->Label()));
        EXPECT_LE(box->Label()->geometry().right(), box->Field()->x());
    }

    float point[3] = {425.5f, -1250.0f, -3.3888888e+38f};
    xPointEdWin pointWin(nullptr, "Receiver position");
    pointWin.SetUpUserItem(point);
    for (int i = 1; i <= 3; ++i)
        EXPECT_TRUE(Fits(pointWin.Column()->Item(i)->Field()));
    EXPECT_LE(pointWin.Column()->geometry().right(), pointWin.width());
    ExpectButtonsWhole(pointWin);
    xPointFlagEdWin flagWin(nullptr, "f");   // narrow windows widen for their buttons
    flagWin.SetUpUserItem(point);
    ExpectButtonsWhole(flagWin);

    FloatArray scales(1, 2);
    scales[1] = -73.606674f;
    xVectorEdWin vectorWin(nullptr, "Rx Waveform Amplitude Scaling", 250, "A prompt wider than the window");
    vectorWin.SetUpUserItem(&scales, {"equivalent secondary amplitude", "nominal (primary) amplitude "});
    for (int i = 1; i <= 2; ++i) {
        EXPECT_TRUE(Fits(vectorWin.Column()->Item(i)->Field()));
        EXPECT_TRUE(Fits(vectorWin.Column()->Item(i)->Label()));
    }
    EXPECT_TRUE(Fits(vectorWin.PromptLines()[0]));
    ExpectButtonsWhole(vectorWin);

    FloatArray table(1, 30);
    for (int i = 1; i <= 30; ++i)
        table[i] = -1.25e-3f * static_cast<float>(i * i);
    xTableViewWin tableWin(nullptr, "Weights");
    tableWin.SetUpUserItem(&table);
    tableWin.show();
    QApplication::processEvents();
    QListWidget* list = tableWin.List();
    const int margins = 2 * (list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    for (int i = 0; i < list->count(); ++i)
        EXPECT_LE(list->fontMetrics().horizontalAdvance(list->item(i)->text()) + margins, list->viewport()->width());
    ExpectButtonsWhole(tableWin);

    FloatMatrix records(1, 2250, 1, 3);
    for (int r = 1; r <= 2250; ++r)
        for (int c = 1; c <= 3; ++c)
            *records.Element(r, c) = -73.606674f * static_cast<float>(c) - 3.3e+30f * static_cast<float>(r % 2);
    xGridEdView view(&card, QRect(0, 0, 200, 200), 5, 3, 2250, 3, &records);
    card.show();
    QApplication::setActiveWindow(&card);
    view.EditField()->setFocus();
    QTest::keyClick(view.EditField(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.PositionLabel()->text(), "2250,3");
    EXPECT_TRUE(Fits(view.PositionLabel()));
    EXPECT_TRUE(Fits(view.EditField()));
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 3; ++c)
            EXPECT_TRUE(Fits(view.Grid()->Cell(r, c)));

    // The windows grid with its row labels; numbers stand right.
    FloatMatrix weights(1, 12, 1, 2);
    std::vector<std::string> labels;
    for (int r = 1; r <= 12; ++r) {
        *weights.Element(r, 1) = -1.0f / static_cast<float>(3 * r);
        *weights.Element(r, 2) = -2.5e6f * static_cast<float>(r);
        labels.push_back("Window " + std::to_string(r));
    }
    xEdGrid grid(&card, QRect(0, 0, 200, 200), 12, 2, xEdGrid::kRowLabels | xEdGrid::kColumnLabels);
    grid.SetRowLabels(labels);
    grid.SetColumnLabels({"weight", "amplitude scale"});
    grid.SetTable(&weights);
    for (QLabel* label : grid.findChildren<QLabel*>())
        EXPECT_TRUE(Fits(label));
    for (int r = 0; r < 12; ++r)
        for (int c = 0; c < 2; ++c) {
            EXPECT_TRUE(Fits(grid.CellField(r, c)));
            EXPECT_EQ(grid.CellField(r, c)->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
        }

    x2DGPort port(&card, QRect(0, 0, 300, 150));
    port.SetEndLabels(1, 2250, "FID ", "%.0f", true);
    EXPECT_TRUE(Fits(port.startLabel));
    EXPECT_TRUE(Fits(port.endLabel));

    OnModal([](QWidget* note) {
        for (QPushButton* button : note->findChildren<QPushButton*>())
            EXPECT_TRUE(Fits(button));
        Click(note, "Stop");
    });
    bool skip = false;
    xNoteWin::ShowNoteWithSkip("Window 7 overlaps window 8.", skip, "Continue with the next window", "Stop", "Help");
}

INSTANTIATE_TEST_SUITE_P(Points, Clipping, ::testing::Values(9, 11),
                         [](const ::testing::TestParamInfo<int>& info) { return std::to_string(info.param) + "pt"; });
