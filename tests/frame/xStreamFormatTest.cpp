#include "frame/xStreamFormat.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::string Formatted(const std::string& format, double value)
{
    std::ostringstream out;
    EXPECT_TRUE(SetStreamFormat(out, format));
    out << value;
    return out.str();
}

} // namespace

TEST(StreamFormat, EachFormSetsWidthPrecisionAndNotation)
{
    EXPECT_EQ(Formatted("12e3", 1234.5), "   1.234e+03");
    EXPECT_EQ(Formatted("%8F2", 3.14159), "    3.14");
    EXPECT_EQ(Formatted("6i", 2.0 / 3.0), "0.666667");   // width 6, precision 6
    EXPECT_EQ(Formatted("4l", 12.0), "  12");
    EXPECT_EQ(Formatted("3S", 1234.0), "1.23e+03");
    // Several forms: the later of the list wins.
    EXPECT_EQ(Formatted("12e3 5s", 1.0), "    1");
    // No form: the stream is as it was.
    EXPECT_EQ(Formatted("%10.7e", 0.5), "0.5");
}
