#include "numeric/LongArray.h"

#include "NumericTestKit.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>

namespace {
LongArray Make(int lower, std::initializer_list<int32_t> values)
{
    return MakeArray<LongArray>(lower, values);
}
}

TEST(LongArray, OneElementIsMadeButNotResizedToAndArithmeticIsInteger)
{
    xRecordingPlatform platform;
    LongArray single(5, 5);
    EXPECT_EQ(single.Size(), 1);
    EXPECT_EQ(FatalText([] { LongArray a(5, 4); }), "Specified LongArray bounds out of order.");
    LongArray a(100, 109);
    EXPECT_EQ(FatalText([&] { a.Resize(5, 5); }), "Specified LongArray bounds out of order.");
    EXPECT_EQ(a.Size(), 10);   // refused before anything was freed
    EXPECT_EQ(FatalText([&] { a = single; }), "Specified LongArray bounds out of order.");
    a.Resize(1);     // the size form makes no test
    EXPECT_EQ(a.Upper(), 0);
    EXPECT_EQ(FatalText([&] { a.Resize(1 << 27); }), "Out of memory, LongArray allocation.");

    // Integer arithmetic wraps and divides by truncation.
    a = Make(0, {7, -7, INT32_MAX});
    a /= 2;
    EXPECT_EQ(a, Make(0, {3, -3, INT32_MAX / 2}));
    LongArray b = Make(0, {INT32_MAX});
    b += 1;
    EXPECT_EQ(b[0], INT32_MIN);
    EXPECT_EQ(Make(0, {1, 1}).Norm(), 1);
    EXPECT_EQ(FatalText([&] { a /= 0; }), "LongArray : Attempt to divide by zero.");
    EXPECT_EQ(FatalText([&] { a += Make(1, {1, 1, 1}); }),
              "LongArray : Attempt to sum arrays of unequal size.");
}

TEST(LongArray, TextFormsEndWithCarriageReturnLineFeed)
{
    LongArray a = Make(1, {12, -3});
    std::ostringstream ascii;
    a.WriteAscii(ascii);
    EXPECT_EQ(ascii.str(), "            12            -3\r\n");

    // A failed read is no error here; what couldn't be read stays.
    xRecordingPlatform platform;
    std::istringstream in("5 x");
    a.ReadAscii(in);
    EXPECT_EQ(a, Make(1, {5, -3}));
    EXPECT_TRUE(platform.messages.empty());
    std::ostringstream broken;
    broken.setstate(std::ios::badbit);
    EXPECT_EQ(FatalText([&] { a.WriteAscii(broken); }), "Error writing LongArray to ASCII filestream.");

    size_t bytes = 0;
    EXPECT_EQ(BinaryRoundTrip(a, bytes), a);
    EXPECT_EQ(bytes, 16u);
}
