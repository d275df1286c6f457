#include "numeric/xExtract.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(f, -350000.0f);

    // At the end of the file only a missing number fails.
    std::istringstream last("7");
    ASSERT_TRUE(xExtract::Int(last, i));
    EXPECT_TRUE(last.eof() && !last.fail());
    EXPECT_FALSE(xExtract::Int(last, i));
    EXPECT_EQ(i, 7);
}

TEST(Extract, NumbersOutOfTheirTypesRangeFail)
{
    // A float is judged in float: what only a double can hold fails.
    for (const char* text : {"1e39", "-1e39", "3.40282357e38"}) {
        std::istringstream in(text);
        float f = 1.5f;
        EXPECT_FALSE(xExtract::Float(in, f)) << text;
        EXPECT_EQ(f, 1.5f) << text;
    }
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
        {"1e-400", true, 0.0, -1},     {"1e+;", false, 0, ';'},
        {".;", false, 0, ';'},         {"1e400", false, 0, -1},
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

namespace {

// Hands its text out a few characters at a time, so numbers stand across the
// edges of what the buffer holds.
class xTrickleBuffer : public std::streambuf {
public:
    xTrickleBuffer(std::string text, size_t piece) : text(std::move(text)), piece(piece) {}

protected:
    int_type underflow() override
    {
        if (at >= text.size())
            return traits_type::eof();
        char* begin = &text[at];
        size_t length = std::min(piece, text.size() - at);
        at += length;
        setg(begin, begin, begin + length);
        return traits_type::to_int_type(*begin);
    }

private:
    std::string text;
    size_t piece;
    size_t at = 0;
};

} // namespace

TEST(Extract, NumbersAcrossTheEdgesOfTheBufferReadWhole)
{
    const std::string text = "  123.456e+2 -7.25\n+0.5 1e+ 9";
    for (size_t piece : {1, 2, 3, 5, 7, 64}) {
        xTrickleBuffer buffer(text, piece);
        std::istream in(&buffer);
        float a = 0, b = 0, c = 0, d = 4;
        ASSERT_TRUE(xExtract::Float(in, a) && xExtract::Float(in, b) && xExtract::Float(in, c)) << piece;
        EXPECT_FLOAT_EQ(a, 12345.6f) << piece;
        EXPECT_FLOAT_EQ(b, -7.25f) << piece;
        EXPECT_FLOAT_EQ(c, 0.5f) << piece;
        // An exponent mark without digits fails, wherever the buffer ends.
        EXPECT_FALSE(xExtract::Float(in, d)) << piece;
        EXPECT_EQ(d, 4.0f) << piece;
    }
}
