#ifndef TOLVAD_WIDGETS_XFLOATEDWIN_H
#define TOLVAD_WIDGETS_XFLOATEDWIN_H

#include "widgets/xBoxEdWin.h"

// Edits one float in a float edit box.
class xFloatEdWin : public xBoxEdWin {
public:
    xFloatEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(float* number, const std::string& label = std::string());

protected:
    bool Accept() override;
};

#endif
