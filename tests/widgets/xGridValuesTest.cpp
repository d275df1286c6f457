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

} // namespace

TEST(GridValues, AGapHidesTheRowsBelowIt)
{
    xGridValues grid(10, 2);
    EXPECT_EQ(grid.RowCount(), 0);
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
    EXPECT_EQ(grid.CapacityRows(), 3);
    EXPECT_EQ(grid.CapacityColumns(), 4);
    FloatMatrix one = Table(0, 0, {{9}});
    grid.SetTable(&one);
    EXPECT_EQ(grid.CapacityRows(), 3);
    EXPECT_EQ(grid.CapacityColumns(), 4);
    EXPECT_EQ(grid.Value(0, 1), NoValue);   // the rest is emptied
    EXPECT_EQ(grid.RowCount(), 0);

    grid.SetTable(nullptr);
    FloatMatrix back(3, 7, 2, 4);
    grid.GetTable(back);
    EXPECT_EQ(back.RowLower(), 0);
    EXPECT_EQ(back.RowUpper(), 0);
    EXPECT_EQ(back.ColLower(), 0);
    EXPECT_EQ(back.ColUpper(), 0);
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

TEST(GridValues, TextsOfCellsAndEdits)
{
    EXPECT_EQ(xGridValues::CellText(NoValue), "");
    EXPECT_EQ(xGridValues::CellText(1234.5f), "1.23e+03");
    EXPECT_EQ(xGridValues::EditText(0.25f), "2.5000000e-01");
    EXPECT_EQ(xGridValues::ValueOfText(""), NoValue);
    EXPECT_EQ(xGridValues::ValueOfText("letters"), 0.0f);
    EXPECT_EQ(xGridValues::ValueOfText("3e2m"), 300.0f);
}

TEST(GridValues, StoringAnEditFollowsTheRowCount)
{
    xGridValues grid(5, 2);
    SeriesSpy series;
    grid.SetDependentPort(&series);
    FloatMatrix two = Table(0, 0, {{1, 2}, {3, 4}});
    grid.SetTable(&two);
    grid.UpdateDependentSeries();
    EXPECT_EQ(series.calls, (std::vector<std::string>{"data", "pixels", "invalidate"}));
    series.calls.clear();

    // The field and the cell show the same: nothing happens.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1.00e+00", "1.00e+00"), xGridValues::kUnchanged);
    // A visit: the texts differ, the value is the same.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1.0000000e+00", "1.00e+00"), xGridValues::kUnchanged);
    // An edit inside the rows in use: stored, the series is not told.
    EXPECT_EQ(grid.StoreEdit(1, 1, "5", "4.00e+00"), xGridValues::kStored);
    EXPECT_EQ(grid.Value(1, 1), 5.0f);
    EXPECT_TRUE(series.calls.empty());
    // Filling the first empty row adds a row.
    grid.StoreEdit(2, 0, "7", "");
    EXPECT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.StoreEdit(2, 1, "8", ""), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 3);
    EXPECT_EQ(series.rows, 3);
    // Clearing a cell drops the rows below it; under 2 rows the series is cleared.
    series.calls.clear();
    EXPECT_EQ(grid.StoreEdit(1, 0, "", "3.00e+00"), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 1);
    EXPECT_EQ(series.calls, (std::vector<std::string>{"clear", "invalidate"}));
    // Letters store 0.
    grid.StoreEdit(0, 1, "abc", "2.00e+00");
    EXPECT_EQ(grid.Value(0, 1), 0.0f);
}

TEST(GridValues, ARowCountOfZeroIsAlwaysReported)
{
    xGridValues grid(3, 2);
    // The first cell of an empty grid leaves the count at 0, and still tells.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1", ""), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 0);
}

TEST(GridCursor, MovesScrollsAndBeepsAtTheTableEdges)
{
    xGridCursor cursor(3, 2);   // 3 visible rows, 2 visible columns
    cursor.SetTableSize(5, 3);
    EXPECT_FALSE(cursor.Move(xGridCursor::kUp));
    EXPECT_FALSE(cursor.Move(xGridCursor::kLeft));
    EXPECT_TRUE(cursor.Move(xGridCursor::kRight));   // to column 1
    EXPECT_TRUE(cursor.Move(xGridCursor::kRight));   // last visible column: scroll right
    EXPECT_EQ(cursor.OriginColumn(), 1);
    EXPECT_EQ(cursor.Column(), 1);
    EXPECT_TRUE(cursor.Move(xGridCursor::kRight));   // no more columns: next row, column 0
    EXPECT_EQ(cursor.Row(), 1);
    EXPECT_EQ(cursor.Column(), 0);
    EXPECT_EQ(cursor.OriginColumn(), 1);
    EXPECT_TRUE(cursor.Move(xGridCursor::kLeft));   // scroll back left
    EXPECT_EQ(cursor.OriginColumn(), 0);
    cursor.SetCell(2, 1);
    cursor.SetOrigin(2, 1);
    EXPECT_FALSE(cursor.Move(xGridCursor::kDown));   // the table's last row
    EXPECT_TRUE(cursor.Move(xGridCursor::kRight));   // the last cell: stays
    EXPECT_EQ(cursor.Row(), 2);
    EXPECT_EQ(cursor.Column(), 1);
    cursor.SetCell(0, 0);
    EXPECT_TRUE(cursor.Move(xGridCursor::kUp));   // scroll up
    EXPECT_EQ(cursor.OriginRow(), 1);

    // A table smaller than the visible cells.
    xGridCursor tiny(5, 3);
    tiny.SetTableSize(2, 1);
    EXPECT_TRUE(tiny.Move(xGridCursor::kDown));
    EXPECT_FALSE(tiny.Move(xGridCursor::kDown));
    EXPECT_TRUE(tiny.Move(xGridCursor::kRight));   // stays, column 0 of the last row
    EXPECT_EQ(tiny.Row(), 1);
    EXPECT_EQ(tiny.Column(), 0);
}
