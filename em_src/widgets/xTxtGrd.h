#ifndef TOLVAD_WIDGETS_XTXTGRD_H
#define TOLVAD_WIDGETS_XTXTGRD_H

#include "widgets/xCommandView.h"

#include <QPoint>

#include <string>
#include <vector>

class FloatMatrix;
class QLabel;
class QScrollBar;

// A scrolling grid that shows a float table through a fixed set of visible
// cells: only the visible cells exist as controls, and scrolling rewrites
// them. scrollOrigin holds the table's column (x) and row (y) shown in the top
// left cell; each change of it is sent up as command 3333 with the origin.
// Cells are parted by one line of the style's grid colour, numbers stand
// right-aligned, a scroll bar shows only while the table passes the visible
// cells on its axis, and the mouse wheel scrolls. Sizes of labels and bars
// come from the font and the style; the frame given is the least, widened
// until a cell shows its widest number whole.
class xTxtGrd : public xCommandView {
public:
    enum Command { kScrolled = 3333 };
    // Scroll events of a bar.
    enum ScrollKind { kLineBack = 1, kLineForward = 2, kPageBack = 3, kPageForward = 4, kThumb = 5 };

    xTxtGrd(QWidget* parent, const QRect& frame, int visibleRows, int visibleColumns,
            bool wantColumnLabels, bool wantRowLabels, FloatMatrix* table);
    ~xTxtGrd() override;

    virtual void SetCellText(const std::string& text, int row, int column);
    virtual void GetTable(FloatMatrix& matrix) const;
    // Moves the origin (x column, y row), clamped to the table.
    virtual void ScrollTo(QPoint origin);

    void AddScrollBars();
    // One scroll event on an axis; thumb is the bar's position for kThumb.
    void Scroll(Qt::Orientation axis, int kind, int thumb = 0);

    QPoint ScrollOrigin() const { return scrollOrigin; }
    int VisibleRows() const { return visibleRows; }
    int VisibleColumns() const { return visibleColumns; }
    // The text a visible cell shows.
    std::string CellText(int row, int column) const;
    QLabel* Cell(int row, int column) const;
    QScrollBar* HorizontalBar() const { return horizontalBar; }
    QScrollBar* VerticalBar() const { return verticalBar; }
    const std::vector<QLabel*>& ColumnLabels() const { return columnLabels; }
    void SetCellFont(const QFont& font);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    // The table's size and numbers as the grid shows them.
    virtual int TableRows() const;
    virtual int TableColumns() const;
    virtual float TableValue(int row, int column) const;
    // Writes all visible cells, then repaints once.
    void WriteVisibleCells();
    void SetCellBackground(int row, int column, const QColor& colour);
    // The visible cell under a point of the grid, false when none.
    bool CellAt(const QPoint& point, int& row, int& column) const;
    // Sets the bars' ranges and positions from the table and the origin, and
    // shows those that are needed.
    void SyncBars();
    // The cells have moved or changed size.
    virtual void CellsMoved() {}

    // Sizes the cells to the frame, and the frame to the cells' numbers.
    void Layout() override;

    FloatMatrix* table;
    QPoint scrollOrigin;

private:
    // The least size that shows every cell's widest number and the labels whole.
    QSize LeastSize() const;
    // Shows each bar while its axis has more than the visible cells.
    bool ShowNeededBars();
    void BuildLabels();
    void ScrollLabels();
    void DeleteLabels();

    int visibleRows;
    int visibleColumns;
    bool wantRowLabels;
    bool wantColumnLabels;
    QScrollBar* horizontalBar = nullptr;
    QScrollBar* verticalBar = nullptr;
    std::vector<QLabel*> columnLabels;
    std::vector<QLabel*> cells;
    // The area of the cells, with the lines between them.
    QRect cellArea;
    // What the wheel turned that didn't make a whole row yet.
    int wheelRemainder = 0;
    bool laying = false;
};

#endif
