#include "gui/xRecordingPlatform.h"
#include "widgets/xDependentSeries.h"
#include "widgets/xGridCursor.h"
#include "widgets/xGridValues.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

FloatMatrix Table(int rowLower, int colLower, std::initializer_list<std::initializer_list<float>> rows)
{
    const int cols = static_cast<int>(rows.begin()->size());
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
    Texts calls;
    void SetData(const FloatMatrix&) override { calls.push_back("data"); }
    void ComputePixels() override { calls.push_back("pixels"); }
    void Clear() override { calls.push_back("clear"); }
    void InvalidateArea() override { calls.push_back("invalidate"); }
};

} // namespace

TEST(GridValues, AGapHidesTheRowsBelowItAndTheGridGrowsToTheTable)
{
    xGridValues grid(10, 2);
    FloatMatrix five = Table(1, 1, {{1, 2}, {3, 4}, {5, NoValue}, {7, 8}, {9, 10}});
    grid.SetTable(&five);
    EXPECT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.RowsInUse(1), 5);   // only the first column considered
    FloatMatrix back(1, 1, 1, 1);
    grid.GetTable(back);
    EXPECT_EQ(back, Table(1, 1, {{1, 2}, {3, 4}}));   // keeps its lower bounds

    // Never shrinks; empty reads as one row; outside the capacity nothing is
    // read or written.
    xGridValues small(2, 3);
    FloatMatrix big = Table(5, 5, {{1, 2, 3, 4}, {1, 2, 3, 4}, {1, 2, 3, 4}});
    small.SetTable(&big);
    EXPECT_EQ(small.RowCount(), 3);   // full to capacity: the capacity counts
    FloatMatrix one = Table(0, 0, {{9}});
    small.SetTable(&one);
    EXPECT_EQ(small.CapacityColumns(), 4);
    EXPECT_EQ(small.Value(0, 1), NoValue);   // the rest is emptied
    small.SetTable(nullptr);
    small.GetTable(back);
    EXPECT_TRUE(back.SameBounds(FloatMatrix(0, 0, 0, 0)));
    FloatMatrix noColumns(0, 4, 1, 0);   // loads as an empty table
    small.SetTable(&noColumns);
    EXPECT_EQ(small.RowCount(), 0);
    EXPECT_EQ(small.CapacityRows(), 5);
    small.SetValue(99, 0, 1.0f);
    EXPECT_EQ(small.Value(99, 0), NoValue);
}

TEST(GridValues, StoringAnEditFollowsTheRowCountAndRefusesWhatNoFloatHolds)
{
    xRecordingPlatform platform;
    xGridValues grid(5, 2);
    // The first cell of an empty grid leaves the count at 0, and still tells.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1", ""), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 0);

    SeriesSpy series;
    grid.SetDependentPort(&series);
    FloatMatrix two = Table(0, 0, {{1, 2}, {3, 4}});
    grid.SetTable(&two);
    grid.UpdateDependentSeries();
    EXPECT_EQ(series.calls, (Texts{"data", "pixels", "invalidate"}));
    series.calls.clear();
    // Same text, or a visit whose longer text is the same value: nothing.
    EXPECT_EQ(grid.StoreEdit(0, 0, "1.00e+00", "1.00e+00"), xGridValues::kUnchanged);
    EXPECT_EQ(grid.StoreEdit(0, 0, "1.0000000e+00", "1.00e+00"), xGridValues::kUnchanged);
    for (const char* text : {"1e39", "-1e400", "inf", "nan"})
        EXPECT_EQ(grid.StoreEdit(0, 0, text, "1.00e+00"), xGridValues::kUnchanged) << text;
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts(4, "Value can't be converted to float."));
    // Letters are no number and read 0, without a word, as they always did.
    EXPECT_EQ(grid.StoreEdit(1, 1, "abc", "4.00e+00"), xGridValues::kStored);
    EXPECT_EQ(grid.Value(1, 1), 0.0f);
    EXPECT_EQ(platform.messages.size(), 4u);
    EXPECT_TRUE(series.calls.empty());   // inside the rows in use: not told
    // Clearing a cell drops the rows below it; under 2 rows the series is cleared.
    EXPECT_EQ(grid.StoreEdit(1, 0, "", "3.00e+00"), xGridValues::kRowsChanged);
    EXPECT_EQ(grid.RowCount(), 1);
    EXPECT_EQ(series.calls, (Texts{"clear", "invalidate"}));
}

TEST(GridCursor, MovesScrollsAndBeepsAtTheTableEdges)
{
    struct Step {
        xGridCursor::Key key;
        bool moved;
        const char* where;   // the cell in view, then the origin
    };
    auto walk = [](xGridCursor& c, std::initializer_list<Step> steps) {
        for (const Step& s : steps) {
            EXPECT_EQ(c.Move(s.key), s.moved) << s.where;
            EXPECT_EQ(FormatText("%d,%d origin %d,%d", c.Row(), c.Column(), c.OriginRow(), c.OriginColumn()),
                      s.where);
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
