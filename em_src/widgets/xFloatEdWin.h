#ifndef TOLVAD_WIDGETS_XFLOATEDWIN_H
#define TOLVAD_WIDGETS_XFLOATEDWIN_H

#include "widgets/xModalEdWin.h"

class xEditBox;

// Edits one float in a float edit box.
class xFloatEdWin : public xModalEdWin {
public:
    xFloatEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(float* number, const std::string& label = std::string());
    xEditBox* Box() const { return box; }

protected:
    bool Accept() override;

private:
    xEditBox* box = nullptr;
};

#endif
