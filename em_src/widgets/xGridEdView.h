#ifndef TOLVAD_WIDGETS_XGRIDEDVIEW_H
#define TOLVAD_WIDGETS_XGRIDEDVIEW_H

#include "widgets/xCommandView.h"

#include <string>

class FloatMatrix;
class QLabel;
class x2DGLine;
class xDependentSeries;
class xEditField;
class xFltGrd;

// The table control of the cards: a strip with the edited cell's position and
// one edit field over an editing grid with scroll bars. Keys typed in the
// field move the edit through the grid (the arrows, Tab, Return, the page
// keys, Home and End); an edit is stored in the grid when the cell is left. Row count changes go on to the card as 9400 with the view as
// data, scrolling as 3333.
class xGridEdView : public xCommandView {
public:
    enum Command { kFocusIn = 9980, kFocusOut = 9981 };

    xGridEdView(QWidget* card, const QRect& frame, int visibleRows, int visibleColumns, int capacityRows,
                int capacityColumns, const FloatMatrix* table = nullptr);

    void SetTable(const FloatMatrix* table, bool redraw);
    void GetTable(FloatMatrix& matrix) const;
    int RowsInUse(int columnLimit) const;
    int RowCount() const;
    void SetDependentPort(xDependentSeries* series);
    void SetDependentPort(x2DGLine* line);
    void SetFont(const QFont& font);

    void DoCommand(long command, void* data) override;

    xFltGrd* Grid() const { return grid; }
    xEditField* EditField() const { return editField; }
    QLabel* PositionLabel() const { return positionLabel; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // The strip sized to the font, the grid below it; the view grows to hold both.
    void Layout() override;

private:
    void StartEdit(int row, int column);
    void StoreEdit(int row, int column);
    void Activate(bool on);

    xFltGrd* grid;
    QLabel* positionLabel;
    xEditField* editField;
    bool laying = false;
};

#endif
