#include "widgets/xLongEdWin.h"

#include "widgets/xEditBox.h"

xLongEdWin::xLongEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xBoxEdWin(parent, title, centre)
{
}

void xLongEdWin::SetUpUserItem(long* number, const std::string& label)
{
    value = number;
    box = new xEditBox(this, BoxFrame(), fieldWidth, number ? *number : 0L, label);
    FitToContents();
}

bool xLongEdWin::Accept()
{
    if (box && value)
        box->GetLong(*static_cast<long*>(value));
    return true;
}
