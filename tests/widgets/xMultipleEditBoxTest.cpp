#include "gui/xRecordingPlatform.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xMultipleBEditBox.h"
#include "xCommandRecorder.h"

#include <QCheckBox>

#include <gtest/gtest.h>

namespace {

const std::vector<std::string> kXyz{"x", "y", "z"};

FloatArray Floats(std::initializer_list<float> values, int lower = 1)
{
    FloatArray a(lower, lower + static_cast<int>(values.size()) - 1);
    int i = lower;
    for (float v : values)
        a[i++] = v;
    return a;
}

LongArray Longs(std::initializer_list<int32_t> values)
{
    LongArray a(1, static_cast<int>(values.size()));
    int i = 1;
    for (int32_t v : values)
        a[i++] = v;
    return a;
}

std::string Text(xEditBox* box)
{
    return box->Field()->text().toStdString();
}

struct MultipleEditBox : ::testing::Test {
    xRecordingPlatform platform;
    xCommandRecorder card;
    QRect frame{0, 0, 200, 10};
};

} // namespace

TEST_F(MultipleEditBox, StacksItsItemsAndExchangesArraysFromIndexOne)
{
    xMultipleEditBox box(&card, frame, Floats({1.5f, 2.5f, 3.5f}, 0), kXyz, 90, 5, "%g");
    ASSERT_EQ(box.Count(), 3);
    EXPECT_EQ(box.Item(3)->y(), 56);
    EXPECT_EQ(box.height(), 56 + 23 + 8);
    EXPECT_EQ(box.Item(4), nullptr);
    box.Item(3)->SetText("7 metres");
    FloatArray out(5, 9);
    box.GetValues(out);
    EXPECT_EQ(out.Lower(), 1);
    EXPECT_EQ(out.Upper(), 3);
    EXPECT_EQ(out[3], 7.0f);
    box.SetValues(Floats({9.0f}));   // a shorter array sets what it has
    EXPECT_EQ(Text(box.Item(1)), "9");
    EXPECT_EQ(Text(box.Item(2)), "2.5");

    xMultipleEditBox longs(&card, frame, Longs({4, -2}), {"a", "b"}, 90, 0);
    longs.Item(2)->SetText("-3.9");
    EXPECT_EQ(longs.GetLongValues(), Longs({4, -3}));
    xMultipleEditBox none(&card, frame, FloatArray(), {}, 90, 0);
    none.GetValues(out);
    EXPECT_EQ(out, Floats({0.0f}));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(MultipleEditBox, MasksOfCheckStatesAndToggles)
{
    xMultipleBEditBox box(&card, frame, Floats({1, 0, 2}), kXyz, Longs({0, 5}), 90, 1);
    EXPECT_EQ(box.GetCheckedMask(), Longs({0, 1, 0}));
    EXPECT_EQ(box.GetClearedMask(), Longs({1, 0, 1}));
    box.SetCheckedMask(Longs({3, 0}));   // a short mask clears the rest
    box.SetClearedMask(Longs({0, 1, 0}));
    EXPECT_EQ(box.GetCheckedMask(), Longs({1, 0, 1}));
    xMultipleBEditBox empty(&card, frame, FloatArray(), {}, LongArray(), 90, 1);
    EXPECT_EQ(empty.GetClearedMask(), Longs({1}));

    // A toggle of an item that is there writes its preset and tells the parent.
    xMultipleBEditBox flags(&card, frame, Floats({2, 0, 0}), kXyz, Longs({1, 0, 0}), 90, 1, "%g");
    flags.SetValueWhenChecked(1.0);
    flags.ToggleItem(0);
    flags.ToggleItem(4);
    EXPECT_TRUE(card.received.empty());
    flags.ToggleItem(2);
    EXPECT_TRUE(flags.FlagItem(2)->IsChecked());
    EXPECT_EQ(Text(flags.Item(2)), "1");
    EXPECT_EQ(card.Commands(), (std::vector<long>{10028, 9984}));
    EXPECT_EQ(card.DataOf(10028), flags.FlagItem(2));
}

TEST_F(MultipleEditBox, HidingClosesTheColumnDisablingLastsAndMissingItemsAreWarned)
{
    card.show();
    xMultipleBEditBox box(&card, frame, Floats({1, 2, 3, 4}), {"a", "b", "c", "d"}, LongArray(), 90, 2);
    box.show();
    box.HideItem(4);   // the last: nothing moves
    EXPECT_EQ(box.Item(3)->y(), 50);
    box.HideItem(2);
    EXPECT_FALSE(box.Item(2)->isVisible() || box.Item(4)->isVisible());
    EXPECT_EQ(box.Item(3)->y(), 25);
    EXPECT_EQ(box.Item(4)->y(), 50);
    box.HideItem(0);
    box.MakeItemPermanentlyDisable(5);
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              (std::vector<std::string>{
                  "xMultipleBEditBox::HideItem - Attempt to hide non-existent item.",
                  "xMultipleBEditBox::MakeItemPermanentlyDisable - Attempt to disable non-existent item."}));
    // A permanently disabled item outlives a general enabling.
    box.MakeItemPermanentlyDisable(3);
    box.FlagItem(3)->Enable(true);
    EXPECT_FALSE(box.FlagItem(3)->FlagBox()->isEnabled());
    EXPECT_FALSE(box.Item(3)->Field()->isEnabled());
    EXPECT_TRUE(box.Item(1)->Field()->isEnabled());
    box.FlagItem(3)->MakePermanentlyDisabled(false);
    EXPECT_TRUE(box.Item(3)->Field()->isEnabled());
}
