#ifndef TOLVAD_WIDGETS_XEDGRID_H
#define TOLVAD_WIDGETS_XEDGRID_H

#include "widgets/xCommandView.h"

#include <QString>

#include <string>
#include <vector>

class FloatArray;
class FloatMatrix;
class QLabel;
class QLineEdit;
class xEditField;

// A grid of a fixed number of rows and columns without scrolling, one text
// field a cell, with optional row and column labels (labelStyle: 1 rows,
// 2 columns, 3 both). Numbers of a million or more show as "%14.2f", others as
// "%g", right-aligned; cells read back with atof, and a number no float holds
// is refused with a note. The frame given is the least: cells widen to the
// widest number of their formats and labels to their texts, and the grid grows
// with them.
class xEdGrid : public xCommandView {
public:
    enum LabelStyle { kRowLabels = 1, kColumnLabels = 2 };

    xEdGrid(QWidget* parent, const QRect& frame, int rows, int columns, int labelStyle);

    int Rows() const { return rows; }
    int Columns() const { return columns; }

    // The visible part of the table, from its lowest row and column.
    void SetTable(const FloatMatrix* table);
    // An empty format means formatDefault.
    void SetCell(int row, int column, float value, const std::string& format);
    // The cell's number; 0 when it can't be read.
    float GetCell(int row, int column) const;
    // Read the cells into what overlaps; true if any number changed.
    bool GetTable(FloatMatrix& matrix) const;
    bool GetRow(int row, FloatArray& values) const;
    bool GetArray(FloatArray& values) const;   // the first column

    // The labels must match the rows (columns) in number, else a warning and no label.
    void SetRowLabels(const std::vector<std::string>& labels);
    void SetColumnLabels(const std::vector<std::string>& labels);

    QLineEdit* CellField(int row, int column) const;
    std::string RowLabel(int row) const;
    std::string ColumnLabel(int column) const;

    std::string formatDefault = "%12.5g";
    int labelStyle;

protected:
    void Layout() override;

private:
    static std::string TableText(float value);
    // False, with a note and value untouched, for a number no float holds.
    bool ReadCell(int row, int column, float& value) const;
    // Keeps the widest text a format gives, for the width of the cells.
    void NoteFormat(const std::string& format);
    void DrawRowLabels(const std::vector<std::string>& labels);
    void DrawColLabels(const std::vector<std::string>& labels);

    int rows;
    int columns;
    std::vector<xEditField*> cells;
    std::vector<QLabel*> rowLabels;
    std::vector<QLabel*> columnLabels;
    QSize givenSize;
    QString widestNumber;
    bool laying = false;
};

#endif
