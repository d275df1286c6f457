#include "widgets/xGridCursor.h"

#include <algorithm>

xGridCursor::xGridCursor(int rows, int columns)
    : visibleRows(std::max(rows, 1)), visibleColumns(std::max(columns, 1))
{
}

void xGridCursor::SetTableSize(int rows, int columns)
{
    tableRows = std::max(rows, 0);
    tableColumns = std::max(columns, 0);
    SetOrigin(originRow, originColumn);
}

void xGridCursor::SetOrigin(int r, int c)
{
    originRow = std::clamp(r, 0, MaxOriginRow());
    originColumn = std::clamp(c, 0, MaxOriginColumn());
    SetCell(row, column);
}

void xGridCursor::SetCell(int r, int c)
{
    row = std::clamp(r, 0, std::max(LastVisibleRow(), 0));
    column = std::clamp(c, 0, std::max(LastVisibleColumn(), 0));
}

int xGridCursor::LastVisibleRow() const
{
    return std::min(visibleRows, tableRows - originRow) - 1;
}

int xGridCursor::LastVisibleColumn() const
{
    return std::min(visibleColumns, tableColumns - originColumn) - 1;
}

int xGridCursor::MaxOriginRow() const
{
    return std::max(tableRows - visibleRows, 0);
}

int xGridCursor::MaxOriginColumn() const
{
    return std::max(tableColumns - visibleColumns, 0);
}

bool xGridCursor::Move(Key key)
{
    switch (key) {
    case kRight:
        if (column < LastVisibleColumn()) {
            ++column;
        } else if (originColumn < MaxOriginColumn()) {
            ++originColumn;
        } else if (row < LastVisibleRow()) {
            ++row;
            column = 0;
        } else if (originRow < MaxOriginRow()) {
            ++originRow;
            column = 0;
        }
        return true;   // with nothing left it stays, quietly
    case kLeft:
        if (column > 0)
            --column;
        else if (originColumn > 0)
            --originColumn;
        else
            return false;
        return true;
    case kDown:
        if (row < LastVisibleRow())
            ++row;
        else if (originRow < MaxOriginRow())
            ++originRow;
        else
            return false;
        return true;
    case kUp:
        if (row > 0)
            --row;
        else if (originRow > 0)
            --originRow;
        else
            return false;
        return true;
    case kPageUp:
    case kPageDown: {
        // The page turns with the cell, as far as the table lets it.
        const int step = key == kPageDown ? visibleRows : -visibleRows;
        const int target = originRow + row + step;
        originRow = std::clamp(originRow + step, 0, MaxOriginRow());
        JumpTo(target, originColumn + column);
        return true;
    }
    case kHome:
        JumpTo(originRow + row, 0);
        return true;
    case kEnd:
        JumpTo(originRow + row, tableColumns - 1);
        return true;
    case kFirstCell:
        JumpTo(0, 0);
        return true;
    case kLastCell:
        JumpTo(tableRows - 1, tableColumns - 1);
        return true;
    }
    return true;
}

void xGridCursor::JumpTo(int tableRow, int tableColumn)
{
    tableRow = std::clamp(tableRow, 0, std::max(tableRows - 1, 0));
    tableColumn = std::clamp(tableColumn, 0, std::max(tableColumns - 1, 0));
    if (tableRow < originRow)
        originRow = tableRow;
    else if (tableRow >= originRow + visibleRows)
        originRow = tableRow - visibleRows + 1;
    if (tableColumn < originColumn)
        originColumn = tableColumn;
    else if (tableColumn >= originColumn + visibleColumns)
        originColumn = tableColumn - visibleColumns + 1;
    originRow = std::clamp(originRow, 0, MaxOriginRow());
    originColumn = std::clamp(originColumn, 0, MaxOriginColumn());
    SetCell(tableRow - originRow, tableColumn - originColumn);
}
