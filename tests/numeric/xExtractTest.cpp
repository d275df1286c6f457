#include "numeric/xExtract.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

TEST(Extract, ReadsAcrossLineEndsAndAFailedReadKeepsTheTargetAndSticks)
{
    std::istringstream in("  12\r\n-3.5e+005 rest 5\n");
    int32_t i = 0;
    float f = 0;
    ASSERT_TRUE(xExtract::Int(in, i) && xExtract::Float(in, f));
    EXPECT_EQ(i, 12);
    EXPECT_FLOAT_EQ(f, -350000.0f);
    EXPECT_EQ(in.peek(), ' ');   // the stream stops behind the number
    EXPECT_FALSE(xExtract::Int(in, i));
    EXPECT_FALSE(xExtract::Float(in, f));
    EXPECT_EQ(i, 12);
    EXPECT_EQ(f, -350000.0f);
    EXPECT_TRUE(in.fail());

    // At the end of the file only a missing number fails.
    std::istringstream last("7");
    ASSERT_TRUE(xExtract::Int(last, i));
    EXPECT_TRUE(last.eof());
    EXPECT_FALSE(last.fail());
    EXPECT_FALSE(xExtract::Int(last, i));
    EXPECT_TRUE(last.fail());
    EXPECT_EQ(i, 7);
}

TEST(Extract, NumbersOutOfTheirTypesRangeFail)
{
    // A float is judged in float: what only a double can hold fails, a value
    // too small for it reads as 0.
    for (const char* text : {"1e39", "-1e39", "3.40282357e38"}) {
        std::istringstream in(text);
        float f = 1.5f;
        EXPECT_FALSE(xExtract::Float(in, f)) << text;
        EXPECT_EQ(f, 1.5f) << text;
    }
    std::istringstream edges("3.4028235e38 1e-50");
    float big = 0, tiny = 1;
    EXPECT_TRUE(xExtract::Float(edges, big) && xExtract::Float(edges, tiny));
    EXPECT_EQ(big, std::numeric_limits<float>::max());
    EXPECT_EQ(tiny, 0.0f);

    std::istringstream in("2147483648 40000");
    int32_t i = 1;
    EXPECT_FALSE(xExtract::Int(in, i));
    EXPECT_EQ(i, 1);
    std::istringstream shortIn("40000");
    int16_t s = 2;
    EXPECT_FALSE(xExtract::Short(shortIn, s));
    EXPECT_EQ(s, 2);
}

TEST(Extract, TakesTheLongestNumberAndRejectsAnUnfinishedOne)
{
    struct Case {
        const char* text;
        bool ok;
        double value;
        int next;   // the character left in front of the stream, -1 at its end
    };
    const Case cases[] = {
        {".5;", true, 0.5, ';'},      {"5.;", true, 5.0, ';'},
        {"+2.5e-3x", true, 2.5e-3, 'x'}, {"1.2.3", true, 1.2, '.'},
        {"-7E2 ", true, -700.0, ' '},  {"1e-400", true, 0.0, -1},
        {"1e", false, 0, -1},          {"1e+;", false, 0, ';'},
        {".;", false, 0, ';'},         {"-x", false, 0, 'x'},
        {"1e400", false, 0, -1},       {"e5", false, 0, 'e'},
    };
    for (const Case& c : cases) {
        std::istringstream in(c.text);
        double value = 42.0;
        EXPECT_EQ(xExtract::Double(in, value), c.ok) << c.text;
        EXPECT_DOUBLE_EQ(value, c.ok ? c.value : 42.0) << c.text;
        in.clear();
        EXPECT_EQ(in.peek(), c.next == -1 ? std::char_traits<char>::eof() : c.next) << c.text;
    }
}
