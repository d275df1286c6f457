#ifndef TOLVAD_WIDGETS_XPOINTEDWIN_H
#define TOLVAD_WIDGETS_XPOINTEDWIN_H

#include "widgets/xModalEdWin.h"

class xMultipleBEditBox;

// Edits a point: the three numbers x, y, z in one column.
class xPointEdWin : public xModalEdWin {
public:
    xPointEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(float* point);
    xMultipleBEditBox* Column() const { return column; }

protected:
    xPointEdWin(QWidget* parent, const std::string& title, QPoint centre, int width, int height);
    bool Accept() override;
    void BuildColumn(float* point, bool withChecks);

    xMultipleBEditBox* column = nullptr;
};

#endif
