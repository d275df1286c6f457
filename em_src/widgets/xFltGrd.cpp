#include "widgets/xFltGrd.h"

#include "gui/xPlatform.h"
#include "widgets/xDependentSeries.h"
#include "widgets/xLineSeries.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>

xFltGrd::xFltGrd(QWidget* parent, const QRect& frame, int rows, int columns, int capacityRows,
                 int capacityColumns)
    : xTxtGrd(parent, frame, rows, columns, false, false, nullptr), values(capacityRows, capacityColumns)
{
    // The edited cell is framed in the style's highlight, over its grid lines.
    editFrame = new QFrame(this);
    editFrame->setFrameStyle(QFrame::Box | QFrame::Plain);
    editFrame->setLineWidth(2);
    editFrame->setAttribute(Qt::WA_TransparentForMouseEvents);
    editFrame->setGeometry(QRect());
    ColourEditFrame();
    WriteVisibleCells();
}

xFltGrd::~xFltGrd() = default;

void xFltGrd::SetDependentPort(xDependentSeries* series)
{
    values.SetDependentPort(series);
}

void xFltGrd::SetDependentPort(x2DGLine* line)
{
    lineSeries.reset(line ? new xLineSeries(line) : nullptr);
    values.SetDependentPort(lineSeries.get());
}

float xFltGrd::TableValue(int row, int column) const
{
    return values.Value(row, column);
}

void xFltGrd::GetTable(FloatMatrix& matrix) const
{
    values.GetTable(matrix);
}

void xFltGrd::SetTable(const FloatMatrix* data, bool redraw)
{
    values.SetTable(data);
    // The colours are those of the new table from its top.
    scrollOrigin = QPoint(0, 0);
    recolour = true;
    Recolour();
    SyncBars();
    WriteVisibleCells();
    // The edit starts again on the new numbers; what the field held belongs
    // to the old table and is not stored.
    if (editCell.IsCell()) {
        SetEditCell(editCell.row, editCell.column, false);
        DoCommand(kEditStarts, &editCell);
    }
    values.UpdateDependentSeries();
    if (redraw)
        update();
}

void xFltGrd::Recolour()
{
    recolour = false;
    for (int r = 0; r < VisibleRows(); ++r) {
        QColor colour = values.IsWhiteRow(r, scrollOrigin.y()) ? QColor(Qt::white) : QColor(192, 192, 192);
        for (int c = 0; c < VisibleColumns(); ++c)
            SetCellBackground(r, c, colour);
    }
}

void xFltGrd::SetCellText(const std::string& text, int row, int column)
{
    if (recolour)
        Recolour();
    xTxtGrd::SetCellText(text, row, column);
}

void xFltGrd::PlaceEditFrame()
{
    QLabel* cell = Cell(editCell.row, editCell.column);
    editFrame->setGeometry(cell && editCell.IsCell() ? cell->geometry().adjusted(-1, -1, 1, 1) : QRect());
    editFrame->raise();
}

void xFltGrd::CellsMoved()
{
    PlaceEditFrame();
}

void xFltGrd::ColourEditFrame()
{
    QPalette p = editFrame->palette();
    p.setColor(QPalette::WindowText, palette().color(QPalette::Active, QPalette::Highlight));
    editFrame->setPalette(p);
}

void xFltGrd::changeEvent(QEvent* event)
{
    xTxtGrd::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        ColourEditFrame();
}

void xFltGrd::EndEdit()
{
    if (!editCell.IsCell())
        return;
    endedCell = editCell;
    DoCommand(kEditEnds, &endedCell);
    editCell = xCellPlace();
    PlaceEditFrame();
}

void xFltGrd::SetEditCell(int row, int column, bool notify)
{
    if (notify)
        EndEdit();
    // Only cells of the table can be edited.
    row = std::clamp(row, 0, std::max(std::min(VisibleRows(), TableRows() - scrollOrigin.y()) - 1, 0));
    column = std::clamp(column, 0,
                        std::max(std::min(VisibleColumns(), TableColumns() - scrollOrigin.x()) - 1, 0));
    editCell.row = row;
    editCell.column = column;
    PlaceEditFrame();
    if (notify)
        DoCommand(kEditStarts, &editCell);
}

void xFltGrd::ScrollTo(QPoint origin)
{
    xCellPlace cell = editCell;
    EndEdit();
    recolour = true;
    xTxtGrd::ScrollTo(origin);
    if (recolour)
        Recolour();
    if (cell.IsCell())
        SetEditCell(cell.row, cell.column, true);
}

bool xFltGrd::Key(xGridCursor::Key key)
{
    xGridCursor cursor(VisibleRows(), VisibleColumns());
    cursor.SetTableSize(TableRows(), TableColumns());
    cursor.SetOrigin(scrollOrigin.y(), scrollOrigin.x());
    xCellPlace from = editCell.IsCell() ? editCell : xCellPlace{0, 0};
    cursor.SetCell(from.row, from.column);
    bool moved = cursor.Move(key);
    if (!moved)
        Platform().Beep();
    QPoint origin(cursor.OriginColumn(), cursor.OriginRow());
    if (origin != scrollOrigin) {
        EndEdit();
        recolour = true;
        xTxtGrd::ScrollTo(origin);
        if (recolour)
            Recolour();
        SetEditCell(cursor.Row(), cursor.Column(), true);
    } else if (cursor.Row() != editCell.row || cursor.Column() != editCell.column) {
        SetEditCell(cursor.Row(), cursor.Column(), true);
    }
    SyncBars();
    return moved;
}

void xFltGrd::mousePressEvent(QMouseEvent* event)
{
    int row = 0, column = 0;
    if (!CellAt(event->position().toPoint(), row, column)) {
        xTxtGrd::mousePressEvent(event);
        return;
    }
    SetEditCell(row, column, true);
}
