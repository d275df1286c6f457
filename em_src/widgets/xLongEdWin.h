#ifndef TOLVAD_WIDGETS_XLONGEDWIN_H
#define TOLVAD_WIDGETS_XLONGEDWIN_H

#include "widgets/xModalEdWin.h"

class xEditBox;

// Edits one long in a long edit box.
class xLongEdWin : public xModalEdWin {
public:
    xLongEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(long* number, const std::string& label = std::string());
    xEditBox* Box() const { return box; }

protected:
    bool Accept() override;

private:
    xEditBox* box = nullptr;
};

#endif
