#include "numeric/xExtract.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(Extract, ReadsAcrossLineEndsAndStopsBehindTheNumber)
{
    std::istringstream in("  12\r\n-3.5e+005 rest\n");
    int32_t i = 0;
    float f = 0;
    ASSERT_TRUE(xExtract::Int(in, i));
    ASSERT_TRUE(xExtract::Float(in, f));
    EXPECT_EQ(i, 12);
    EXPECT_FLOAT_EQ(f, -350000.0f);
    EXPECT_EQ(in.get(), ' ');
}

TEST(Extract, AFailedReadKeepsTheTargetAndFailsEveryLaterRead)
{
    std::istringstream in("abc 5");
    int32_t i = 77;
    float f = 1.5f;
    EXPECT_FALSE(xExtract::Int(in, i));
    EXPECT_EQ(i, 77);
    EXPECT_FALSE(xExtract::Float(in, f));
    EXPECT_EQ(f, 1.5f);
    EXPECT_TRUE(in.fail());
}

TEST(Extract, IntegersOutOfRangeFail)
{
    std::istringstream in("2147483648 40000");
    int32_t i = 1;
    EXPECT_FALSE(xExtract::Int(in, i));
    EXPECT_EQ(i, 1);
    std::istringstream shortIn("40000");
    int16_t s = 2;
    EXPECT_FALSE(xExtract::Short(shortIn, s));
    EXPECT_EQ(s, 2);
}

TEST(Extract, EndOfFileFailsOnlyAMissingNumber)
{
    std::istringstream in("7");
    int32_t i = 0;
    ASSERT_TRUE(xExtract::Int(in, i));
    EXPECT_EQ(i, 7);
    EXPECT_FALSE(in.fail());
    EXPECT_FALSE(xExtract::Int(in, i));
    EXPECT_EQ(i, 7);
}
