#include "numeric/FloatFMatrix.h"

#include "frame/xDoc.h"

#include "NumericTestKit.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

template <class T>
T At(const std::string& bytes, size_t offset)
{
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

// Every element (r, c) of the table set to 10 r + c, through row access.
void Number(FloatFMatrix& m)
{
    for (int r = m.TotalLower(); r <= m.TotalUpper(); ++r)
        for (int c = m.ColLower(); c <= m.ColUpper(); ++c)
            m.Row(r)[c] = static_cast<float>(10 * r + c);
}

// A recording platform whose file removal fails.
class StickyFilePlatform : public xRecordingPlatform {
public:
    bool RemoveFile(const std::string&) override { return false; }
};

}  // namespace

TEST(FloatFMatrix, TemporaryFileHoldsHeaderAndRowsAndGoesAtTheEnd)
{
    std::string path;
    {
        FloatFMatrix m(3, 7, 2, nullptr);
        path = m.FileName();
        EXPECT_EQ(m.BlockCount(), 3);
        Number(m);
        EXPECT_EQ(m.RowLower(), 4);   // row 6 centred as far as the end allows
        m.Sync();
        std::string bytes = xTempDirectory::Read(path);
        ASSERT_EQ(bytes.size(), 16u + 7 * 2 * 4);
        const int32_t header[4] = {0, 6, 0, 1};   // row and column bounds
        EXPECT_EQ(std::memcmp(bytes.data(), header, sizeof header), 0);
        for (int r = 0; r < 7; ++r)
            EXPECT_EQ(At<float>(bytes, 16 + r * 8 + 4), 10 * r + 1);
    }
    EXPECT_NE(access(path.c_str(), F_OK), 0);
}

TEST(FloatFMatrix, BlockWalkVisitsEveryBlockOnceAndConstAccessWritesNothingBack)
{
    FloatFMatrix m(1, 5, 1, nullptr);   // one row per block is raised to two
    EXPECT_EQ(m.BlockCount(), 3);
    Number(m);
    m.RewindBlocks();
    std::vector<int> firstRows;
    float sum = 0;
    while (m.NextBlock()) {
        firstRows.push_back(m.RowLower());
        sum += m.ColSum(0);
    }
    EXPECT_EQ(firstRows, (std::vector<int>{0, 2, 4}));
    EXPECT_EQ(sum, 100);

    // Const access moves the window without writing it back.
    m.Row(0)[0] = 5;
    const FloatFMatrix& view = m;
    EXPECT_EQ(view.Row(4)[0], 40);
    EXPECT_EQ(view.Row(0)[0], 0);   // the change never reached the file
}

TEST(FloatFMatrix, NamedFileIsReadBackThroughAttach)
{
    xTempDirectory dir;
    const std::string path = dir / "table.bin";
    {
        xDoc doc;
        doc.SetFilePath(path);
        ASSERT_TRUE(doc.OpenForWrite(nullptr));
        doc.WriteBytes("prefix..", 8);
        FloatFMatrix m(&doc, 10, 4, 3);
        EXPECT_EQ(m.FileOffset(), 8);
        Number(m);
        float seven = 7;
        m.FillRow(2, &seven);
        m.AppendRow(nullptr);
        FloatArray last = MakeArray<FloatArray>(0, {1.0f, 2.0f, 3.0f});
        m.AppendRow(&last);
        EXPECT_EQ(m.BlockCount(), 2);
        m.Sync();

        FloatFMatrix back(&doc);
        back.Attach(8, 0, 0, 0);
        EXPECT_EQ(back.TotalUpper(), 5);
        EXPECT_EQ(back.Row(2)[1], 7);
        EXPECT_EQ(back.Row(5)[2], 3);
    }
    {
        FloatFMatrix named(2, 3, 2, path.c_str());
        float half = 0.5f;
        named.Fill(&half);
        named.Sync();
        FloatFMatrix copy(named);
        EXPECT_TRUE(copy.IsTemporary());
        EXPECT_EQ(copy.Max(), 0.5f);
    }
    std::string bytes = xTempDirectory::Read(path);
    ASSERT_EQ(bytes.size(), 16u + 3 * 2 * 4);
    EXPECT_EQ(At<float>(bytes, 16 + 2 * 8 + 4), 0.5f);
}

TEST(FloatFMatrix, RowsAtTheBottomOfTheIntRangeAreReached)
{
    FloatFMatrix scratch(2, 1, 1, nullptr);
    xDoc* file = scratch.File();
    const int32_t header[4] = {INT32_MIN, INT32_MIN + 9, 0, 0};
    file->Seek(0);
    file->WriteBytes(reinterpret_cast<const char*>(header), sizeof header);
    for (int r = 0; r < 10; ++r) {
        float value = static_cast<float>(r);
        file->WriteBytes(reinterpret_cast<const char*>(&value), sizeof value);
    }
    FloatFMatrix table(file);
    table.Attach(0, 2, 0, 0);
    EXPECT_EQ(table.BlockCount(), 5);
    const FloatFMatrix& view = table;
    EXPECT_EQ(view.Row(INT32_MIN + 9)[0], 9);
    // Centring the window on the first row reaches below the int range.
    EXPECT_EQ(view.Row(INT32_MIN)[0], 0);
    EXPECT_EQ(table.RowLower(), INT32_MIN);
}

TEST(FloatFMatrix, RefusalsAndRangeFaults)
{
    StickyFilePlatform platform;
    std::vector<std::string> paths;
    {
        FloatFMatrix m(2, 6, 2, nullptr);
        FloatFMatrix other(2, 2, 2, nullptr);
        m = other;
        EXPECT_EQ(m.TotalRows(), 6);
        EXPECT_EQ(platform.Texts(xPlatform::kError),
                  std::vector<std::string>{"FloatFMatrix: operator= called - Not implemented!"});
        EXPECT_EQ(FatalText([&] { m.CheckCol(2); }), "FloatFMatrix: Column index out of range!");
        m.Row(4);
        // The address ignores the window's first row: row 4 would lie beyond it.
        EXPECT_EQ(FatalText([&] { m.Element(4, 0); }), "FloatFMatrix: Row index out of range!");
        EXPECT_EQ(m.Element(1, 0), &m.Row(4)[0]);
        // With no file, rows pushed out of the window by an append come back as 0.
        FloatFMatrix memoryOnly(nullptr, 2, 2, 1);
        memoryOnly.Row(0)[0] = 4;
        memoryOnly.AppendRow(nullptr);
        EXPECT_EQ(memoryOnly.Row(0)[0], 0);
        EXPECT_EQ(FatalText([&] { memoryOnly.Row(3); }), "FloatFMatrix: Row index out of range!");
        paths = {m.FileName(), other.FileName()};
        platform.Clear();
    }
    EXPECT_EQ(platform.Transcript(), "warning: FloatFMatrix: Unable to delete temporary file!\n"
                                     "warning: FloatFMatrix: Unable to delete temporary file!\n");
    for (const std::string& path : paths)
        std::remove(path.c_str());
}
