#include "widgets/xTxtGrd.h"

#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xGridValues.h"

#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace {
const int kLabelHeight = 18;
const int kBarSize = 16;
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
        cell->setFrameShape(QFrame::Box);
        cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
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

void xTxtGrd::Layout()
{
    int top = wantColumnLabels ? kLabelHeight : 0;
    int cellWidth = std::max(1, (width() - (verticalBar ? kBarSize : 0)) / visibleColumns);
    int cellHeight = std::max(1, (height() - top - (horizontalBar ? kBarSize : 0)) / visibleRows);
    for (int r = 0; r < visibleRows; ++r)
        for (int c = 0; c < visibleColumns; ++c)
            Cell(r, c)->setGeometry(c * cellWidth, top + r * cellHeight, cellWidth, cellHeight);
    for (size_t c = 0; c < columnLabels.size(); ++c)
        columnLabels[c]->setGeometry(static_cast<int>(c) * cellWidth, 0, cellWidth, kLabelHeight);
    int gridWidth = cellWidth * visibleColumns;
    int gridBottom = top + cellHeight * visibleRows;
    if (verticalBar)
        verticalBar->setGeometry(gridWidth, top, kBarSize, gridBottom - top);
    if (horizontalBar)
        horizontalBar->setGeometry(0, gridBottom, gridWidth, kBarSize);
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
        bar->show();
    }
    SyncBars();
    Layout();
}

void xTxtGrd::SyncBars()
{
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
