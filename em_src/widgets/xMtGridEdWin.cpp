#include "widgets/xMtGridEdWin.h"

#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xEdGrid.h"

xMtGridEdWin::xMtGridEdWin(QWidget* parent, const std::string& title, int width, int height, int rowCount,
                           int columnCount, QPoint centre)
    : xModalEdWin(parent, title, centre, width, height), rows(rowCount), columns(columnCount)
{
}

void xMtGridEdWin::SetUpUserItem(FloatMatrix* matrix, const std::vector<std::string>& rowLabels,
                                 const std::vector<std::string>& columnLabels)
{
    if (!matrix || matrix->Rows() != rows || matrix->Cols() != columns || rows <= 0 || columns <= 0) {
        PostError("xMtGridEdWin::SetUpUserItem() Illegal use of class, number of rows and cols has to be "
                  "specified in advance.");
        return;
    }
    value = matrix;
    grid = new xEdGrid(this, QRect(5, clientTop + 5, width() - 10, clientHeight - 5), rows, columns,
                       xEdGrid::kRowLabels | xEdGrid::kColumnLabels);
    if (!rowLabels.empty())
        grid->SetRowLabels(rowLabels);
    if (!columnLabels.empty())
        grid->SetColumnLabels(columnLabels);
    grid->SetTable(matrix);
    FitToContents();
}

bool xMtGridEdWin::Accept()
{
    auto* matrix = static_cast<FloatMatrix*>(value);
    if (!matrix || !grid)
        return true;
    FloatMatrix typed = *matrix;
    if (grid->GetTable(typed))
        *matrix = typed;
    return true;
}
