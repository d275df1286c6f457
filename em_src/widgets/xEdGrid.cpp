#include "widgets/xEdGrid.h"

#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xGridValues.h"
#include "widgets/xNumberText.h"

#include <QLabel>
#include <QLineEdit>

#include <cmath>

namespace {
const int kLabelWidth = 60;
const int kLabelHeight = 20;
} // namespace

xEdGrid::xEdGrid(QWidget* parent, const QRect& frame, int rowCount, int columnCount, int style)
    : xCommandView(parent), labelStyle(style), rows(std::max(rowCount, 0)), columns(std::max(columnCount, 0))
{
    setGeometry(frame);
    int left = (labelStyle & kRowLabels) ? kLabelWidth : 0;
    int top = (labelStyle & kColumnLabels) ? kLabelHeight : 0;
    int cellWidth = columns ? std::max(20, (frame.width() - left) / columns) : 0;
    int cellHeight = rows ? std::max(18, std::min(23, (frame.height() - top) / rows)) : 0;
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            auto* cell = new QLineEdit(this);
            cell->setGeometry(left + c * cellWidth, top + r * cellHeight, cellWidth, cellHeight);
            cells.push_back(cell);
        }
    if (labelStyle & kRowLabels)
        for (int r = 0; r < rows; ++r) {
            auto* label = new QLabel(this);
            label->setGeometry(0, top + r * cellHeight, kLabelWidth - 4, cellHeight);
            rowLabels.push_back(label);
        }
    if (labelStyle & kColumnLabels)
        for (int c = 0; c < columns; ++c) {
            auto* label = new QLabel(this);
            label->setAlignment(Qt::AlignCenter);
            label->setGeometry(left + c * cellWidth, 0, cellWidth, kLabelHeight);
            columnLabels.push_back(label);
        }
    // The default labelling numbers from 0.
    std::vector<std::string> numbers;
    for (int r = 0; r < rows; ++r)
        numbers.push_back(std::to_string(r));
    DrawRowLabels(numbers);
    numbers.clear();
    for (int c = 0; c < columns; ++c)
        numbers.push_back(std::to_string(c));
    DrawColLabels(numbers);
}

QLineEdit* xEdGrid::CellField(int row, int column) const
{
    if (row < 0 || column < 0 || row >= rows || column >= columns)
        return nullptr;
    return cells[static_cast<size_t>(row) * columns + column];
}

std::string xEdGrid::TableText(float value)
{
    if (value == NoValue)
        return std::string();
    const char* format = std::fabs(value) >= 1000000.0f ? "%14.2f" : "%g";
    return xNumberText::Strip(xNumberText::Format(format, value));
}

void xEdGrid::SetTable(const FloatMatrix* table)
{
    if (!table)
        return;
    for (int r = 0; r < std::min(rows, table->Rows()); ++r)
        for (int c = 0; c < std::min(columns, table->Cols()); ++c)
            CellField(r, c)->setText(QString::fromStdString(
                TableText(table->Row(table->RowLower() + r)[table->ColLower() + c])));
}

void xEdGrid::SetCell(int row, int column, float value, const std::string& format)
{
    QLineEdit* cell = CellField(row, column);
    if (!cell)
        return;
    std::string text;
    if (value != NoValue)
        text = xNumberText::Strip(xNumberText::Format(format.empty() ? formatDefault : format, value));
    cell->setText(QString::fromStdString(text));
}

float xEdGrid::GetCell(int row, int column) const
{
    QLineEdit* cell = CellField(row, column);
    return cell ? xNumberText::Atof(cell->text().toStdString()) : 0.0f;
}

bool xEdGrid::GetTable(FloatMatrix& matrix) const
{
    bool changed = false;
    for (int r = 0; r < std::min(rows, matrix.Rows()); ++r) {
        FloatArray row = matrix.Row(matrix.RowLower() + r);
        for (int c = 0; c < std::min(columns, matrix.Cols()); ++c) {
            float number = GetCell(r, c);
            if (row[matrix.ColLower() + c] != number) {
                row[matrix.ColLower() + c] = number;
                changed = true;
            }
        }
    }
    return changed;
}

bool xEdGrid::GetRow(int row, FloatArray& values) const
{
    // A row the grid doesn't have reads nothing, rather than zeroes.
    if (row < 0 || row >= rows)
        return false;
    bool changed = false;
    for (int c = 0; c < std::min(columns, static_cast<int>(values.Size())); ++c) {
        float number = GetCell(row, c);
        if (values[values.Lower() + c] != number) {
            values[values.Lower() + c] = number;
            changed = true;
        }
    }
    return changed;
}

bool xEdGrid::GetArray(FloatArray& values) const
{
    bool changed = false;
    for (int r = 0; r < std::min(rows, static_cast<int>(values.Size())); ++r) {
        float number = GetCell(r, 0);
        if (values[values.Lower() + r] != number) {
            values[values.Lower() + r] = number;
            changed = true;
        }
    }
    return changed;
}

void xEdGrid::SetRowLabels(const std::vector<std::string>& labels)
{
    DrawRowLabels(labels);
}

void xEdGrid::SetColumnLabels(const std::vector<std::string>& labels)
{
    DrawColLabels(labels);
}

void xEdGrid::DrawRowLabels(const std::vector<std::string>& labels)
{
    if (!(labelStyle & kRowLabels))
        return;
    if (static_cast<int>(labels.size()) != rows) {
        PostWarning("xEdGrid::DrawRowLabels -> no of labels does not correspond to number of rows...");
        return;
    }
    for (int r = 0; r < rows; ++r)
        rowLabels[r]->setText(QString::fromStdString(labels[r]));
}

void xEdGrid::DrawColLabels(const std::vector<std::string>& labels)
{
    if (!(labelStyle & kColumnLabels))
        return;
    if (static_cast<int>(labels.size()) != columns) {
        PostWarning("xEdGrid::DrawColLabels -> no of labels does not correspond to number of cols...");
        return;
    }
    for (int c = 0; c < columns; ++c)
        columnLabels[c]->setText(QString::fromStdString(labels[c]));
}

std::string xEdGrid::RowLabel(int row) const
{
    return row >= 0 && row < static_cast<int>(rowLabels.size()) ? rowLabels[row]->text().toStdString()
                                                                 : std::string();
}

std::string xEdGrid::ColumnLabel(int column) const
{
    return column >= 0 && column < static_cast<int>(columnLabels.size())
               ? columnLabels[column]->text().toStdString()
               : std::string();
}
