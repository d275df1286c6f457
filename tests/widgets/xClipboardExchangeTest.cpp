#include "gui/xRecordingPlatform.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xClipboardExchange.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const char* kIllegal = "Clipboard contains illegal character. Numbers only please (scientific notation OK).";
const char* kIndivisible = "Illegal number of items on clipboard. the total number of items has to be "
                           "divisible by 3 for wform samples or by 2 for window samples.";
using Texts = std::vector<std::string>;

struct Clipboard : ::testing::Test {
    xRecordingPlatform platform;
    xClipboardExchange card;

    void Put(const std::string& text)
    {
        platform.clipboard = text;
        platform.hasClipboard = true;
    }
};

} // namespace

TEST_F(Clipboard, PasteCutsTheNumbersByTheColumnsOfTheTable)
{
    Put("1e3\t2.5E-1\r\n7");
    FloatMatrix m(1, 2, 1, 3);
    ASSERT_TRUE(card.PasteTable(m));
    FloatMatrix expected(1, 1, 1, 3);
    *expected.Element(1, 1) = 1000.0f, *expected.Element(1, 2) = 0.25f, *expected.Element(1, 3) = 7.0f;
    EXPECT_EQ(m, expected);

    // Two columns of text into three columns: taken as it counts.
    Put("1 2\n3 4\n5 6\n");
    ASSERT_TRUE(card.PasteTable(m));
    EXPECT_EQ(m.Rows(), 2);
    EXPECT_EQ(m.Row(2)[1], 4.0f);
    // One column takes every count.
    FloatMatrix freq(0, 0, 1, 1);
    Put("1 2 3 4 5");
    ASSERT_TRUE(card.PasteTable(freq));
    EXPECT_EQ(freq.Rows(), 5);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(Clipboard, JunkLeavesTheTableAsItWas)
{
    FloatMatrix m(1, 2, 1, 2);
    *m.Element(1, 1) = 42.0f;
    const FloatMatrix before = m;
    // Numbers no float holds can't be read either: nothing becomes infinite.
    for (const char* junk : {"1,5 2", "1 2 x", "0x10 1", "inf 1", "nan 2", "1e 2", "1e39 2", "2 -1e400"}) {
        Put(junk);
        EXPECT_FALSE(card.PasteTable(m)) << junk;
    }
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts(8, kIllegal));
    platform.Clear();
    Put("1 2 3");
    EXPECT_FALSE(card.PasteTable(m));
    // Blank text: nothing, not a word. No text at all: a note.
    Put(" \n\t ");
    EXPECT_FALSE(card.PasteTable(m));
    platform.hasClipboard = false;
    EXPECT_FALSE(card.PasteTable(m));
    EXPECT_EQ(platform.Texts(xPlatform::kNote), (Texts{kIndivisible, "Illegal clipboard contents."}));
    EXPECT_EQ(m, before);
}

TEST_F(Clipboard, TakesTheFirst4500NumbersWithANote)
{
    std::string text;
    for (int i = 0; i < 4501; ++i)
        text += std::to_string(i) + (i % 3 == 2 ? "\n" : " ");
    Put(text);
    FloatMatrix m(1, 2, 1, 3);
    ASSERT_TRUE(card.PasteTable(m));
    EXPECT_EQ(m.Rows(), 1500);
    EXPECT_EQ(m.Row(1500)[3], 4499.0f);
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Exceeded maximum number of clipboard items."});

    // Exactly 4500 say nothing; a short array takes what it holds.
    platform.Clear();
    FloatArray numbers(xClipboardExchange::kMaxItems);
    EXPECT_EQ(card.ParseClipboardNumbers(text.substr(0, text.rfind('\n')), numbers), 4500);
    EXPECT_TRUE(platform.messages.empty());
    FloatArray three(1, 3);
    EXPECT_EQ(card.ParseClipboardNumbers("9 8 7 6", three), 3);
    EXPECT_EQ(three[3], 7.0f);
}

TEST_F(Clipboard, CopyWritesBlankAndFullPrecisionRowByRowAndPastesBackEightDigits)
{
    FloatMatrix m(0, 2, 0, 1);
    const float samples[] = {3.14159274f, -2.71828183e-5f, 6.02214076e23f, 1.0f / 3.0f, 0.0f, 123456.789f};
    for (int i = 0; i < 6; ++i)
        *m.Element(i / 2, i % 2) = samples[i];
    ASSERT_TRUE(card.CopyTable(m));
    EXPECT_EQ(platform.clipboard.substr(0, 30), " 3.1415927e+00 -2.7182818e-05\n");
    EXPECT_EQ(xClipboardExchange::Lines(platform.clipboard).size(), 3u);
    FloatMatrix back(0, 0, 0, 1);
    ASSERT_TRUE(card.PasteTable(back));
    ASSERT_TRUE(back.SameBounds(m));
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(back.Row(i / 2)[i % 2], samples[i], std::abs(samples[i]) * 1e-7) << i;
    EXPECT_EQ(xClipboardExchange::Lines("a\n\nb").size(), 3u);

    // The largest floats go through; an infinity is never written.
    FloatMatrix edges(0, 0, 0, 2);
    *edges.Element(0, 0) = 3.40282347e38f;
    *edges.Element(0, 1) = -std::numeric_limits<float>::infinity();
    *edges.Element(0, 2) = std::numeric_limits<float>::quiet_NaN();
    ASSERT_TRUE(card.CopyTable(edges));
    EXPECT_EQ(platform.clipboard, " 3.4028235e+38 -3.4028235e+38 0.0000000e+00\n");
    ASSERT_TRUE(card.PasteTable(edges));   // and read back
    EXPECT_EQ(edges.Row(0)[1], -3.40282347e38f);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}
