#ifndef TOLVAD_WIDGETS_XGRIDVALUES_H
#define TOLVAD_WIDGETS_XGRIDVALUES_H

#include "numeric/FloatMatrix.h"

#include <string>

class xDependentSeries;

// The reserved number of an empty grid cell; it shows as an empty text.
const float NoValue = -32767.0f;

// The numbers behind an editing grid: a table with bounds from 0 that grows
// to what it is given and never shrinks, the count of rows in use, and the
// series that follows the table. It knows nothing of the screen.
class xGridValues {
public:
    enum EditResult { kUnchanged, kStored, kRowsChanged };

    xGridValues(int capacityRows, int capacityColumns);

    // Rows from the top down to the first one with NoValue in one of the first
    // columnLimit columns (0: all); the capacity when none has.
    int RowsInUse(int columnLimit) const;
    // The count of the last load or row change.
    int RowCount() const { return rowsInUse; }

    // Loads a table (null: empties all), its first row and column going to 0,
    // and recounts the rows in use. The series is not told; see
    // UpdateDependentSeries.
    void SetTable(const FloatMatrix* table);
    // The rows in use and all columns, keeping the matrix's lower bounds; an
    // empty grid reads as the one cell 0..0 by 0..0.
    void GetTable(FloatMatrix& matrix) const;

    int CapacityRows() const { return values.Rows(); }
    int CapacityColumns() const { return values.Cols(); }
    // Cells outside the capacity read NoValue and take nothing.
    float Value(int row, int column) const;
    void SetValue(int row, int column, float value);

    // The texts of a cell in the grid and in the edit field.
    static std::string CellText(float value);
    static std::string EditText(float value);
    // The number an edited text stands for: NoValue for an empty text, else
    // atof's number; false for a number beyond a float.
    static bool ValueOfText(const std::string& text, float& value);

    // Stores the edit of a cell whose field now holds editText while the cell
    // shows cellText. A new count of rows in use (or a count of 0) is kept and
    // handed to the series. A number beyond a float is refused with a note.
    EditResult StoreEdit(int row, int column, const std::string& editText, const std::string& cellText);

    // Whether a visible row is offered for typing (white) when the table's
    // row originRow stands at the top: rows in use and the first empty one.
    bool IsWhiteRow(int visibleRow, int originRow) const { return visibleRow <= rowsInUse - originRow; }

    void SetDependentPort(xDependentSeries* series) { dependentPort = series; }
    xDependentSeries* DependentPort() const { return dependentPort; }
    // Hands the table to the series: fewer than 2 rows clear it.
    void UpdateDependentSeries();

private:
    FloatMatrix values;
    int rowsInUse = 0;
    xDependentSeries* dependentPort = nullptr;
};

#endif
