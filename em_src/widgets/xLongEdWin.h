#ifndef TOLVAD_WIDGETS_XLONGEDWIN_H
#define TOLVAD_WIDGETS_XLONGEDWIN_H

#include "widgets/xBoxEdWin.h"

// Edits one long in a long edit box.
class xLongEdWin : public xBoxEdWin {
public:
    xLongEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(long* number, const std::string& label = std::string());

protected:
    bool Accept() override;
};

#endif
