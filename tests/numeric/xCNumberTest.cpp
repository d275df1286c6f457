#include "numeric/xCNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(CNumber, ReadsAsAtofButNothingBeyondAFloatAndNeverWritesInfOrNan)
{
    float value = 7.0f;
    const char* stop = nullptr;
    EXPECT_EQ(xCNumber::ReadFloat("  2.5e-1x", value, &stop), xCNumber::kNumber);
    EXPECT_EQ(value, 0.25f);
    EXPECT_STREQ(stop, "x");
    EXPECT_EQ(xCNumber::ReadFloat("letters", value), xCNumber::kNoNumber);
    EXPECT_EQ(value, 0.0f);
    for (const char* beyond : {"1e39", "-1e400", "inf", "nan"})
        EXPECT_EQ(xCNumber::ReadFloat(beyond, value), xCNumber::kBeyondFloat) << beyond;
    EXPECT_EQ(value, 0.0f);
    // The largest float as printed still reads; too small reads as 0.
    EXPECT_EQ(xCNumber::ReadFloat("3.4028235e+38", value), xCNumber::kNumber);
    EXPECT_EQ(value, std::numeric_limits<float>::max());
    EXPECT_EQ(xCNumber::ReadLong("-99999999999"), -2147483647 - 1);

    EXPECT_EQ(xCNumber::Printf("%200.1f", 1.0).size(), 200u);
    EXPECT_EQ(xCNumber::Finite(-std::numeric_limits<float>::infinity()), -std::numeric_limits<float>::max());
    EXPECT_EQ(xCNumber::Finite(std::nanf("")), 0.0f);
}
