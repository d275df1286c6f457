// Every family of controls shows its texts whole at the desktop font sizes of
// 9 and 11 points: numbers in their full format, labels, captions, buttons.
// The suite runs a second time at twice the scale (QT_SCALE_FACTOR=2).

#include "gui/xRecordingPlatform.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "widgets/xChoiceEdWin.h"
#include "widgets/xEdGrid.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xFloatEdWin.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "widgets/xLongEdWin.h"
#include "widgets/xMultipleBEditBox.h"
#include "widgets/xNoteWin.h"
#include "widgets/xPointEdWin.h"
#include "widgets/xTableViewWin.h"
#include "widgets/xTextEdWin.h"
#include "widgets/xVectorEdWin.h"
#include "xCommandRecorder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

std::string Name(const QWidget* control, const QString& text)
{
    return (control->metaObject()->className() + QStringLiteral(" \"") + text + QStringLiteral("\"")).toStdString();
}

// The room a line edit gives its text, as it lays the text out: inside the
// style's contents rectangle, less its text margins and its own two pixels a
// side (and one for the cursor), and one pixel above and below.
QSize LineEditRoom(const QLineEdit* edit)
{
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.rect = edit->rect();
    option.lineWidth = edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit) : 0;
    option.midLineWidth = 0;
    option.state |= QStyle::State_Sunken;
    const QRect contents =
        edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit).marginsRemoved(edit->textMargins());
    return QSize(contents.width() - 2 * 2 - 1, contents.height() - 2);
}

// Whether the control shows the text whole.
::testing::AssertionResult Fits(const QWidget* control, const QString& text)
{
    const QFontMetrics metrics(control->font());
    const QSize needed(metrics.horizontalAdvance(text), metrics.height());
    QSize room;
    if (auto* edit = qobject_cast<const QLineEdit*>(control)) {
        room = LineEditRoom(edit);
    } else if (auto* label = qobject_cast<const QLabel*>(control)) {
        room = label->contentsRect().size();
        room.rwidth() -= std::max(0, label->indent());
    } else {
        // Buttons and lists of choices know what their texts need.
        room = control->size();
        const QSize hint = control->sizeHint();
        if (room.width() >= hint.width() && room.height() >= hint.height())
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << Name(control, text) << " is " << room.width() << "x"
                                             << room.height() << ", needs " << hint.width() << "x" << hint.height();
    }
    if (room.width() >= needed.width() && room.height() >= needed.height())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << Name(control, text) << " has " << room.width() << "x" << room.height()
                                         << ", needs " << needed.width() << "x" << needed.height();
}

::testing::AssertionResult Fits(const QLineEdit* edit)
{
    return Fits(edit, edit->text());
}

::testing::AssertionResult Fits(const QLabel* label)
{
    return Fits(label, label->text());
}

::testing::AssertionResult Fits(const QAbstractButton* button)
{
    return Fits(button, button->text());
}

// The buttons of a modal window whole, apart, inside it.
void ExpectButtonsWhole(const xModalEdWin& window)
{
    const std::string title = window.windowTitle().toStdString();
    EXPECT_TRUE(Fits(window.OkButton())) << title;
    EXPECT_TRUE(Fits(window.CancelButton())) << title;
    EXPECT_LT(window.CancelButton()->geometry().right(), window.OkButton()->x()) << title;
    EXPECT_LE(window.OkButton()->geometry().right(), window.width()) << title;
    EXPECT_LE(window.OkButton()->geometry().bottom(), window.height()) << title;
}

// Each test runs at 9 and at 11 points, with the desktop's font.
class Clipping : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override
    {
        saved = QApplication::font();
        QFont font = saved;
        font.setPointSize(GetParam());
        QApplication::setFont(font);
    }
    void TearDown() override { QApplication::setFont(saved); }

    xRecordingPlatform platform;
    QFont saved;
};

} // namespace

TEST_P(Clipping, EditBoxesShowTheWidestNumbersOfTheirFormats)
{
    xCommandRecorder card;
    xEditBox wide(&card, QRect(10, 10, 300, 23), 90, -1250.0f, "Scale factor", "%10.7e");
    xEditBox plain(&card, QRect(10, 40, 300, 23), 90, -3.3888888e+38f, "Plain");
    xEditBox count(&card, QRect(10, 70, 300, 23), 90, -2147483647L - 1, "No. of channels");
    xFlagEditBox flag(&card, QRect(10, 100, 200, 23), 90, -7.3606674e+01f, "Checked", true, "%10.7e");
    for (const xEditBox* box : std::initializer_list<const xEditBox*>{&wide, &plain, &count, &flag}) {
        EXPECT_TRUE(Fits(box->Field()));
        EXPECT_TRUE(Fits(box->Label()));
        EXPECT_LE(box->Label()->geometry().right(), box->Field()->x());
    }
    EXPECT_LE(flag.Field()->geometry().right(), flag.FlagBox()->x());
    EXPECT_TRUE(Fits(flag.FlagBox()));

    // A longer label widens its box; the field keeps to the right edge.
    xEditBox labelled(&card, QRect(10, 130, 120, 23), 90, 1.0f, "equivalent secondary amplitude");
    EXPECT_TRUE(Fits(labelled.Label()));
    EXPECT_EQ(labelled.Field()->geometry().right(), labelled.width() - 1);
}

TEST_P(Clipping, ModalEditorsShowTheirNumbersLabelsAndButtons)
{
    float point[3] = {425.5f, -1250.0f, -3.3888888e+38f};
    xPointEdWin pointWin(nullptr, "Receiver position");
    pointWin.SetUpUserItem(point);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_TRUE(Fits(pointWin.Column()->Item(i)->Field()));
        EXPECT_LE(pointWin.Column()->geometry().right(), pointWin.width());
    }
    ExpectButtonsWhole(pointWin);

    FloatArray scales(1, 2);
    scales[1] = -73.606674f;
    xVectorEdWin vectorWin(nullptr, "Rx Waveform Amplitude Scaling", 250, "A prompt that is wider than the window");
    vectorWin.SetUpUserItem(&scales, {"equivalent secondary amplitude", "nominal (primary) amplitude "});
    for (int i = 1; i <= 2; ++i) {
        EXPECT_TRUE(Fits(vectorWin.Column()->Item(i)->Field()));
        EXPECT_TRUE(Fits(vectorWin.Column()->Item(i)->Label()));
    }
    EXPECT_TRUE(Fits(vectorWin.PromptLines()[0]));
    EXPECT_LE(vectorWin.Column()->geometry().right(), vectorWin.width());
    ExpectButtonsWhole(vectorWin);

    float number = -1.2345678e+38f;
    xFloatEdWin floatWin(nullptr, "Base frequency");
    floatWin.SetUpUserItem(&number, "Frequency [Hz]");
    EXPECT_TRUE(Fits(floatWin.Box()->Field()));
    EXPECT_TRUE(Fits(floatWin.Box()->Label()));
    ExpectButtonsWhole(floatWin);

    long count = -2147483647L;
    xLongEdWin longWin(nullptr, "Channels");
    longWin.SetUpUserItem(&count, "No. of windows");
    EXPECT_TRUE(Fits(longWin.Box()->Field()));
    ExpectButtonsWhole(longWin);

    std::string label = "z_new";
    xTextEdWin textWin(nullptr, "User Item");
    textWin.SetUpUserItem(&label, "Enter new user defined item label, a long caption:");
    EXPECT_TRUE(Fits(textWin.Caption()));
    EXPECT_TRUE(Fits(textWin.Field()));
    ExpectButtonsWhole(textWin);

    int index = 0;
    xChoiceEdWin choiceWin(nullptr, "Remove User Item ", {"altimeter", "a rather long user item name"});
    choiceWin.SetUpUserItem(&index, "Select the item to remove:");
    EXPECT_TRUE(Fits(choiceWin.List(), choiceWin.List()->currentText()));
    ExpectButtonsWhole(choiceWin);

    FloatArray table(1, 30);
    for (int i = 1; i <= 30; ++i)
        table[i] = -1.25e-3f * static_cast<float>(i * i);
    xTableViewWin tableWin(nullptr, "Weights");
    tableWin.SetUpUserItem(&table);
    tableWin.show();
    QApplication::processEvents();
    const int margin = 2 * (tableWin.List()->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    for (int i = 0; i < tableWin.List()->count(); ++i) {
        const QString text = tableWin.List()->item(i)->text();
        EXPECT_LE(tableWin.List()->fontMetrics().horizontalAdvance(text) + margin,
                  tableWin.List()->viewport()->width())
            << text.toStdString();
    }
    ExpectButtonsWhole(tableWin);
}

TEST_P(Clipping, GridsShowTheirNumbersPositionsAndLabels)
{
    xCommandRecorder card;
    FloatMatrix table(1, 2250, 1, 3);
    for (int r = 1; r <= 2250; ++r)
        for (int c = 1; c <= 3; ++c)
            *table.Element(r, c) = -73.606674f * static_cast<float>(c) - 8.8888888e+30f * static_cast<float>(r % 2);
    xGridEdView view(&card, QRect(0, 0, 200, 200), 5, 3, 2250, 3, &table);
    card.show();
    QApplication::setActiveWindow(&card);
    view.EditField()->setFocus();
    QApplication::processEvents();
    QTest::keyClick(view.EditField(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.PositionLabel()->text(), "2250,3");
    EXPECT_TRUE(Fits(view.PositionLabel()));
    EXPECT_TRUE(Fits(view.EditField()));
    EXPECT_LE(view.EditField()->geometry().right(), view.width());
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 3; ++c)
            EXPECT_TRUE(Fits(view.Grid()->Cell(r, c)));
    EXPECT_LE(view.Grid()->geometry().bottom(), view.height());

    const int rows = 12;
    FloatMatrix weights(1, rows, 1, 2);
    std::vector<std::string> labels;
    for (int r = 1; r <= rows; ++r) {
        *weights.Element(r, 1) = -1.0f / static_cast<float>(3 * r);
        *weights.Element(r, 2) = -2.5e6f * static_cast<float>(r);
        labels.push_back("Window " + std::to_string(r));
    }
    xEdGrid grid(&card, QRect(0, 0, 200, 200), rows, 2, xEdGrid::kRowLabels | xEdGrid::kColumnLabels);
    grid.SetRowLabels(labels);
    grid.SetColumnLabels({"weight", "amplitude scale"});
    grid.SetTable(&weights);
    for (int r = 0; r < rows; ++r) {
        EXPECT_EQ(grid.RowLabel(r), labels[r]);
        EXPECT_TRUE(Fits(grid.findChildren<QLabel*>()[r]));
        for (int c = 0; c < 2; ++c) {
            EXPECT_TRUE(Fits(grid.CellField(r, c)));
            EXPECT_EQ(grid.CellField(r, c)->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
        }
    }
    for (QLabel* label : grid.findChildren<QLabel*>())
        EXPECT_TRUE(Fits(label));
}

TEST_P(Clipping, PlotLabelsAndNoteButtons)
{
    xCommandRecorder card;
    x2DGPort port(&card, QRect(0, 0, 300, 150));
    port.SetEndLabels(1, 2250, "FID ", "%.0f", true);
    EXPECT_TRUE(Fits(port.startLabel));
    EXPECT_TRUE(Fits(port.endLabel));

    QTimer::singleShot(0, [] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        for (QPushButton* button : modal->findChildren<QPushButton*>())
            EXPECT_TRUE(Fits(button));
        EXPECT_TRUE(Fits(modal->findChild<QCheckBox*>()));
        for (QLabel* label : modal->findChildren<QLabel*>())
            EXPECT_GE(label->height(), label->heightForWidth(label->width()));
        modal->findChildren<QPushButton*>().front()->click();
    });
    bool skip = false;
    xNoteWin::ShowNoteWithSkip("Window 7 overlaps window 8. The later windows of this series may overlap as well, "
                               "and each of them will be reported in a note of its own.",
                               skip, "Continue with the next window", "Stop", "Help");
}

INSTANTIATE_TEST_SUITE_P(Points, Clipping, ::testing::Values(9, 11),
                         [](const ::testing::TestParamInfo<int>& info) { return std::to_string(info.param) + "pt"; });
