#include "widgets/xBoxEdWin.h"

xBoxEdWin::xBoxEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xModalEdWin(parent, title, centre, 340, 130)
{
}

QRect xBoxEdWin::BoxFrame() const
{
    return QRect(10, clientTop + 20, width() - 20, fieldHeight);
}
