#include "widgets/xPointFlagEdWin.h"

#include "widgets/xMultipleBEditBox.h"

xPointFlagEdWin::xPointFlagEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xPointEdWin(parent, title, centre, 170, 260)
{
}

void xPointFlagEdWin::SetUpUserItem(float* point)
{
    BuildColumn(point, true);
    column->SetValueWhenChecked(1.0);
    column->SetValueWhenCleared(0.0);
}
