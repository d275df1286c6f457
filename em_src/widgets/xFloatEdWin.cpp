#include "widgets/xFloatEdWin.h"

#include "widgets/xEditBox.h"

xFloatEdWin::xFloatEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xBoxEdWin(parent, title, centre)
{
}

void xFloatEdWin::SetUpUserItem(float* number, const std::string& label)
{
    value = number;
    box = new xEditBox(this, BoxFrame(), fieldWidth, number ? *number : 0.0f, label, format);
    FitToContents();
}

bool xFloatEdWin::Accept()
{
    // A number no float holds keeps the window open.
    return !box || !value || box->GetFloat(*static_cast<float*>(value));
}
