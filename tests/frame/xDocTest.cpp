#include "frame/xDoc.h"

#include "gui/xRecordingPlatform.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(DocReadLine, EveryLineEndReadsAndReportsItsKind)
{
    std::istringstream in("one\ntwo\r\nthree\rfour\r\rsix");
    std::string text;
    EXPECT_EQ(xDoc::ReadLine(in, &text), 2);
    EXPECT_EQ(text, "one");
    EXPECT_EQ(xDoc::ReadLine(in, &text), 1);
    EXPECT_EQ(text, "two");
    EXPECT_EQ(xDoc::ReadLine(in, &text), 3);
    EXPECT_EQ(text, "three");
    EXPECT_EQ(xDoc::ReadLine(in, &text), 3);
    EXPECT_EQ(text, "four");
    EXPECT_EQ(xDoc::ReadLine(in, &text), 3);
    EXPECT_EQ(text, "");
    // The last line has no end: it reads, the result says end, the stream stays good.
    EXPECT_EQ(xDoc::ReadLine(in, &text), 0);
    EXPECT_EQ(text, "six");
    EXPECT_TRUE(in.good());
    EXPECT_EQ(xDoc::ReadLine(in, &text), 0);
    EXPECT_EQ(text, "");
    EXPECT_TRUE(in.good());
}

TEST(DocReadLine, DropsTextOnNullAndGivesNothingOnAFailedStream)
{
    std::istringstream in("skip me\r\nkeep\n");
    EXPECT_EQ(xDoc::ReadLine(in, nullptr), 1);
    EXPECT_EQ(xDoc::GetLine(in), "keep");

    std::istringstream failed("12 abc\nline\n");
    int number = 0;
    failed >> number >> number;
    ASSERT_TRUE(failed.fail());
    std::string text = "old";
    EXPECT_EQ(xDoc::ReadLine(failed, &text), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(xDoc::GetLine(failed), "");
}

TEST(DocReadLine, TakesAnyByteAndTheRestOfANumbersLine)
{
    std::string bytes("a\0b\xff\x01", 5);
    std::istringstream in("  42 label\r\n" + bytes + "\n");
    int number = 0;
    in >> number;
    EXPECT_EQ(number, 42);
    EXPECT_EQ(xDoc::GetLine(in), " label");
    EXPECT_EQ(xDoc::GetLine(in), bytes);
}
