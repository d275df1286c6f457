#include "gui/xRecordingPlatform.h"
#include "widgets/xDependentSeries.h"
#include "widgets/xGridCursor.h"
#include "widgets/xGridValues.h"

#include <gtest/gtest.h>

namespace {

FloatMatrix Table(int rowLower, int colLower, std::initializer_list<std::initializer_list<float>> rows)
{
    int cols = static_cast<int>(rows.begin()->size());
    FloatMatrix m(rowLower, rowLower + static_cast<int>(rows.size()) - 1, colLower, colLower + cols - 1);
    int r = rowLower;
    for (auto row : rows) {
        int c = colLower;
        for (float v : row)
            *m.Element(r, c++) = v;
        ++r;
    }
    return m;
}

struct SeriesSpy : xDependentSeries {
    std::vector<std::string> calls;
    int rows = 0;
    void SetData(const FloatMatrix& table) override
    {
        calls.push_back("data");
        rows = table.Rows();
    }
    void ComputePixels() override { calls.push_back("pixels"); }
    void Clear() override { calls.push_back("clear"); }
    void InvalidateArea() override { calls.push_back("invalidate"); }
};

// The cell in view then the origin, as "row,column origin row,column".
std::string Where(const xGridCursor& c)
{
    return FormatText("%d,%d origin %d,%d", c.Row(), c.Column(), c.OriginRow(), c.OriginColumn());
}

} // namespace

TEST(GridValues, AGapHidesTheRowsBelowIt)
{
    xGridValues grid(10, 2);
    FloatMatrix five = Table(1, 1, {{1, 2}, {3, 4}, {5, NoValue}, {7, 8}, {9, 10}});
    grid.SetTable(&five);
    EXPECT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.RowsInUse(1), 5);   // only the first column considered
    FloatMatrix back(1, 1, 1, 1);
    grid.GetTable(back);
    EXPECT_EQ(back, Table(1, 1, {{1, 2}, {3, 4}}));   // keeps its lower bounds
    EXPECT_EQ(grid.Value(3, 0), 7.0f);   // the rows below the gap are still held

    // Full to capacity: the capacity counts.
    FloatMatrix full = Table(0, 0, {{1}, {2}});
    xGridValues small(2, 1);
    small.SetTable(&full);
    EXPECT_EQ(small.RowCount(), 2);
}

TEST(GridValues, GrowsToTheTableNeverShrinksAndReadsEmptyAsOneRow)
{
    xGridValues grid(2, 3);
    FloatMatrix big = Table(5, 5, {{1, 2, 3, 4}, {1, 2, 3, 4}, {1, 2, 3, 4}});
    grid.SetTable(&big);
    FloatMatrix one = Table(0, 0, {{9}});
    grid.SetTable(&one);
    EXPECT_EQ(grid.CapacityRows(), 3);
    EXPECT_EQ(grid.CapacityColumns(), 4);
    EXPECT_EQ(grid.Value(0, 1), NoValue);   // the rest is emptied
    EXPECT_EQ(grid.RowCount(), 0);

    grid.SetTable(nullptr);
    FloatMatrix back(3, 7, 2, 4);
    grid.GetTable(back);
    EXPECT_TRUE(back.SameBounds(FloatMatrix(0, 0, 0, 0)));
    // A table without columns loads as an empty one.
    FloatMatrix noColumns(0, 4, 1, 0);
    grid.SetTable(&noColumns);
    EXPECT_EQ(grid.RowCount(), 0);
    EXPECT_EQ(grid.CapacityRows(), 5);
    // Outside the capacity nothing is read or written.
    grid.SetValue(99, 0, 1.0f);
    EXPECT_EQ(grid.Value(99, 0), NoValue);
    EXPECT_EQ(grid.Value(-1, 0), NoValue);
}

TEST(GridValues, StoringAnEditFollowsTheRowCount)
{
    xGridValues grid(5, 2);
    // The first cell of an empty grid leaves the count at 0, and still tells.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1", ""), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 0);

    SeriesSpy series;
    grid.SetDependentPort(&series);
    FloatMatrix two = Table(0, 0, {{1, 2}, {3, 4}});
    grid.SetTable(&two);
    grid.UpdateDependentSeries();
    EXPECT_EQ(series.calls, (std::vector<std::string>{"data", "pixels", "invalidate"}));
    series.calls.clear();

    // Same text, or a visit whose longer text is the same value: nothing.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1.00e+00", "1.00e+00"), xGridValues::kUnchanged);
    EXPECT_EQ(grid.StoreEdit(0, 0, "1.0000000e+00", "1.00e+00"), xGridValues::kUnchanged);
    // An edit inside the rows in use: stored, the series is not told.
    EXPECT_EQ(grid.StoreEdit(1, 1, "5", "4.00e+00"), xGridValues::kStored);
    EXPECT_EQ(grid.Value(1, 1), 5.0f);
    EXPECT_TRUE(series.calls.empty());
    // Filling the first empty row adds a row.
    grid.StoreEdit(2, 0, "7", "");
    EXPECT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.StoreEdit(2, 1, "8", ""), xGridValues::kRowsChanged);
    EXPECT_EQ(series.rows, 3);
    // Clearing a cell drops the rows below it; under 2 rows the series is cleared.
    series.calls.clear();
    EXPECT_EQ(grid.StoreEdit(1, 0, "", "3.00e+00"), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 1);
    EXPECT_EQ(series.calls, (std::vector<std::string>{"clear", "invalidate"}));
}

TEST(GridValues, ANumberNoFloatHoldsIsRefusedWithANote)
{
    xRecordingPlatform platform;
    xGridValues grid(3, 1);
    FloatMatrix one = Table(0, 0, {{2}});
    grid.SetTable(&one);
    for (const char* text : {"1e39", "-1e400", "inf", "nan"})
        EXPECT_EQ(grid.StoreEdit(0, 0, text, "2.00e+00"), xGridValues::kUnchanged) << text;
    EXPECT_EQ(grid.Value(0, 0), 2.0f);
    EXPECT_EQ(platform.Texts(xPlatform::kNote), std::vector<std::string>(4, "Value can't be converted to float."));
    // Letters are no number and read 0, without a word, as they always did.
    platform.Clear();
    EXPECT_EQ(grid.StoreEdit(0, 0, "abc", "2.00e+00"), xGridValues::kStored);
    EXPECT_EQ(grid.Value(0, 0), 0.0f);
    EXPECT_TRUE(platform.messages.empty());
}

TEST(GridCursor, MovesScrollsAndBeepsAtTheTableEdges)
{
    struct Step {
        xGridCursor::Key key;
        bool moved;
        const char* where;
    };
    auto walk = [](xGridCursor& cursor, std::initializer_list<Step> steps) {
        for (const Step& s : steps) {
            EXPECT_EQ(cursor.Move(s.key), s.moved) << s.where;
            EXPECT_EQ(Where(cursor), s.where);
        }
    };
    xGridCursor cursor(3, 2);   // 3 visible rows, 2 visible columns
    cursor.SetTableSize(5, 3);
    walk(cursor, {{xGridCursor::kUp, false, "0,0 origin 0,0"},
                  {xGridCursor::kLeft, false, "0,0 origin 0,0"},
                  {xGridCursor::kRight, true, "0,1 origin 0,0"},
                  {xGridCursor::kRight, true, "0,1 origin 0,1"},    // last visible column: scroll
                  {xGridCursor::kRight, true, "1,0 origin 0,1"},    // no more columns: next row
                  {xGridCursor::kLeft, true, "1,0 origin 0,0"}});   // scroll back left
    cursor.SetCell(2, 1);
    cursor.SetOrigin(2, 1);
    walk(cursor, {{xGridCursor::kDown, false, "2,1 origin 2,1"},    // the table's last row
                  {xGridCursor::kRight, true, "2,1 origin 2,1"}});  // the last cell: stays
    cursor.SetCell(0, 0);
    walk(cursor, {{xGridCursor::kUp, true, "0,0 origin 1,1"}});

    // A table smaller than the visible cells.
    xGridCursor tiny(5, 3);
    tiny.SetTableSize(2, 1);
    walk(tiny, {{xGridCursor::kDown, true, "1,0 origin 0,0"},
                {xGridCursor::kDown, false, "1,0 origin 0,0"},
                {xGridCursor::kRight, true, "1,0 origin 0,0"}});

}
