#ifndef TOLVAD_CARDS_XBIPOLEICON_H
#define TOLVAD_CARDS_XBIPOLEICON_H

#include "cards/xSensorIcon.h"

// An electric bipole: a vertical line across the square with an arrowhead at
// each end. A double click edits its two end points ("Edit Bipole End Points").
class xBipoleIcon : public xSensorIcon {
public:
    using xSensorIcon::xSensorIcon;

protected:
    void Draw(QPainter& painter) override;
    void Edit() override;
};

#endif
