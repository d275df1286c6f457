#include "gui/xRecordingPlatform.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xNoteWin.h"
#include "xCommandRecorder.h"
#include "xModalDriver.h"

#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

// Counts the paints a widget gets.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
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

TEST_F(EditBoxes, GettersAndSettersConvertByTypeAndRefuseWhatDoesNotFit)
{
    xEditBox longBox(&card, frame, 90, 12L, "No. of items");
    xEditBox floatBox(&card, frame, 90, 0.5f, "Scale");
    xEditBox textBox(&card, frame, 90, std::string("abc"), "Name");
    EXPECT_EQ(FieldText(floatBox), "5.00e-01");
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
    longBox.SetValue(2.5f);
    textBox.SetValue(7L);
    EXPECT_EQ(FieldText(longBox), "12");
    EXPECT_EQ(FieldText(textBox), "abc");
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (Texts{"Attempt to get long from illegal xEditBox.", "Attempt to get float from illegal xEditBox.",
                     "Attempt to get int from illegal xEditBox.", "Attempt to set illegal value, xEditBox.",
                     "Attempt to set illegal value, xEditBox."}));
    platform.Clear();

    // The long end saturates; an int takes the top end but refuses the bottom.
    longBox.SetText("99999999999");
    longBox.GetInt(i);
    EXPECT_EQ(i, 2147483647);
    longBox.SetText("-99999999999");
    longBox.GetInt(i);
    EXPECT_EQ(i, 2147483647);
    longBox.GetLong(l);
    EXPECT_EQ(l, -2147483647L - 1);
    floatBox.SetText("-1e400");   // no float holds it: not read
    f = 7.0f;
    floatBox.GetFloat(f);
    EXPECT_EQ(f, 7.0f);
    EXPECT_EQ(platform.Texts(xPlatform::kNote), (Texts{"Value in long xEditBox box too large to be converted to integer.",
                                                       "Value can't be converted to float."}));

    floatBox.SetValue(3L);   // a long on a float box is fine
    EXPECT_EQ(FieldText(floatBox), "3.00e+00");
    floatBox.SetValue(0.25f, "%10.7e");   // a new format stays
    floatBox.SetValue(2.0f);
    EXPECT_EQ(FieldText(floatBox), "2.0000000e+00");
}

TEST_F(EditBoxes, SettingTheSameTextDoesNotRepaintTheField)
{
    xEditBox box(&card, frame, 90, 0.5f, "x");
    box.show();
    QTest::qWait(50);   // the first paints done
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
    EXPECT_EQ(floatBox.LastText(), "1.5abc");
    EXPECT_EQ(card.Commands(), (std::vector<long>{9980, 10026, 9986, 9980}));
    EXPECT_EQ(card.DataOf(10026), &floatBox.Value());

    card.received.clear();
    TypeInto(textBox, away, "Loop");
    EXPECT_EQ(textBox.Value().Text(), "Loop");
    EXPECT_EQ(card.Commands(), (std::vector<long>{10020, 9986, 9980}));

    // A float that converts to the same number raises nothing; longs never do;
    // a number no float holds is not stored and the field shows the old one.
    card.received.clear();
    TypeInto(floatBox, away, "1.50");
    TypeInto(longBox, *floatBox.Field(), "77");
    TypeInto(floatBox, away, "1e39");
    for (long c : card.Commands())
        EXPECT_TRUE(c != 10026 && c != 10027) << c;
    EXPECT_EQ(FieldText(longBox), "77");
    EXPECT_EQ(FieldText(floatBox), "1.50e+00");
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Value can't be converted to float."});

    // Return is only passed on.
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

    xFlagEditBox longBox(&card, frame, 90, 4L, "n", true);
    longBox.SetValueWhenCleared(-3.7);
    QTest::mouseClick(longBox.FlagBox(), Qt::LeftButton);
    EXPECT_EQ(FieldText(longBox), "-3");
    longBox.Check();   // quietly
    EXPECT_TRUE(longBox.FlagBox()->isChecked());
    EXPECT_EQ(FieldText(longBox), "-3");
}

namespace {
// The darkest and lightest lightness of a region of a widget's picture, and
// the lowest row holding ink (the baseline of text without descenders).
struct Ink {
    int darkest = 255, lightest = 0, lowest = -1;
};
Ink InkIn(QWidget& widget, const QRect& region)
{
    const QImage image = widget.grab().toImage();
    const qreal s = image.devicePixelRatio();
    const QRect r(qRound(region.x() * s), qRound(region.y() * s), qRound(region.width() * s),
                  qRound(region.height() * s));
    Ink ink;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x) {
            const int l = image.pixelColor(x, y).lightness();
            ink.darkest = std::min(ink.darkest, l);
            ink.lightest = std::max(ink.lightest, l);
            ink.lowest = l < 110 ? y : ink.lowest;
        }
    return ink;
}
} // namespace

TEST_F(EditBoxes, LabelAndFieldShareABaselineAndDisabledBoxesLookAlike)
{
    for (int points : {9, 11}) {
        xEditBox box(&card, frame, 90, 25L, "Number");
        box.setFont(QFont(QApplication::font().family(), points));
        box.show();
        EXPECT_EQ(InkIn(box, box.Label()->geometry()).lowest,
                  InkIn(box, box.Field()->geometry().adjusted(3, 3, -3, -3)).lowest) << points << " pt";
    }

    xEditBox plain(&card, frame, 90, 425.5f, "x", "%10.7e");
    xFlagEditBox forGood(&card, QRect(10, 50, 300, 30), 90, 425.5f, "y", false, "%10.7e");
    plain.Enable(false);
    forGood.MakePermanentlyDisabled(true);
    plain.show();
    forGood.show();
    const Ink a = InkIn(plain, plain.Field()->geometry().adjusted(4, 4, -4, -4));
    const Ink b = InkIn(forGood, forGood.Field()->geometry().adjusted(4, 4, -4, -4));
    EXPECT_EQ(std::make_pair(a.darkest, a.lightest), std::make_pair(b.darkest, b.lightest));
    // Not white like an enabled field, and the digits stand out from it.
    EXPECT_LT(a.lightest, 255);
    EXPECT_GT(a.lightest - a.darkest, 100);
}

TEST(NoteWindow, ModalNoteReturnsThePlaceOfTheButtonAndReturnTakesTheFirst)
{
    xRecordingPlatform platform;
    OnModal([](QWidget* m) { Click(m, "Cancel"); });
    EXPECT_EQ(xNoteWin::ShowNote("Replace?", 0, "Yes", "No", "Cancel"), 2);
    OnModal([](QWidget* m) {
        auto* yes = m->findChild<QPushButton*>();   // buttons have their natural size
        EXPECT_LT(yes->width(), m->width() / 2);
        EXPECT_GE(yes->width(), yes->sizeHint().width());
        Click(m, "No");
    });
    EXPECT_EQ(xNoteWin::ShowNote("Replace?", 0, "Yes", "No"), 1);
    EXPECT_EQ(xNoteWin::Result(), 1);

    bool skip = false;
    OnModal([](QWidget* m) {
        m->findChild<QCheckBox*>()->setChecked(true);
        Click(m, "OK");
    });
    EXPECT_EQ(xNoteWin::ShowNoteWithSkip("one of many", skip, "OK"), 0);
    EXPECT_TRUE(skip);
    OnModal([](QWidget* m) {
        const auto buttons = m->findChildren<QPushButton*>();
        ASSERT_EQ(buttons.size(), 2);
        EXPECT_LT(buttons[0]->x(), buttons[1]->x());
        auto* series = m->findChild<QCheckBox*>();
        EXPECT_TRUE(series->isChecked());   // shows the caller's flag, under the buttons
        EXPECT_GT(series->y(), buttons[0]->geometry().bottom());
        EXPECT_GE(m->height(), 130);
        EXPECT_EQ(m->width(), 500);
        series->setChecked(false);
        QTest::keyClick(m, Qt::Key_Return);
        if (m->isVisible()) {
            ADD_FAILURE() << "Return left the note open";
            buttons[1]->click();
        }
    });
    EXPECT_EQ(xNoteWin::ShowNoteWithSkip("Replace?", skip, "Yes", "No"), 0);
    EXPECT_FALSE(skip);
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
