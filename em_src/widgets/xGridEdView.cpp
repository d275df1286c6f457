#include "widgets/xGridEdView.h"

#include "gui/xPlatform.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"
#include "widgets/xNumberText.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

namespace {
// The least sizes of the strip above the grid; they grow with the font.
const int kStripHeight = 25;
const int kLabelWidth = 60;
const int kFieldWidth = 110;
// The format of the edit field, whose widest text sets its width.
const char* const kEditFormat = "%10.7e";
} // namespace

xGridEdView::xGridEdView(QWidget* card, const QRect& frame, int visibleRows, int visibleColumns,
                         int capacityRows, int capacityColumns, const FloatMatrix* table)
    : xCommandView(card)
{
    setGeometry(frame);
    positionLabel = new QLabel(this);
    editField = new xEditField(this, kFocusIn, kFocusOut, 0);
    editField->installEventFilter(this);
    grid = new xFltGrd(this, QRect(0, kStripHeight, frame.width(), std::max(frame.height() - kStripHeight, 20)),
                       visibleRows, visibleColumns, capacityRows, capacityColumns);
    grid->AddScrollBars();
    grid->installEventFilter(this);
    grid->SetActive(false);
    Layout();
    if (table)
        grid->SetTable(table, false);
}

void xGridEdView::Layout()
{
    if (laying)
        return;
    laying = true;
    // The label holds the largest position, the field the widest number.
    const QString widestPosition =
        QStringLiteral("%1,%2").arg(grid->Values().CapacityRows()).arg(grid->Values().CapacityColumns());
    const int labelWidth =
        std::max(kLabelWidth, positionLabel->fontMetrics().horizontalAdvance(widestPosition) + 4);
    const int fieldWidth =
        std::max(kFieldWidth, editField->WidthFor(QString::fromStdString(xNumberText::WidestText(kEditFormat))));
    const int fieldHeight = editField->HeightFor(kStripHeight - 2);
    const int strip = fieldHeight + 2;
    positionLabel->setGeometry(2, 1, labelWidth, fieldHeight);
    editField->setGeometry(labelWidth + 4, 1, fieldWidth, fieldHeight);
    grid->setGeometry(0, strip, width(), std::max(height() - strip, 20));
    // The grid may have grown to show its numbers; the view holds it.
    const QSize least(std::max(editField->geometry().right() + 1, grid->width()), strip + grid->height());
    setMinimumSize(least);
    if (width() < least.width() || height() < least.height())
        resize(std::max(width(), least.width()), std::max(height(), least.height()));
    laying = false;
}

void xGridEdView::resizeEvent(QResizeEvent*)
{
    Layout();
}

void xGridEdView::SetTable(const FloatMatrix* table, bool redraw)
{
    // What the field held belongs to the old table: an edit that starts again
    // on an empty cell of the new one must not store it there.
    editField->clear();
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
    Layout();
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
    // An empty cell leaves the field as it was, so that Return takes a
    // number on down a column.
    if (value != NoValue)
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
    bool shift = key->modifiers() & Qt::ShiftModifier;
    if (control && key->key() == Qt::Key_X) {
        PostNote("Row deletion not implemented yet.");
        return true;
    }
    if (control && key->key() == Qt::Key_I) {
        PostNote("Row insertion not implemented yet.");
        return true;
    }
    xGridCursor::Key move;
    switch (key->key()) {
    case Qt::Key_Right:
    case Qt::Key_Tab: move = xGridCursor::kRight; break;
    case Qt::Key_Left: move = xGridCursor::kLeft; break;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter: move = xGridCursor::kDown; break;
    case Qt::Key_Up: move = xGridCursor::kUp; break;
    case Qt::Key_PageUp: move = xGridCursor::kPageUp; break;
    case Qt::Key_PageDown: move = xGridCursor::kPageDown; break;
    // With Shift, Home and End select in the field's text, as in any text field.
    case Qt::Key_Home:
        if (shift)
            return false;
        move = control ? xGridCursor::kFirstCell : xGridCursor::kHome;
        break;
    case Qt::Key_End:
        if (shift)
            return false;
        move = control ? xGridCursor::kLastCell : xGridCursor::kEnd;
        break;
    default:
        return false;
    }
    grid->Key(move);
    return true;
}
