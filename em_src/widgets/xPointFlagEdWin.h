#ifndef TOLVAD_WIDGETS_XPOINTFLAGEDWIN_H
#define TOLVAD_WIDGETS_XPOINTFLAGEDWIN_H

#include "widgets/xPointEdWin.h"

// Edits a point whose components are flags: a check box is on when its number
// is not 0, and checking or clearing it writes 1 or 0.
class xPointFlagEdWin : public xPointEdWin {
public:
    xPointFlagEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(float* point);
};

#endif
