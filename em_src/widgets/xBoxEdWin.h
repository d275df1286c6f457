#ifndef TOLVAD_WIDGETS_XBOXEDWIN_H
#define TOLVAD_WIDGETS_XBOXEDWIN_H

#include "widgets/xModalEdWin.h"

class xEditBox;

// A modal editor of one number in one edit box, 340 by 130.
class xBoxEdWin : public xModalEdWin {
public:
    xEditBox* Box() const { return box; }

protected:
    xBoxEdWin(QWidget* parent, const std::string& title, QPoint centre);
    // Where the box stands.
    QRect BoxFrame() const;

    xEditBox* box = nullptr;
};

#endif
