#ifndef TOLVAD_TESTS_CARDS_CARDTESTKIT_H
#define TOLVAD_TESTS_CARDS_CARDTESTKIT_H

#include "cards/xEMTableCardLogic.h"
#include "frame/xEMEditDesc.h"
#include "widgets/xGridValues.h"

#include <algorithm>
#include <vector>

// What the cards' logic meets without a screen: the link above it, which
// keeps the commands with what they carry, and grids made of their numbers alone.
namespace CardTestKit {

class CommandRecorder : public xCommandTarget {
public:
    void DoCommand(long command, void* data) override
    {
        commands.push_back(command);
        if (command == xEMEditDesc::kResize)
            counts.push_back(*static_cast<int*>(data));
        if (command == xEMEditDesc::kCopySystem)
            records.push_back(data);
    }
    std::vector<long> commands;
    std::vector<int> counts;              // of 9401
    std::vector<const void*> records;     // of 9407
};

class TestGrid : public xEMTableCardLogic::Grid {
public:
    TestGrid(int rows, int columns) : values(rows, columns) {}
    void GetTable(FloatMatrix& matrix) const override { values.GetTable(matrix); }
    void SetTable(const FloatMatrix& table, bool redraw) override
    {
        // As the grid on screen does: the plot follows the table.
        values.SetTable(&table);
        values.UpdateDependentSeries();
        redrawn = redraw;
    }
    int RowCount() const override { return values.RowCount(); }

    xGridValues values;
    bool redrawn = false;
};

// The table as a grid reads it: rows and columns from 0.
inline FloatMatrix FromRowZero(const FloatMatrix& table)
{
    FloatMatrix moved(0, table.Rows() - 1, 0, table.Cols() - 1);
    std::copy_n(table.Data(), table.Total(), moved.Data());
    return moved;
}

} // namespace CardTestKit

#endif
