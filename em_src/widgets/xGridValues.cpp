#include "widgets/xGridValues.h"

#include "gui/xPlatform.h"
#include "widgets/xDependentSeries.h"
#include "widgets/xNumberText.h"

#include <algorithm>

xGridValues::xGridValues(int capacityRows, int capacityColumns)
    : values(0, std::max(capacityRows, 1) - 1, 0, std::max(capacityColumns, 1) - 1)
{
    SetTable(nullptr);
}

int xGridValues::RowsInUse(int columnLimit) const
{
    int columns = values.Cols();
    if (columnLimit > 0)
        columns = std::min(columns, columnLimit);
    for (int r = 0; r < values.Rows(); ++r)
        for (int c = 0; c < columns; ++c)
            if (values.Row(r)[c] == NoValue)
                return r;
    return values.Rows();
}

void xGridValues::SetTable(const FloatMatrix* table)
{
    if (table) {
        int rows = std::max(values.Rows(), table->Rows());
        int columns = std::max(values.Cols(), table->Cols());
        if (rows != values.Rows() || columns != values.Cols())
            values.Resize(0, rows - 1, 0, columns - 1);
    }
    for (int r = 0; r < values.Rows(); ++r)
        std::fill_n(values.Element(r, 0), values.Cols(), NoValue);
    if (table && table->Cols() > 0) {
        for (int r = 0; r < table->Rows(); ++r) {
            const FloatArray& row = table->Row(table->RowLower() + r);
            std::copy_n(&row[table->ColLower()], table->Cols(), values.Element(r, 0));
        }
    }
    rowsInUse = RowsInUse(0);
}

void xGridValues::GetTable(FloatMatrix& matrix) const
{
    int rows = RowsInUse(0);
    if (rows == 0) {
        matrix.Resize(0, 0, 0, 0);
        *matrix.Element(0, 0) = 0.0f;
        return;
    }
    int rowLower = matrix.RowLower();
    int colLower = matrix.ColLower();
    if (matrix.Rows() != rows || matrix.Cols() != values.Cols())
        matrix.Resize(rowLower, rowLower + rows - 1, colLower, colLower + values.Cols() - 1);
    for (int r = 0; r < rows; ++r)
        std::copy_n(&values.Row(r)[0], values.Cols(), matrix.Element(rowLower + r, colLower));
}

float xGridValues::Value(int row, int column) const
{
    if (row < 0 || column < 0 || row >= values.Rows() || column >= values.Cols())
        return NoValue;
    return values.Row(row)[column];
}

void xGridValues::SetValue(int row, int column, float value)
{
    if (row < 0 || column < 0 || row >= values.Rows() || column >= values.Cols())
        return;
    *values.Element(row, column) = value;
}

std::string xGridValues::CellText(float value)
{
    return value == NoValue ? std::string() : xNumberText::Format("%5.2e", value);
}

std::string xGridValues::EditText(float value)
{
    return value == NoValue ? std::string() : xNumberText::Format("%10.7e", value);
}

bool xGridValues::ValueOfText(const std::string& text, float& value)
{
    if (text.empty()) {
        value = NoValue;
        return true;
    }
    return xNumberText::ReadFloat(text, value);
}

xGridValues::EditResult xGridValues::StoreEdit(int row, int column, const std::string& editText,
                                               const std::string& cellText)
{
    if (editText == cellText)
        return kUnchanged;
    float value = 0.0f;
    if (!ValueOfText(editText, value)) {
        // Nothing is stored that no file could hold.
        PostNote("%s", xNumberText::kBeyondFloatNote);
        return kUnchanged;
    }
    if (Value(row, column) == value)
        return kUnchanged;
    SetValue(row, column, value);
    int rows = RowsInUse(0);
    if (rows != rowsInUse || rowsInUse == 0) {
        rowsInUse = rows;
        UpdateDependentSeries();
        return kRowsChanged;
    }
    return kStored;
}

void xGridValues::UpdateDependentSeries()
{
    if (!dependentPort)
        return;
    FloatMatrix table(0, 0, 0, 0);
    GetTable(table);
    if (table.Rows() < 2)
        dependentPort->Clear();
    else {
        dependentPort->SetData(table);
        dependentPort->ComputePixels();
    }
    dependentPort->InvalidateArea();
}
