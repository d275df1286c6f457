#include "numeric/FloatMatrix.h"

#include "NumericTestKit.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>

namespace {
// A matrix with the given bounds whose rows are the given lists.
FloatMatrix Make(int rowLower, int colLower, std::initializer_list<std::initializer_list<float>> rows)
{
    FloatMatrix m(rowLower, rowLower + static_cast<int>(rows.size()) - 1, colLower,
                  colLower + static_cast<int>(rows.begin()->size()) - 1);
    int r = rowLower;
    for (const auto& row : rows) {
        int c = colLower;
        for (float v : row)
            *m.Element(r, c++) = v;
        ++r;
    }
    return m;
}
}

TEST(FloatMatrix, ResizeKeepsDataOnlyForTheSameShapeAndColumnStart)
{
    float five = 5;
    FloatMatrix m(1, 2, 1, 3);
    m.Fill(&five);
    m.Resize(3, 2);
    EXPECT_EQ(m, FloatMatrix(3, 2));   // a new shape: bounds from 0, zeroed
    m.Fill(&five);
    m.Resize(3, 2);
    EXPECT_EQ(*m.Element(2, 1), 5);
    m.Resize(10, 12, 0, 1);   // same shape and column start: rows just move
    EXPECT_EQ(m.Row(12)[1], 5);
    m.Resize(10, 12, 1, 2);
    EXPECT_EQ(m.Row(12)[2], 0);

    // CopyOverlap takes the smaller column count as the stride of both.
    FloatMatrix wide(2, 3), narrow(3, 1);
    wide.CopyOverlap(Make(0, 0, {{1, 2}, {3, 4}}));
    EXPECT_EQ(wide, Make(0, 0, {{1, 2, 3}, {4, 0, 0}}));
    narrow.CopyOverlap(Make(0, 0, {{1, 2}, {3, 4}}));
    EXPECT_EQ(narrow, Make(0, 0, {{1}, {2}, {0}}));
}

TEST(FloatMatrix, RowViewsShareTheStorage)
{
    FloatMatrix m(1, 3, 5, 6);
    m.Row(2)[6] = 4;
    EXPECT_FALSE(m.RowOrNull(4));
    EXPECT_EQ(m.RowOrNull(3)->Data(), m.Row(3).Data());

    float seven = 7;
    m.FillRow(1, &seven);
    m.FillCol(5, &seven);
    EXPECT_EQ(m, Make(1, 5, {{7, 7}, {7, 4}, {7, 0}}));
    m.Row(3) = MakeArray<FloatArray>(5, {1.0f, 2.0f});
    FloatArray copy = m.RowArray(3);
    EXPECT_TRUE(copy.Owns());
    m.Row(3)[5] = 9;
    EXPECT_EQ(copy, MakeArray<FloatArray>(5, {1.0f, 2.0f}));
}

TEST(FloatMatrix, TransposeFlipAndParts)
{
    FloatMatrix m = Make(1, 0, {{1, 2}, {3, 4}, {5, 6}});
    m.Transpose();
    EXPECT_EQ(m, Make(0, 1, {{1, 3, 5}, {2, 4, 6}}));
    EXPECT_EQ(m.FlipRows(), Make(0, 1, {{2, 4, 6}, {1, 3, 5}}));
    EXPECT_EQ(m.SubMatrix(1, 2, 1, 3), Make(0, 0, {{4, 6}}));
    m.SwapCols(1, 3);
    EXPECT_EQ(m, Make(0, 1, {{5, 3, 1}, {6, 4, 2}}));
}

TEST(FloatMatrix, ArithmeticAndExactComparison)
{
    FloatMatrix a = Make(0, 0, {{1, 2}, {3, 4}});
    a *= 2;
    a += 1;
    a -= 3;
    a /= 2;
    EXPECT_EQ(a, Make(0, 0, {{0, 1}, {2, 3}}));
    a += Make(0, 0, {{1, 1, 1}});   // flat, over the smaller table
    EXPECT_EQ(a, Make(0, 0, {{1, 2}, {3, 3}}));
    // Shape and values ignore the bounds; equality doesn't.
    FloatMatrix shifted = Make(3, 4, {{1, 2}, {3, 3}});
    EXPECT_TRUE(a.SameShape(shifted) && a.SameValues(shifted));
    EXPECT_NE(a, shifted);

    // The product reads b at (j, k): for square operands it is a times b transposed.
    FloatMatrix p = Make(1, 1, {{1, 2}, {3, 4}}) * Make(1, 1, {{5, 6}, {7, 8}});
    EXPECT_EQ(p, Make(1, 1, {{17, 23}, {39, 53}}));
    FloatMatrix q = Make(1, 1, {{1, 2}, {3, 4}}) * Make(1, 1, {{1, 1, 1}, {2, 2, 2}});
    EXPECT_EQ(q, Make(1, 1, {{3, 6, 0}, {7, 14, 0}}));

    xRecordingPlatform platform;
    EXPECT_EQ(FatalText([] { Make(1, 1, {{1, 2}}) * Make(1, 1, {{1, 2}}); }),
              "FloatMatrix::operator*() matrix multiplication, dimension error.");
}

TEST(FloatMatrix, ExtremesAndNearestRow)
{
    const float none = -32767.0f;
    FloatMatrix m = Make(1, 1, {{none, 4, 9}, {-2, none, 3}});
    float min = 0, max = 0;
    m.MinMax(min, max, &none);
    EXPECT_EQ(min, -2);
    EXPECT_EQ(max, 9);
    EXPECT_EQ(m.ColRangeMax(1, 2, &none), 4);

    // The nearest row is walked to from an interpolated guess.
    FloatMatrix up = Make(0, 0, {{0}, {1}, {2}, {4}, {8}});
    EXPECT_EQ(up.NearestRow(5.9f, 0), 3);
    EXPECT_EQ(up.NearestRow(6.1f, 0), 4);
    EXPECT_EQ(up.NearestRow(-3, 0), 0);
    FloatMatrix down = Make(0, 0, {{8}, {4}, {2}, {1}, {0}});
    EXPECT_EQ(down.NearestRow(1.4f, 0), 3);

    // Rows ending at the top of the int range: the walk and the scan stop there.
    FloatMatrix top(INT32_MAX - 1, INT32_MAX, INT32_MAX, INT32_MAX);
    *top.Element(INT32_MAX, INT32_MAX) = 2;
    EXPECT_EQ(top.NearestRow(5, INT32_MAX), INT32_MAX);
    top.MinMax(min, max);
    EXPECT_EQ(min, 0);
    EXPECT_EQ(max, 2);
}

TEST(FloatMatrix, RowEditingIsRefusedAndImpossibleSizesAreFatal)
{
    xRecordingPlatform platform;
    FloatMatrix m = Make(0, 0, {{1, 2}});
    FloatArray row(2);
    m.AppendRow(&row);
    m.InsertRow(0, &row);
    m.DeleteRow(0);
    EXPECT_EQ(m, Make(0, 0, {{1, 2}}));
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"WARNING: FloatMatrix::AppendRow() not implemented!",
                                        "WARNING: FloatMatrix::InsertRow() not implemented!",
                                        "WARNING: FloatMatrix::DeleteRow() not implemented!"}));

    EXPECT_EQ(FatalText([] { FloatMatrix big(1 << 14, 1 << 13); }), "FloatMatrix: Out of memory!");
    EXPECT_EQ(FatalText([&] { m.Resize(INT32_MIN, INT32_MAX, 0, 0); }), "FloatMatrix: Out of memory!");
    EXPECT_EQ(m.Total(), 0);
    EXPECT_FALSE(m.RowOrNull(0));
}

TEST(FloatMatrix, TextBinaryAndDumpForms)
{
    FloatMatrix m = Make(1, 0, {{1.5f, -2}});
    std::ostringstream ascii, shifted;
    m.WriteAscii(ascii);
    EXPECT_EQ(ascii.str(), "1 1 0 1\n            1.5              -2 \n");
    shifted << m;
    EXPECT_EQ(shifted.str(), "         1         1         0         1\n"
                             "                 1.5                  -2\n");
    FloatMatrix back;
    std::istringstream in(shifted.str());
    in >> back;
    EXPECT_EQ(back, m);
    FloatMatrix read;
    std::istringstream asciiIn(ascii.str());
    read.ReadAscii(asciiIn);
    EXPECT_EQ(read, m);

    xRecordingPlatform platform;
    std::istringstream cut("0 1 0 1 1 2 x");
    read.ReadAscii(cut);
    EXPECT_EQ(read, Make(0, 0, {{1, 2}, {0, 0}}));
    std::ostringstream broken;
    broken.setstate(std::ios::badbit);
    m.WriteAscii(broken);
    EXPECT_EQ(platform.Transcript(), "error: FloatMatrix: Error reading matrix from ASCII stream.\n"
                                     "error: FloatMatrix: Error writing matrix to ASCII stream.\n");

    m = Make(100, 1, {{1, 2.25f}, {3, 4}});
    size_t bytes = 0;
    EXPECT_EQ(BinaryRoundTrip(m, bytes), m);
    EXPECT_EQ(bytes, 32u);
    xTempDirectory dir;
    m.Dump("old");
    m.Dump("Title");
    EXPECT_EQ(xTempDirectory::Read(dir / "dump"), "Title\n   ---     [  1]   [  2]\n\n"
                          "   [100]    1.00    2.25\n"
                          "   [101]    3.00    4.00\n");
}
