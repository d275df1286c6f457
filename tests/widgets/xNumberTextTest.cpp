#include "widgets/xNumberText.h"

#include <gtest/gtest.h>

TEST(NumberText, ReadsAsFarAsItCanAndSaturatesAt32Bits)
{
    EXPECT_EQ(xNumberText::Atol("  12abc"), 12);
    EXPECT_EQ(xNumberText::Atol("-7.9"), -7);
    EXPECT_EQ(xNumberText::Atol("2147483647"), 2147483647);
    EXPECT_EQ(xNumberText::Atol("2147483648"), 2147483647);
    EXPECT_EQ(xNumberText::Atol("-2147483649"), -2147483647 - 1);
    EXPECT_FLOAT_EQ(xNumberText::Atof("2.5E-1x"), 0.25f);
    EXPECT_EQ(xNumberText::Atof(","), 0.0f);
}

TEST(NumberText, FormatsWithTheSystemFormatsAndSurvivesForeignOnes)
{
    EXPECT_EQ(xNumberText::Format("%12.5g", 3.0), "           3");
    EXPECT_EQ(xNumberText::FormatLong("%ld", -42), "-42");
    // An integer format given a float, a float format given a long.
    EXPECT_EQ(xNumberText::Format("%ld", 12.9), "12");
    EXPECT_EQ(xNumberText::FormatLong("%5.2e", 3), "3.00e+00");
    // No conversion, two conversions or a string conversion fall back to %g.
    for (const char* format : {"abc", "%g %g", "%s"})
        EXPECT_EQ(xNumberText::Format(format, 1.5), "1.5") << format;
    EXPECT_EQ(xNumberText::Format("x=%5.1f%%", 2.0), "x=  2.0%");
    // Longer than any small buffer.
    EXPECT_EQ(xNumberText::Format("%100.1f", 1.0).size(), 100u);
    EXPECT_EQ(xNumberText::Strip("  1.5e+00 ") + xNumberText::Strip("   "), "1.5e+00");
}
