#include "numeric/FloatArray.h"

#include "NumericTestKit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace {
FloatArray Make(int lower, std::initializer_list<float> values)
{
    return MakeArray<FloatArray>(lower, values);
}
}

TEST(FloatArray, BoundsImpossibleSizesWrappedDataAndComparison)
{
    FloatArray a(1, 5);
    EXPECT_EQ(a[5], 0);
    xRecordingPlatform platform;
    EXPECT_EQ(FloatArray(5, 1).Size(), 0);
    EXPECT_TRUE(platform.messages.empty());

    FloatArray moved = Make(0, {1, 2, 3});
    moved.SetLower(1);
    EXPECT_EQ(moved, Make(1, {1, 2, 3}));

    // Impossible sizes are fatal and leave a sound object.
    EXPECT_EQ(FatalText([] { FloatArray big(-3); }), "xArray: Out of memory!");
    EXPECT_EQ(FatalText([] { FloatArray big(0, 1 << 27); }), "xArray: Out of memory!");
    EXPECT_EQ(FatalText([&] { a.Resize(-2000000000, 2000000000); }),
              "Out of memory, FloatArray allocation.");
    EXPECT_EQ(a.Size(), 0);
    a.Resize(2, 1);   // one below lower: an empty array, no message
    EXPECT_EQ(a.Size(), 0);

    // Assigning to a view of a block writes into the block.
    float block[3] = {0, 0, 0};
    FloatArray view(block, 3, 5);
    EXPECT_FALSE(view.Owns());
    view = Make(3, {4, 5, 6});
    EXPECT_EQ(block[2], 6);

    // Values compare with a relative tolerance too small for one float step.
    FloatArray c = Make(0, {0.0f, 1.0f, 2.5f});
    FloatArray d = Make(0, {-0.0f, 1.0f, 2.5f});
    EXPECT_TRUE(c.SameValues(d));
    d[1] = std::nextafter(1.0f, 2.0f);
    EXPECT_FALSE(c.SameValues(d));
    EXPECT_TRUE(Make(0, {1, 2}).SameValues(Make(7, {1, 2})));
    EXPECT_FALSE(Make(0, {1, 2}) == Make(7, {1, 2}));
}

TEST(FloatArray, ExtremesSumsAndSearches)
{
    const float none = -32767.0f;
    FloatArray a = Make(0, {none, 4, -2, 9, none});
    EXPECT_EQ(a.Min(&none), -2);
    EXPECT_EQ(a.Range(&none), 11);
    // The skip of ignored values stops at the upper bound taken as an offset:
    // with bounds -2 to 2 it stops at offset 2, which starts the result.
    FloatArray shifted = Make(-2, {none, none, none, 5, 7});
    EXPECT_EQ(shifted.Min(&none), none);
    EXPECT_EQ(shifted.Max(&none), 7);

    FloatArray s = Make(1, {3, -4, 3});
    EXPECT_EQ(s.Sum(-5, 50), 2);
    EXPECT_EQ(s.IndexOf(-4), 2);

    // Nearest gives offsets, and 0 beyond the end.
    FloatArray up = Make(10, {0, 1, 2, 3});
    EXPECT_EQ(up.Nearest(1.5f), 1);   // a tie goes to the element before
    EXPECT_EQ(up.Nearest(3.5f), 0);
    FloatArray down = Make(0, {3, 2, 1, 0});
    EXPECT_EQ(down.Nearest(1.6f), 1);
    EXPECT_EQ(FloatArray(4, 3).Nearest(1), 4);
}

TEST(FloatArray, PartsAndArithmetic)
{
    FloatArray a = Make(1, {1, 2, 3, 4});
    // Both indices count from the destination's lower bound.
    FloatArray source = Make(0, {10, 11, 12, 13});
    a.CopyBlock(source, 2, 1, 2);
    EXPECT_EQ(a, Make(1, {11, 12, 3, 4}));
    a.CopyBlock(source, 3, 3, 10);   // only what fits is copied
    EXPECT_EQ(a, Make(1, {11, 12, 12, 13}));

    a = Make(1, {1, 2});
    a += Make(1, {1, 1});
    a *= Make(1, {3, 2});
    a -= 1.0f;
    a /= Make(1, {5, 5});
    EXPECT_EQ(a, Make(1, {1, 1}));

    xRecordingPlatform platform;
    FloatArray other = Make(0, {1, 2});
    EXPECT_EQ(FatalText([&] { a += other; }), "FloatArray : Attempt to sum arrays of unequal size.");
    EXPECT_EQ(FatalText([&] { (void)(a * other); }),
              "FloatArray : Attempt to multiply arrays of unequal size.");
}

TEST(FloatArray, TextAndBinaryFormsAndTheirFailures)
{
    FloatArray a = Make(1, {1.5f, -2});
    std::ostringstream ascii, shifted;
    a.WriteAscii(ascii);
    EXPECT_EQ(ascii.str(), "                 1.5                  -2\n");
    shifted << a;
    EXPECT_EQ(shifted.str(), "         1         2\n                 1.5                  -2\n");
    FloatArray back;
    std::istringstream in(shifted.str());
    in >> back;
    EXPECT_EQ(back, a);

    size_t bytes = 0;
    EXPECT_EQ(BinaryRoundTrip(a, bytes), a);
    EXPECT_EQ(bytes, 16u);

    xRecordingPlatform platform;
    FloatArray three(3);
    std::istringstream shortInput("1 x");
    EXPECT_EQ(FatalText([&] { three.ReadAscii(shortInput); }),
              "Error reading FloatArray from ASCII filestream.");
    EXPECT_EQ(three[0], 1);
}
