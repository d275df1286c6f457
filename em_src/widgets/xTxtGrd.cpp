#include "widgets/xTxtGrd.h"

#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xGridValues.h"
#include "widgets/xNumberText.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>

namespace {

// The least height of the column labels; they grow with the font.
const int kLabelHeight = 18;
// The format of a cell's number, whose widest text sets the least cell width.
const char* const kCellFormat = "%5.2e";

// Room between a cell's text and its lines.
int CellIndent(const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(QLatin1Char('x')) / 2 + 1;
}

} // namespace

xTxtGrd::xTxtGrd(QWidget* parent, const QRect& frame, int rows, int columns, bool wantColumns,
                 bool wantRows, FloatMatrix* data)
    : xCommandView(parent), table(data), visibleRows(std::max(rows, 1)),
      visibleColumns(std::max(columns, 1)), wantRowLabels(wantRows), wantColumnLabels(wantColumns)
{
    setGeometry(frame);
    cells.reserve(static_cast<size_t>(visibleRows) * visibleColumns);
    for (int i = 0; i < visibleRows * visibleColumns; ++i) {
        auto* cell = new QLabel(this);
        cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        cell->setIndent(CellIndent(cell->fontMetrics()));
        cell->setAutoFillBackground(true);
        cell->setAttribute(Qt::WA_TransparentForMouseEvents);
        cells.push_back(cell);
    }
    for (int c = 0; c < visibleColumns; ++c)
        SetCellBackground(0, c, Qt::white);
    BuildLabels();
    Layout();
    WriteVisibleCells();
}

xTxtGrd::~xTxtGrd()
{
    DeleteLabels();
}

QSize xTxtGrd::LeastSize() const
{
    const QFontMetrics metrics(cells.front()->font());
    const QString widest = QString::fromStdString(xNumberText::WidestText(kCellFormat));
    // Each cell with its one line: the text whole, its indent on both sides.
    const int cellWidth = metrics.horizontalAdvance(widest) + 2 * CellIndent(metrics) + 1;
    const int cellHeight = metrics.height() + 2 + 1;
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const bool vertical = verticalBar && !verticalBar->isHidden();
    const bool horizontal = horizontalBar && !horizontalBar->isHidden();
    int top = 0;
    if (wantColumnLabels)
        top = std::max(kLabelHeight, metrics.height() + 4);
    return QSize(visibleColumns * cellWidth + 1 + (vertical ? bar : 0),
                 top + visibleRows * cellHeight + 1 + (horizontal ? bar : 0));
}

void xTxtGrd::Layout()
{
    if (laying)
        return;
    laying = true;
    const QSize least = LeastSize();
    setMinimumSize(least);
    if (width() < least.width() || height() < least.height())
        resize(std::max(width(), least.width()), std::max(height(), least.height()));
    const QFontMetrics metrics(cells.front()->font());
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const bool vertical = verticalBar && !verticalBar->isHidden();
    const bool horizontal = horizontalBar && !horizontalBar->isHidden();
    const int top = wantColumnLabels ? std::max(kLabelHeight, metrics.height() + 4) : 0;
    // Cells a pitch apart, the line between them the grid's own background.
    const int pitchWidth = std::max(2, (width() - (vertical ? bar : 0) - 1) / visibleColumns);
    const int pitchHeight = std::max(2, (height() - top - (horizontal ? bar : 0) - 1) / visibleRows);
    cellArea = QRect(0, top, pitchWidth * visibleColumns + 1, pitchHeight * visibleRows + 1);
    for (int r = 0; r < visibleRows; ++r)
        for (int c = 0; c < visibleColumns; ++c) {
            QLabel* cell = Cell(r, c);
            cell->setIndent(CellIndent(metrics));
            cell->setGeometry(c * pitchWidth + 1, top + r * pitchHeight + 1, pitchWidth - 1, pitchHeight - 1);
        }
    for (size_t c = 0; c < columnLabels.size(); ++c)
        columnLabels[c]->setGeometry(static_cast<int>(c) * pitchWidth, 0, pitchWidth, top);
    if (verticalBar)
        verticalBar->setGeometry(cellArea.right() + 1, top, bar, cellArea.height());
    if (horizontalBar)
        horizontalBar->setGeometry(0, cellArea.bottom() + 1, cellArea.width(), bar);
    laying = false;
    CellsMoved();
    update();
}

void xTxtGrd::paintEvent(QPaintEvent*)
{
    // The cells cover all but the lines between them.
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.fillRect(cellArea, QColor::fromRgba(static_cast<QRgb>(
                                   style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this))));
}

void xTxtGrd::resizeEvent(QResizeEvent*)
{
    Layout();
}

void xTxtGrd::wheelEvent(QWheelEvent* event)
{
    // A notch of the wheel scrolls as many rows as the desktop says, as a
    // table view does; sideways, or with Alt, it scrolls columns.
    const QPoint delta = event->angleDelta();
    const bool across = (delta.x() != 0 && delta.y() == 0) || (event->modifiers() & Qt::AltModifier);
    wheelRemainder += across ? (delta.x() != 0 ? delta.x() : delta.y()) : delta.y();
    const int notches = wheelRemainder / 120;
    wheelRemainder -= notches * 120;
    const int lines = notches * QApplication::wheelScrollLines();
    const QPoint before = scrollOrigin;
    QPoint origin = scrollOrigin;
    if (across)
        origin.rx() -= lines;
    else
        origin.ry() -= lines;
    if (lines != 0) {
        ScrollTo(origin);
        SyncBars();
    }
    // At the table's edge the wheel goes on to what holds the grid.
    event->setAccepted(notches == 0 || scrollOrigin != before);
}

QLabel* xTxtGrd::Cell(int row, int column) const
{
    if (row < 0 || column < 0 || row >= visibleRows || column >= visibleColumns)
        return nullptr;
    return cells[static_cast<size_t>(row) * visibleColumns + column];
}

std::string xTxtGrd::CellText(int row, int column) const
{
    QLabel* cell = Cell(row, column);
    return cell ? cell->text().toStdString() : std::string();
}

void xTxtGrd::SetCellText(const std::string& text, int row, int column)
{
    if (QLabel* cell = Cell(row, column))
        cell->setText(QString::fromStdString(text));
}

void xTxtGrd::SetCellBackground(int row, int column, const QColor& colour)
{
    QLabel* cell = Cell(row, column);
    if (!cell)
        return;
    QPalette p = cell->palette();
    if (p.color(QPalette::Window) == colour)
        return;
    p.setColor(QPalette::Window, colour);
    cell->setPalette(p);
}

void xTxtGrd::SetCellFont(const QFont& font)
{
    for (QLabel* cell : cells)
        cell->setFont(font);
    for (QLabel* label : columnLabels)
        label->setFont(font);
    Layout();
}

int xTxtGrd::TableRows() const
{
    return table ? table->Rows() : 0;
}

int xTxtGrd::TableColumns() const
{
    return table ? table->Cols() : 0;
}

float xTxtGrd::TableValue(int row, int column) const
{
    if (!table || row < 0 || column < 0 || row >= table->Rows() || column >= table->Cols())
        return NoValue;
    return table->Row(table->RowLower() + row)[table->ColLower() + column];
}

void xTxtGrd::GetTable(FloatMatrix& matrix) const
{
    if (table)
        matrix = *table;
}

void xTxtGrd::WriteVisibleCells()
{
    // One repaint for all cells, not one per cell.
    bool wasEnabled = updatesEnabled();
    setUpdatesEnabled(false);
    for (int r = 0; r < visibleRows; ++r)
        for (int c = 0; c < visibleColumns; ++c)
            SetCellText(xGridValues::CellText(TableValue(scrollOrigin.y() + r, scrollOrigin.x() + c)), r, c);
    setUpdatesEnabled(wasEnabled);
    update();
}

bool xTxtGrd::CellAt(const QPoint& point, int& row, int& column) const
{
    for (int r = 0; r < visibleRows; ++r)
        for (int c = 0; c < visibleColumns; ++c)
            if (Cell(r, c)->geometry().contains(point)) {
                row = r;
                column = c;
                return true;
            }
    return false;
}

void xTxtGrd::ScrollTo(QPoint origin)
{
    origin.setX(std::clamp(origin.x(), 0, std::max(TableColumns() - visibleColumns, 0)));
    origin.setY(std::clamp(origin.y(), 0, std::max(TableRows() - visibleRows, 0)));
    if (origin == scrollOrigin)
        return;
    scrollOrigin = origin;
    WriteVisibleCells();
    ScrollLabels();
    SyncBars();
    DoCommand(kScrolled, &scrollOrigin);
}

void xTxtGrd::Scroll(Qt::Orientation axis, int kind, int thumb)
{
    bool across = axis == Qt::Horizontal;
    int now = across ? scrollOrigin.x() : scrollOrigin.y();
    int page = across ? visibleColumns : visibleRows;
    int next = now;
    switch (kind) {
    case kLineBack: next = now - 1; break;
    case kLineForward: next = now + 1; break;
    case kPageBack: next = now - page; break;
    case kPageForward: next = now + page; break;
    case kThumb: next = thumb; break;
    default: return;
    }
    QPoint origin = scrollOrigin;
    if (across)
        origin.setX(next);
    else
        origin.setY(next);
    ScrollTo(origin);
    SyncBars();
}

void xTxtGrd::AddScrollBars()
{
    if (horizontalBar)
        return;
    horizontalBar = new QScrollBar(Qt::Horizontal, this);
    verticalBar = new QScrollBar(Qt::Vertical, this);
    const std::pair<QScrollBar*, Qt::Orientation> bars[] = {{horizontalBar, Qt::Horizontal},
                                                          {verticalBar, Qt::Vertical}};
    for (auto [bar, axis] : bars) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setSingleStep(1);
        QObject::connect(bar, &QAbstractSlider::actionTriggered, this, [this, bar = bar, axis = axis](int action) {
            switch (action) {
            case QAbstractSlider::SliderSingleStepSub: Scroll(axis, kLineBack); break;
            case QAbstractSlider::SliderSingleStepAdd: Scroll(axis, kLineForward); break;
            case QAbstractSlider::SliderPageStepSub: Scroll(axis, kPageBack); break;
            case QAbstractSlider::SliderPageStepAdd: Scroll(axis, kPageForward); break;
            case QAbstractSlider::SliderMove: Scroll(axis, kThumb, bar->sliderPosition()); break;
            default: break;
            }
        });
    }
    SyncBars();
    Layout();
}

bool xTxtGrd::ShowNeededBars()
{
    bool changed = false;
    const std::pair<QScrollBar*, bool> bars[] = {{horizontalBar, TableColumns() > visibleColumns},
                                                 {verticalBar, TableRows() > visibleRows}};
    for (auto [bar, needed] : bars) {
        if (bar && bar->isHidden() == needed) {
            bar->setVisible(needed);
            changed = true;
        }
    }
    return changed;
}

void xTxtGrd::SyncBars()
{
    if (ShowNeededBars())
        Layout();
    if (horizontalBar) {
        horizontalBar->blockSignals(true);
        horizontalBar->setRange(0, std::max(TableColumns() - visibleColumns, 0));
        horizontalBar->setPageStep(visibleColumns);
        horizontalBar->setValue(scrollOrigin.x());
        horizontalBar->blockSignals(false);
    }
    if (verticalBar) {
        verticalBar->blockSignals(true);
        verticalBar->setRange(0, std::max(TableRows() - visibleRows, 0));
        verticalBar->setPageStep(visibleRows);
        verticalBar->setValue(scrollOrigin.y());
        verticalBar->blockSignals(false);
    }
}

void xTxtGrd::BuildLabels()
{
    if (wantRowLabels)
        PostWarning("xTxtGrd::BuildLabels() row labelling not implemented yet.");
    if (!wantColumnLabels)
        return;
    for (int c = 0; c < visibleColumns; ++c) {
        auto* label = new QLabel(this);
        label->setAlignment(Qt::AlignCenter);
        label->setText(QString::number(c + 1));
        columnLabels.push_back(label);
    }
}

void xTxtGrd::ScrollLabels()
{
    if (wantRowLabels)
        PostWarning("xTxtGrd::ScrollLabels() row labelling not implemented yet.");
    for (size_t c = 0; c < columnLabels.size(); ++c)
        columnLabels[c]->setText(QString::number(scrollOrigin.x() + static_cast<int>(c) + 1));
}

void xTxtGrd::DeleteLabels()
{
    if (wantRowLabels)
        PostWarning("xTxtGrd::DeleteLabels() row labelling not implemented yet.");
    for (QLabel* label : columnLabels)
        delete label;
    columnLabels.clear();
}
