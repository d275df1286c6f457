#ifndef TOLVAD_WIDGETS_XGRIDCURSOR_H
#define TOLVAD_WIDGETS_XGRIDCURSOR_H

// Where the edited cell of a scrolling grid goes on a key: the origin (the
// table's row and column in the top left cell) and the cell's visible place.
// The arrow keys step: running into the edge of the visible cells they
// scroll; at the edge of the table they beep, except Right, which then stays.
// The page and end keys jump as in a table view, scrolling as little as shows
// the new cell, and stop quietly at the table's edges: a page up or down,
// Home and End to the first and last column of the row, and with Control to
// the first and last cell of the table.
class xGridCursor {
public:
    enum Key { kRight, kLeft, kDown, kUp, kPageUp, kPageDown, kHome, kEnd, kFirstCell, kLastCell };

    xGridCursor(int visibleRows, int visibleColumns);

    void SetTableSize(int rows, int columns);
    void SetOrigin(int row, int column);
    void SetCell(int row, int column);

    // Moves; false when the move runs into the table's edge and beeps.
    bool Move(Key key);

    int OriginRow() const { return originRow; }
    int OriginColumn() const { return originColumn; }
    int Row() const { return row; }
    int Column() const { return column; }
    // The last visible place that holds a cell of the table.
    int LastVisibleRow() const;
    int LastVisibleColumn() const;
    // The largest origin that still fills the visible cells, never below 0.
    int MaxOriginRow() const;
    int MaxOriginColumn() const;

private:
    // Goes to a cell of the table, scrolling only as far as shows it.
    void JumpTo(int tableRow, int tableColumn);

    int visibleRows;
    int visibleColumns;
    int tableRows = 0;
    int tableColumns = 0;
    int originRow = 0;
    int originColumn = 0;
    int row = 0;
    int column = 0;
};

#endif
