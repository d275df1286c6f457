#ifndef TOLVAD_WIDGETS_XFLTGRD_H
#define TOLVAD_WIDGETS_XFLTGRD_H

#include "widgets/xGridCursor.h"
#include "widgets/xGridValues.h"
#include "widgets/xTxtGrd.h"

#include <memory>

class QFrame;
class x2DGLine;
class xLineSeries;

// The visible place of a cell in a grid; -1 for none.
struct xCellPlace {
    int row = -1;
    int column = -1;
    bool IsCell() const { return row >= 0 && column >= 0; }
};

// The editing grid: it owns its numbers (growing, never shrinking), shows the
// rows in use and the first empty row white and the rest grey, and keeps one
// cell as the edited one, framed in the style's highlight. The edit itself happens in a field of the
// view above, which the grid tells by command: 9441 when the edit of a cell
// starts, 9442 when it ends, both with the cell's place as data; 9400 with the
// grid when the rows in use change.
class xFltGrd : public xTxtGrd {
public:
    enum Command { kNotice = 9440, kEditStarts = 9441, kEditEnds = 9442, kRowsChanged = 9400 };

    xFltGrd(QWidget* parent, const QRect& frame, int visibleRows, int visibleColumns, int capacityRows,
            int capacityColumns);
    ~xFltGrd() override;

    void SetTable(const FloatMatrix* table, bool redraw);
    void GetTable(FloatMatrix& matrix) const override;
    int RowsInUse(int columnLimit) const { return values.RowsInUse(columnLimit); }
    int RowCount() const { return values.RowCount(); }
    void SetDependentPort(xDependentSeries* series);
    // A line of a graph port as the series (null: none).
    void SetDependentPort(x2DGLine* line);

    // Ends the edit of the present cell (9442) and starts one on this cell
    // (9441); notify false moves the frame without telling anyone.
    virtual void SetEditCell(int row, int column, bool notify);
    // Ends the edit, if any.
    void EndEdit();
    const xCellPlace& EditCell() const { return editCell; }
    // The cell being edited or, with none, the one whose edit ended last;
    // none before the first edit.
    const xCellPlace& LastEditCell() const { return editCell.IsCell() ? editCell : endedCell; }
    QFrame* EditFrame() const { return editFrame; }

    void SetCellText(const std::string& text, int row, int column) override;
    void ScrollTo(QPoint origin) override;

    // The moves of the keys; false when it beeped.
    bool Key(xGridCursor::Key key);
    // Repaint the backgrounds at the next cell write.
    void SetRecolour() { recolour = true; }
    // While inactive a press of the mouse goes to the view first.
    void SetActive(bool on) { active = on; }
    bool IsActive() const { return active; }

    xGridValues& Values() { return values; }
    const xGridValues& Values() const { return values; }

protected:
    int TableRows() const override { return values.CapacityRows(); }
    int TableColumns() const override { return values.CapacityColumns(); }
    float TableValue(int row, int column) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void CellsMoved() override;

private:
    void Recolour();
    void PlaceEditFrame();
    void ColourEditFrame();

    QFrame* editFrame;
    xCellPlace editCell;
    xCellPlace endedCell;
    bool recolour = true;
    bool active = true;
    xGridValues values;
    std::unique_ptr<xLineSeries> lineSeries;
};

#endif
