#include "cards/xTROrientationWalk.h"

#include <gtest/gtest.h>

namespace {

xTRClasf With(std::initializer_list<int> codes)
{
    xTRClasf clasf;
    clasf = 0;
    for (int code : codes)
        clasf[code] = 3;
    return clasf;
}

} // namespace

TEST(OrientationSelectorWalk, StepsRoundTheCodesAndAloneOrEmptyKeepsItsPlace)
{
    xTROrientationWalk walk(With({102, 105, 109}));
    EXPECT_EQ(walk.TxComponent() * 10 + walk.RxComponent(), 12);   // 102
    std::vector<int> codes;
    for (bool next : {true, true, true, false, false}) {
        EXPECT_TRUE(next ? walk.Next(false) : walk.Previous());
        codes.push_back(walk.Code());
    }
    // Past 109 the walk starts again at 100; below 100 it goes on from 109.
    EXPECT_EQ(codes, (std::vector<int>{105, 109, 102, 109, 105}));
    // From the start: the lowest code with a count, which may be where it stands.
    EXPECT_TRUE(walk.Next(true));
    EXPECT_FALSE(walk.Next(true));
    EXPECT_EQ(walk.Code(), 102);

    xTROrientationWalk one(With({107}));
    EXPECT_FALSE(one.Next(false) || one.Previous());
    EXPECT_EQ(one.Code(), 107);
    // No orientation at all ends the walk instead of circling for ever.
    xTROrientationWalk none(With({}));
    EXPECT_FALSE(none.Next(false) || none.Previous());
    // The undefined orientation is walked like any other when it has a count.
    xTROrientationWalk undefined(With({100, 103}));
    EXPECT_EQ(undefined.Code(), 100);
    EXPECT_EQ(undefined.TxComponent(), 4);
}

TEST(OrientationSelectorWalk, FollowsOrientationsThatComeAndGo)
{
    xTROrientationWalk walk(With({101, 104}));
    EXPECT_TRUE(walk.SetCode(104));
    EXPECT_FALSE(walk.SetCode(104));
    walk.RemoveOrientation(101, 104);   // not the current one: it only leaves the walk
    EXPECT_FALSE(walk.Next(false));
    walk.AddOrientation(108, 5);
    EXPECT_TRUE(walk.Next(false));
    EXPECT_EQ(walk.Code(), 108);
    EXPECT_EQ(walk.Clasf()[108], 5);
    walk.RemoveOrientation(108, 104);   // the current one: the other takes its place
    EXPECT_EQ(walk.Code(), 104);
    EXPECT_EQ(walk.Clasf()[108], 0);
}
