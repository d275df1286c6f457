#include "widgets/xGridEdView.h"

#include "gui/xPlatform.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

namespace {
const int kStripHeight = 25;
const int kFieldWidth = 110;
} // namespace

xGridEdView::xGridEdView(QWidget* card, const QRect& frame, int visibleRows, int visibleColumns,
                         int capacityRows, int capacityColumns, const FloatMatrix* table)
    : xCommandView(card)
{
    setGeometry(frame);
    positionLabel = new QLabel(this);
    positionLabel->setGeometry(2, 2, 60, kStripHeight - 4);
    editField = new xEditField(this, kFocusIn, kFocusOut, 0);
    editField->setGeometry(64, 1, std::min(kFieldWidth, std::max(frame.width() - 66, 40)), kStripHeight - 2);
    editField->installEventFilter(this);
    grid = new xFltGrd(this, QRect(0, kStripHeight, frame.width(), std::max(frame.height() - kStripHeight, 20)),
                       visibleRows, visibleColumns, capacityRows, capacityColumns);
    grid->AddScrollBars();
    grid->installEventFilter(this);
    grid->SetActive(false);
    if (table)
        grid->SetTable(table, false);
}

void xGridEdView::SetTable(const FloatMatrix* table, bool redraw)
{
    grid->SetTable(table, redraw);
}

void xGridEdView::GetTable(FloatMatrix& matrix) const
{
    grid->GetTable(matrix);
}

int xGridEdView::RowsInUse(int columnLimit) const
{
    return grid->RowsInUse(columnLimit);
}

int xGridEdView::RowCount() const
{
    return grid->RowCount();
}

void xGridEdView::SetDependentPort(xDependentSeries* series)
{
    grid->SetDependentPort(series);
}

void xGridEdView::SetDependentPort(x2DGLine* line)
{
    grid->SetDependentPort(line);
}

void xGridEdView::SetFont(const QFont& font)
{
    grid->SetCellFont(font);
    editField->setFont(font);
    positionLabel->setFont(font);
}

void xGridEdView::Activate(bool on)
{
    grid->SetActive(on);
    if (grid->HorizontalBar())
        grid->HorizontalBar()->setEnabled(on);
    if (grid->VerticalBar())
        grid->VerticalBar()->setEnabled(on);
}

void xGridEdView::StartEdit(int row, int column)
{
    QPoint origin = grid->ScrollOrigin();
    float value = grid->Values().Value(origin.y() + row, origin.x() + column);
    editField->setText(QString::fromStdString(xGridValues::EditText(value)));
    editField->selectAll();
    positionLabel->setText(QStringLiteral("%1,%2").arg(origin.y() + row + 1).arg(origin.x() + column + 1));
}

void xGridEdView::StoreEdit(int row, int column)
{
    QPoint origin = grid->ScrollOrigin();
    std::string text = editField->text().toStdString();
    xGridValues::EditResult result =
        grid->Values().StoreEdit(origin.y() + row, origin.x() + column, text, grid->CellText(row, column));
    if (result == xGridValues::kRowsChanged) {
        grid->SetRecolour();
        grid->DoCommand(xFltGrd::kRowsChanged, grid);
    }
    if (result != xGridValues::kUnchanged)
        grid->SetCellText(xGridValues::CellText(grid->Values().Value(origin.y() + row, origin.x() + column)),
                          row, column);
}

void xGridEdView::DoCommand(long command, void* data)
{
    switch (command) {
    case xFltGrd::kNotice:
        return;
    case xFltGrd::kEditStarts: {
        auto* cell = static_cast<xCellPlace*>(data);
        StartEdit(cell->row, cell->column);
        return;
    }
    case xFltGrd::kEditEnds: {
        auto* cell = static_cast<xCellPlace*>(data);
        StoreEdit(cell->row, cell->column);
        positionLabel->clear();
        return;
    }
    case kFocusIn: {
        Activate(true);
        // Back to the cell the user left, so that a message box or a click
        // elsewhere doesn't send the edit to the top of the table.
        xCellPlace last = grid->LastEditCell();
        grid->SetEditCell(last.IsCell() ? last.row : 0, last.IsCell() ? last.column : 0, true);
        return;
    }
    case kFocusOut:
        Activate(false);
        grid->EndEdit();
        return;
    case xFltGrd::kRowsChanged:
        // The card knows its controls by the view's id.
        xCommandView::DoCommand(command, this);
        return;
    default:
        xCommandView::DoCommand(command, data);
    }
}

bool xGridEdView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == grid && event->type() == QEvent::MouseButtonPress && !grid->IsActive()) {
        // An inactive grid takes the focus to the field first; the press then
        // picks the cell.
        editField->setFocus(Qt::MouseFocusReason);
        return false;
    }
    if (watched != editField || event->type() != QEvent::KeyPress)
        return xCommandView::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    bool control = key->modifiers() & Qt::ControlModifier;
    if (control && key->key() == Qt::Key_X) {
        PostNote("Row deletion not implemented yet.");
        return true;
    }
    if (control && key->key() == Qt::Key_I) {
        PostNote("Row insertion not implemented yet.");
        return true;
    }
    switch (key->key()) {
    case Qt::Key_Right:
    case Qt::Key_Tab:
        grid->Key(xGridCursor::kRight);
        return true;
    case Qt::Key_Left:
        grid->Key(xGridCursor::kLeft);
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        grid->Key(xGridCursor::kDown);
        return true;
    case Qt::Key_Up:
        grid->Key(xGridCursor::kUp);
        return true;
    default:
        return false;
    }
}
