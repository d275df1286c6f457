#include "widgets/xGridEdViewWin.h"

#include "numeric/FloatMatrix.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"

xGridEdViewWin::xGridEdViewWin(QWidget* parent, const std::string& title, QPoint centre)
    : xModalEdWin(parent, title, centre, 250, 180)
{
}

void xGridEdViewWin::SetVisibleSize(int rows, int columns)
{
    visibleRows = rows;
    visibleColumns = columns;
}

void xGridEdViewWin::SetCapacity(int rows, int columns)
{
    capacityRows = rows;
    capacityColumns = columns;
}

void xGridEdViewWin::SetUpUserItem(FloatMatrix* matrix)
{
    value = matrix;
    int rows = std::max(capacityRows, matrix ? matrix->Rows() : 0);
    int columns = std::max(capacityColumns, matrix ? matrix->Cols() : 0);
    view = new xGridEdView(this, QRect(5, clientTop + 5, width() - 10, clientHeight - 5), visibleRows,
                           visibleColumns, rows, columns, matrix);
    view->SetId(kGridId);
    FitToContents();
}

bool xGridEdViewWin::Accept()
{
    auto* matrix = static_cast<FloatMatrix*>(value);
    if (!matrix || !view)
        return true;
    view->Grid()->EndEdit();   // the cell being typed in counts
    FloatMatrix typed(matrix->RowLower(), matrix->RowUpper(), matrix->ColLower(), matrix->ColUpper());
    view->GetTable(typed);
    if (typed != *matrix)
        *matrix = typed;
    return true;
}
