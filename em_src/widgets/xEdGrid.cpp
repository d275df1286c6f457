#include "widgets/xEdGrid.h"

#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xEditField.h"
#include "widgets/xGridValues.h"
#include "widgets/xNumberText.h"

#include <QLabel>
#include <QLineEdit>

#include <algorithm>

#include <cmath>

namespace {
// The least room of the labels; they grow with their texts and the font.
const int kLabelWidth = 60;
const int kLabelHeight = 20;
const int kLabelGap = 4;
} // namespace

xEdGrid::xEdGrid(QWidget* parent, const QRect& frame, int rowCount, int columnCount, int style)
    : xCommandView(parent), labelStyle(style), rows(std::max(rowCount, 0)), columns(std::max(columnCount, 0)),
      givenSize(frame.size())
{
    move(frame.topLeft());
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            auto* cell = new xEditField(this, 0, 0, 0);
            cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            cells.push_back(cell);
        }
    if (labelStyle & kRowLabels)
        for (int r = 0; r < rows; ++r)
            rowLabels.push_back(new QLabel(this));
    if (labelStyle & kColumnLabels)
        for (int c = 0; c < columns; ++c) {
            auto* label = new QLabel(this);
            label->setAlignment(Qt::AlignCenter);
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
    Layout();
}

void xEdGrid::NoteFormat(const std::string& format)
{
    const QString widest = QString::fromStdString(xNumberText::Strip(xNumberText::WidestText(format)));
    if (widest.size() > widestNumber.size())
        widestNumber = widest;
}

void xEdGrid::Layout()
{
    if (laying)
        return;
    laying = true;
    NoteFormat("%g");
    NoteFormat("%14.2f");
    NoteFormat(formatDefault);
    int labelWidth = kLabelWidth;
    for (QLabel* label : rowLabels)
        labelWidth = std::max(labelWidth, label->sizeHint().width() + kLabelGap);
    int labelHeight = kLabelHeight;
    int labelColumn = 0;
    for (QLabel* label : columnLabels) {
        labelHeight = std::max(labelHeight, label->sizeHint().height());
        labelColumn = std::max(labelColumn, label->sizeHint().width());
    }
    const int left = (labelStyle & kRowLabels) ? labelWidth : 0;
    const int top = (labelStyle & kColumnLabels) ? labelHeight : 0;
    // A cell shows the widest number of its formats and its column's label
    // whole, and is as tall as its font needs.
    int cellWidth = 0, cellHeight = 0;
    if (!cells.empty()) {
        const xEditField* sample = cells.front();
        cellWidth = std::max({20, (givenSize.width() - left) / columns, sample->WidthFor(widestNumber), labelColumn});
        cellHeight = std::max(18, std::min(23, (givenSize.height() - top) / rows));
        cellHeight = sample->HeightFor(cellHeight);
    }
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            CellField(r, c)->setGeometry(left + c * cellWidth, top + r * cellHeight, cellWidth, cellHeight);
    for (int r = 0; r < static_cast<int>(rowLabels.size()); ++r)
        rowLabels[r]->setGeometry(0, top + r * cellHeight, left - kLabelGap, cellHeight);
    for (int c = 0; c < static_cast<int>(columnLabels.size()); ++c)
        columnLabels[c]->setGeometry(left + c * cellWidth, 0, cellWidth, top);
    resize(std::max(givenSize.width(), left + columns * cellWidth),
           std::max(givenSize.height(), top + rows * cellHeight));
    laying = false;
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
    const std::string& used = format.empty() ? formatDefault : format;
    if (value != NoValue)
        text = xNumberText::Strip(xNumberText::Format(used, value));
    cell->setText(QString::fromStdString(text));
    const QString before = widestNumber;
    NoteFormat(used);
    if (widestNumber != before)
        Layout();
}

bool xEdGrid::ReadCell(int row, int column, float& value) const
{
    QLineEdit* cell = CellField(row, column);
    if (!cell)
        return false;
    if (!xNumberText::ReadFloat(cell->text().toStdString(), value)) {
        PostNote("%s", xNumberText::kBeyondFloatNote);
        return false;
    }
    return true;
}

float xEdGrid::GetCell(int row, int column) const
{
    float value = 0.0f;
    ReadCell(row, column, value);
    return value;
}

bool xEdGrid::GetTable(FloatMatrix& matrix) const
{
    bool changed = false;
    for (int r = 0; r < std::min(rows, matrix.Rows()); ++r) {
        FloatArray row = matrix.Row(matrix.RowLower() + r);
        for (int c = 0; c < std::min(columns, matrix.Cols()); ++c) {
            float number = row[matrix.ColLower() + c];
            if (ReadCell(r, c, number) && row[matrix.ColLower() + c] != number) {
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
        float number = values[values.Lower() + c];
        if (ReadCell(row, c, number) && values[values.Lower() + c] != number) {
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
        float number = values[values.Lower() + r];
        if (ReadCell(r, 0, number) && values[values.Lower() + r] != number) {
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
    Layout();
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
    Layout();
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
