#include "gui/xRecordingPlatform.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xNoteWin.h"
#include "xCommandRecorder.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Counts the paints a widget gets.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

std::string FieldText(const xEditBox& box)
{
    return box.Field()->text().toStdString();
}

// Types into a box's field the way a user does: focus in, keys, focus away.
void TypeInto(xEditBox& box, QWidget& elsewhere, const char* text)
{
    box.Field()->setFocus();
    QApplication::processEvents();
    box.Field()->selectAll();
    QTest::keyClicks(box.Field(), text);
    elsewhere.setFocus();
    QApplication::processEvents();
}

struct EditBoxes : ::testing::Test {
    xRecordingPlatform platform;
    xCommandRecorder card;
    QRect frame{10, 10, 300, 30};

    void SetUp() override
    {
        card.show();
        QApplication::setActiveWindow(&card);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&card));
    }
};

} // namespace

TEST_F(EditBoxes, GettersConvertByTypeAndRefuseWhatDoesNotFit)
{
    xEditBox longBox(&card, frame, 90, 12L, "No. of items");
    xEditBox floatBox(&card, frame, 90, 0.5f, "Scale");
    xEditBox textBox(&card, frame, 90, std::string("abc"), "Name");
    EXPECT_EQ(FieldText(longBox), "12");
    EXPECT_EQ(FieldText(floatBox), "5.00e-01");
    EXPECT_EQ(longBox.Label()->text(), "No. of items");

    float f = -1.0f;
    long l = -1;
    int i = -1;
    longBox.GetFloat(f);   // a long box reads as float; the rest is refused
    floatBox.GetLong(l);
    textBox.GetFloat(f);
    floatBox.GetInt(i);
    EXPECT_EQ(f, 12.0f);
    EXPECT_EQ(l, -1);
    EXPECT_EQ(i, -1);
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"Attempt to get long from illegal xEditBox.",
                                        "Attempt to get float from illegal xEditBox.",
                                        "Attempt to get int from illegal xEditBox."}));
    platform.Clear();

    // The long end saturates; an int takes the top end but refuses the bottom.
    longBox.SetText("99999999999");
    longBox.GetInt(i);
    EXPECT_EQ(i, 2147483647);
    longBox.SetText("-99999999999");
    i = 5;
    longBox.GetInt(i);
    EXPECT_EQ(i, 5);
    longBox.GetLong(l);
    EXPECT_EQ(l, -2147483647L - 1);
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              std::vector<std::string>{"Value in long xEditBox box too large to be converted to integer."});
    std::string text;
    longBox.GetText(text);
    EXPECT_EQ(text, "-99999999999");
}

TEST_F(EditBoxes, SettersKeepTheirTypeAndFormat)
{
    xEditBox longBox(&card, frame, 90, 1L, "n");
    xEditBox floatBox(&card, frame, 90, 1.0f, "x", "%10.7e");
    xEditBox textBox(&card, frame, 90, std::string(), "t");
    floatBox.SetValue(3L);   // a long on a float box is fine
    EXPECT_EQ(FieldText(floatBox), "3.0000000e+00");
    floatBox.SetValue(0.25f, "%5.2e");   // a new format stays
    floatBox.SetValue(2.0f);
    EXPECT_EQ(FieldText(floatBox), "2.00e+00");
    longBox.SetValue(2.5f);
    textBox.SetValue(7L);
    EXPECT_EQ(FieldText(longBox), "1");
    EXPECT_EQ(FieldText(textBox), "");
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"Attempt to set illegal value, xEditBox.",
                                        "Attempt to set illegal value, xEditBox."}));
}

TEST_F(EditBoxes, SettingTheSameTextDoesNotRepaintTheField)
{
    xEditBox box(&card, frame, 90, 0.5f, "x");
    box.show();
    QTest::qWait(50);
    PaintCounter counter;
    box.Field()->installEventFilter(&counter);
    box.SetValue(0.5f);
    QApplication::processEvents();
    EXPECT_EQ(counter.paints, 0);
    box.SetValue(0.75f);
    QApplication::processEvents();
    EXPECT_GT(counter.paints, 0);
}

TEST_F(EditBoxes, LeavingAChangedFieldRaisesTheDataEventOfItsType)
{
    xEditBox floatBox(&card, frame, 90, 1.0f, "x");
    xEditBox textBox(&card, QRect(10, 50, 300, 30), 90, std::string("a"), "t");
    xEditBox longBox(&card, QRect(10, 90, 300, 30), 90, 1L, "n");
    QWidget& away = *longBox.Field();

    TypeInto(floatBox, *textBox.Field(), "1.5abc");
    EXPECT_EQ(FieldText(floatBox), "1.50e+00");   // shown back through the format
    EXPECT_EQ(floatBox.Value().Float(), 1.5f);
    EXPECT_EQ(floatBox.LastText(), "1.5abc");
    EXPECT_EQ(card.Commands(), (std::vector<long>{9980, 10026, 9986, 9980}));
    EXPECT_EQ(card.DataOf(10026), &floatBox.Value());

    card.received.clear();
    TypeInto(textBox, away, "Loop");
    EXPECT_EQ(textBox.Value().Text(), "Loop");
    EXPECT_EQ(card.Commands(), (std::vector<long>{10020, 9986, 9980}));

    // A float that converts to the same number raises nothing; longs never do.
    card.received.clear();
    TypeInto(floatBox, away, "1.50");
    TypeInto(longBox, *floatBox.Field(), "77");
    for (long c : card.Commands()) {
        EXPECT_NE(c, 10026);
        EXPECT_NE(c, 10027);
    }
    EXPECT_EQ(FieldText(longBox), "77");

    // Return is only passed on.
    card.received.clear();
    longBox.Field()->setFocus();
    QTest::keyClick(longBox.Field(), Qt::Key_Return);
    EXPECT_EQ(card.DataOf(9982), longBox.Field());
}

TEST_F(EditBoxes, CheckBoxWritesItsPresetAndRaisesItsEvent)
{
    xFlagEditBox box(&card, frame, 90, 2.5f, "x", false);
    EXPECT_EQ(box.FlagBox()->x(), box.Field()->geometry().right() + 1);   // the flag right of the field
    EXPECT_EQ(box.FlagBox()->geometry().right(), box.width() - 1);
    QTest::mouseClick(box.FlagBox(), Qt::LeftButton);   // no presets yet
    EXPECT_TRUE(box.IsChecked());
    EXPECT_EQ(FieldText(box), "2.50e+00");
    box.SetValueWhenChecked(1.0);
    box.SetValueWhenCleared(0.0);
    card.received.clear();
    QTest::mouseClick(box.FlagBox(), Qt::LeftButton);
    EXPECT_FALSE(box.IsChecked());
    EXPECT_EQ(FieldText(box), "0.00e+00");
    EXPECT_EQ(card.Commands(), (std::vector<long>{10029, 9985}));
    EXPECT_EQ(card.DataOf(10029), &box);
    QTest::mouseClick(box.FlagBox(), Qt::LeftButton);
    EXPECT_EQ(FieldText(box), "1.00e+00");

    xFlagEditBox longBox(&card, frame, 90, 4L, "n", true);
    longBox.SetValueWhenCleared(-3.7);
    QTest::mouseClick(longBox.FlagBox(), Qt::LeftButton);
    EXPECT_EQ(FieldText(longBox), "-3");
    longBox.Check();   // quietly
    EXPECT_TRUE(longBox.FlagBox()->isChecked());
    EXPECT_EQ(FieldText(longBox), "-3");
}

TEST_F(EditBoxes, ANumberNoFloatHoldsIsNotStored)
{
    xEditBox box(&card, frame, 90, 1.5f, "x");
    xEditBox other(&card, QRect(10, 50, 300, 30), 90, 2.0f, "y");
    TypeInto(box, *other.Field(), "1e39");
    EXPECT_EQ(box.Value().Float(), 1.5f);
    EXPECT_EQ(FieldText(box), "1.50e+00");   // the field shows again what is stored
    box.SetText("-1e400");
    float f = 7.0f;
    box.GetFloat(f);
    EXPECT_EQ(f, 7.0f);
    EXPECT_EQ(platform.Texts(xPlatform::kNote), std::vector<std::string>(2, "Value can't be converted to float."));
}

namespace {
// A widget's picture, and a rectangle of the widget in its pixels.
struct Shot {
    explicit Shot(QWidget& widget) : image(widget.grab().toImage()) {}
    QRect Pixels(const QRect& r) const
    {
        const qreal s = image.devicePixelRatio();
        return QRect(qRound(r.x() * s), qRound(r.y() * s), qRound(r.width() * s), qRound(r.height() * s));
    }
    // The lowest row holding ink: the baseline of text without descenders.
    int LowestInk(const QRect& region) const
    {
        const QRect r = Pixels(region);
        for (int y = r.bottom(); y >= r.top(); --y)
            for (int x = r.left(); x <= r.right(); ++x)
                if (image.pixelColor(x, y).lightness() < 110)
                    return y;
        return -1;
    }
    // The darkest and the lightest lightness inside a field, off its frame.
    std::pair<int, int> InkAndPaper(const QRect& field) const
    {
        const QRect r = Pixels(field.adjusted(4, 4, -4, -4));
        int ink = 255, paper = 0;
        for (int y = r.top(); y <= r.bottom(); ++y)
            for (int x = r.left(); x <= r.right(); ++x) {
                ink = std::min(ink, image.pixelColor(x, y).lightness());
                paper = std::max(paper, image.pixelColor(x, y).lightness());
            }
        return {ink, paper};
    }
    QImage image;
};
} // namespace

TEST_F(EditBoxes, LabelAndFieldTextStandOnOneBaseline)
{
    for (int points : {9, 11}) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        xEditBox box(&card, frame, 90, 25L, "Number");
        box.setFont(font);
        box.show();
        const Shot shot(box);
        EXPECT_EQ(shot.LowestInk(box.Label()->geometry()), shot.LowestInk(box.Field()->geometry().adjusted(3, 3, -3, -3)))
            << points << " pt";
    }
}

TEST_F(EditBoxes, DisabledBoxesLookAlikeAndTheirValueReads)
{
    xEditBox plain(&card, frame, 90, 425.5f, "x", "%10.7e");
    xFlagEditBox forGood(&card, QRect(10, 50, 300, 30), 90, 425.5f, "y", false, "%10.7e");
    plain.Enable(false);
    forGood.MakePermanentlyDisabled(true);
    plain.show();
    forGood.show();
    const auto [ink, paper] = Shot(plain).InkAndPaper(plain.Field()->geometry());
    EXPECT_EQ(Shot(forGood).InkAndPaper(forGood.Field()->geometry()), std::make_pair(ink, paper));
    // Not white like an enabled field, and the digits stand out from it.
    EXPECT_LT(paper, 255);
    EXPECT_GT(paper - ink, 100);
}

namespace {
// Presses a button of the modal window on the screen once it is up.
void PressLater(const QString& title, bool tickSkip = false)
{
    QTimer::singleShot(0, [title, tickSkip] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        if (tickSkip)
            modal->findChild<QCheckBox*>()->setChecked(true);
        for (auto* b : modal->findChildren<QPushButton*>())
            if (b->text() == title)
                b->click();
    });
}
} // namespace

TEST(NoteWindow, ModalNoteReturnsThePlaceOfTheButton)
{
    xRecordingPlatform platform;
    PressLater("Cancel");
    EXPECT_EQ(xNoteWin::ShowNote("Replace?", 0, "Yes", "No", "Cancel"), 2);
    PressLater("No");
    EXPECT_EQ(xNoteWin::ShowNote("Replace?", 0, "Yes", "No"), 1);
    EXPECT_EQ(xNoteWin::Result(), 1);

    bool skip = false;
    PressLater("OK", true);
    EXPECT_EQ(xNoteWin::ShowNoteWithSkip("one of many", skip, "OK"), 0);
    EXPECT_TRUE(skip);
    QTimer::singleShot(0, [] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        EXPECT_TRUE(modal->findChild<QCheckBox*>()->isChecked());   // shows the caller's flag
        EXPECT_GE(modal->height(), 130);
        EXPECT_EQ(modal->width(), 500);
        modal->findChild<QCheckBox*>()->setChecked(false);
        modal->findChild<QPushButton*>()->click();
    });
    xNoteWin::ShowNoteWithSkip("next", skip, "OK");
    EXPECT_FALSE(skip);
}

namespace {
// Presses Return in the note; should it stay open, the first button ends it.
void ReturnCloses(QWidget* note)
{
    QTest::keyClick(note, Qt::Key_Return);
    if (note->isVisible()) {
        ADD_FAILURE() << "Return left the note open";
        note->findChild<QPushButton*>()->click();
    }
}
} // namespace

TEST(NoteWindow, ButtonsHaveTheirNaturalSizeAndReturnTakesTheFirst)
{
    xRecordingPlatform platform;
    QTimer::singleShot(0, [] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        auto* ok = modal->findChild<QPushButton*>();
        EXPECT_LT(ok->width(), modal->width() / 2);
        EXPECT_GE(ok->width(), ok->sizeHint().width());
        ReturnCloses(modal);
    });
    EXPECT_EQ(xNoteWin::ShowNote("Saved.", 0, "OK"), 0);

    QTimer::singleShot(0, [] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        const auto buttons = modal->findChildren<QPushButton*>();
        ASSERT_EQ(buttons.size(), 2);
        EXPECT_TRUE(buttons[0]->isDefault());
        EXPECT_LT(buttons[0]->x(), buttons[1]->x());
        // The check box of a series stands under the buttons.
        EXPECT_GT(modal->findChild<QCheckBox*>()->y(), buttons[0]->geometry().bottom());
        ReturnCloses(modal);
    });
    bool skip = false;
    EXPECT_EQ(xNoteWin::ShowNoteWithSkip("Replace?", skip, "Yes", "No"), 0);
}

TEST(NoteWindow, TimedNoteClosesByItselfAndASecondCallReplacesItsText)
{
    xRecordingPlatform platform;
    QString seen;
    QTimer::singleShot(10, [&seen] {
        ASSERT_NE(xNoteWin::OpenNote(), nullptr);
        EXPECT_FALSE(xNoteWin::OpenNote()->isModal());
        xNoteWin::ShowNote("second text", 1000, "OK");   // returns at once
        seen = xNoteWin::OpenNote()->Text();
    });
    xNoteWin::ShowNote("first text", 200, "OK");
    EXPECT_EQ(seen, "second text");
    EXPECT_EQ(xNoteWin::OpenNote(), nullptr);

    // A press of the mouse closes it long before its time.
    QTimer::singleShot(10, [] { QTest::mousePress(xNoteWin::OpenNote(), Qt::LeftButton); });
    QElapsedTimer clock;
    clock.start();
    xNoteWin::ShowNote("long text", 60000, "OK");
    EXPECT_LT(clock.elapsed(), 30000);
}
