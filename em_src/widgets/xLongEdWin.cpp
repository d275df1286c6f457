#include "widgets/xLongEdWin.h"

#include "widgets/xEditBox.h"

xLongEdWin::xLongEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xModalEdWin(parent, title, centre, 340, 130)
{
}

void xLongEdWin::SetUpUserItem(long* number, const std::string& label)
{
    value = number;
    box = new xEditBox(this, QRect(10, clientTop + 20, width() - 20, fieldHeight), fieldWidth,
                       number ? *number : 0L, label);
}

bool xLongEdWin::Accept()
{
    if (box && value)
        box->GetLong(*static_cast<long*>(value));
    return true;
}
