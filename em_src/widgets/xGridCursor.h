#ifndef TOLVAD_WIDGETS_XGRIDCURSOR_H
#define TOLVAD_WIDGETS_XGRIDCURSOR_H

// Where the edited cell of a scrolling grid goes on a key: the origin (the
// table's row and column in the top left cell) and the cell's visible place.
// Keys that run into the edge of the visible cells scroll; at the edge of the
// table they beep, except Right, which then stays.
class xGridCursor {
public:
    enum Key { kRight, kLeft, kDown, kUp };

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
