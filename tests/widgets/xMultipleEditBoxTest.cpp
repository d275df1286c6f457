#include "gui/xRecordingPlatform.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xMultipleBEditBox.h"
#include "xCommandRecorder.h"

#include <QCheckBox>

#include <gtest/gtest.h>

namespace {

const std::vector<std::string> kXyz{"x", "y", "z"};

FloatArray Floats(std::initializer_list<float> values, int lower)
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

} // namespace

TEST(MultipleEditBox, StacksItsItemsAndExchangesArraysFromIndexOne)
{
    xRecordingPlatform platform;
    xCommandRecorder card;
    xMultipleEditBox box(&card, QRect(0, 0, 200, 10), Floats({1.5f, 2.5f, 3.5f}, 0), kXyz, 90, 5,
                         "%g");
    ASSERT_EQ(box.Count(), 3);
    EXPECT_EQ(box.Item(2)->y(), 28);
    EXPECT_EQ(box.Item(3)->y(), 56);
    EXPECT_EQ(box.height(), 56 + 23 + 8);
    EXPECT_EQ(box.Item(4), nullptr);
    EXPECT_EQ(Text(box.Item(1)), "1.5");

    box.Item(3)->SetText("7 metres");
    FloatArray out(5, 9);
    box.GetValues(out);
    EXPECT_EQ(out.Lower(), 1);
    EXPECT_EQ(out.Upper(), 3);
    EXPECT_EQ(out[3], 7.0f);
    // An array shorter than the column sets what it has.
    box.SetValues(Floats({9.0f}, 1));
    EXPECT_EQ(Text(box.Item(1)), "9");
    EXPECT_EQ(Text(box.Item(2)), "2.5");

    xMultipleEditBox longs(&card, QRect(0, 0, 200, 10), Longs({4, -2}), {"a", "b"}, 90, 0);
    longs.Item(2)->SetText("-3.9");
    LongArray l = longs.GetLongValues();
    EXPECT_EQ(l[1], 4);
    EXPECT_EQ(l[2], -3);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    xMultipleEditBox none(&card, QRect(0, 0, 200, 40), FloatArray(), {}, 90, 0);
    none.GetValues(out);
    EXPECT_EQ(out.Lower(), 1);
    EXPECT_EQ(out.Upper(), 1);
    EXPECT_EQ(out[1], 0.0f);
}

TEST(MultipleEditBox, MasksOfCheckStatesAndToggles)
{
    xRecordingPlatform platform;
    xCommandRecorder card;
    xMultipleBEditBox box(&card, QRect(0, 0, 200, 10), Floats({1, 0, 2}, 1), kXyz, Longs({0, 5}), 90, 1);
    EXPECT_EQ(box.GetCheckedMask(), Longs({0, 1, 0}));
    EXPECT_EQ(box.GetClearedMask(), Longs({1, 0, 1}));
    box.SetCheckedMask(Longs({3, 0}));   // a short mask clears the rest
    EXPECT_EQ(box.GetCheckedMask(), Longs({1, 0, 0}));
    box.SetClearedMask(Longs({0, 1, 0}));
    EXPECT_EQ(box.GetCheckedMask(), Longs({1, 0, 1}));

    xMultipleBEditBox empty(&card, QRect(0, 0, 200, 10), FloatArray(), {}, LongArray(), 90, 1);
    EXPECT_EQ(empty.GetCheckedMask(), Longs({0}));
    EXPECT_EQ(empty.GetClearedMask(), Longs({1}));

    // A toggle writes the preset of the new state and tells the parent.
    xMultipleBEditBox flags(&card, QRect(0, 0, 200, 10), Floats({2, 0, 0}, 1), kXyz, Longs({1, 0, 0}),
                            90, 1, "%g");
    flags.SetValueWhenChecked(1.0);
    flags.SetValueWhenCleared(0.0);
    flags.ToggleItem(0);
    flags.ToggleItem(4);
    EXPECT_TRUE(card.received.empty());
    flags.ToggleItem(2);
    EXPECT_TRUE(flags.FlagItem(2)->IsChecked());
    EXPECT_EQ(Text(flags.Item(2)), "1");
    EXPECT_EQ(card.Commands(), (std::vector<long>{10028, 9984}));
    EXPECT_EQ(card.DataOf(10028), flags.FlagItem(2));
    flags.ToggleItem(1);
    EXPECT_FALSE(flags.FlagItem(1)->FlagBox()->isChecked());
    EXPECT_EQ(Text(flags.Item(1)), "0");
}

TEST(MultipleEditBox, HidingClosesTheColumnDisablingLastsAndMissingItemsAreWarned)
{
    xRecordingPlatform platform;
    xCommandRecorder card;
    card.show();
    xMultipleBEditBox box(&card, QRect(0, 0, 200, 10), Floats({1, 2, 3, 4}, 1), {"a", "b", "c", "d"},
                          LongArray(), 90, 2);
    box.show();
    box.HideItem(4);   // the last: nothing moves
    EXPECT_FALSE(box.Item(4)->isVisible());
    EXPECT_EQ(box.Item(3)->y(), 50);
    box.HideItem(2);
    EXPECT_FALSE(box.Item(2)->isVisible());
    EXPECT_EQ(box.Item(3)->y(), 25);
    EXPECT_EQ(box.Item(4)->y(), 50);
    EXPECT_TRUE(box.Item(1)->isVisible());
    EXPECT_TRUE(platform.messages.empty());

    box.HideItem(0);
    box.MakeItemPermanentlyDisable(5);
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              (std::vector<std::string>{
                  "xMultipleBEditBox::HideItem - Attempt to hide non-existent item.",
                  "xMultipleBEditBox::MakeItemPermanentlyDisable - Attempt to disable non-existent item."}));
    // A permanently disabled item outlives a general enabling.
    box.MakeItemPermanentlyDisable(3);
    box.FlagItem(3)->Enable(true);
    EXPECT_FALSE(box.FlagItem(3)->isEnabled());
    EXPECT_FALSE(box.FlagItem(3)->FlagBox()->isEnabled());
    EXPECT_FALSE(box.Item(3)->Field()->isEnabled());
    EXPECT_TRUE(box.Item(1)->Field()->isEnabled());
    box.FlagItem(3)->MakePermanentlyDisabled(false);
    EXPECT_TRUE(box.Item(3)->Field()->isEnabled());
}
