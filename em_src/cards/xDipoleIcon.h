#ifndef TOLVAD_CARDS_XDIPOLEICON_H
#define TOLVAD_CARDS_XDIPOLEICON_H

#include "cards/xSensorIcon.h"

// A dipole: an oval filling the square and the direction of its moment, a
// line with an arrowhead in the drawing's plane, a dot for a moment along the
// plan's z, a cross for one along the section's y. A double click has nothing
// to edit.
class xDipoleIcon : public xSensorIcon {
public:
    using xSensorIcon::xSensorIcon;

protected:
    void Draw(QPainter& painter) override;
};

#endif
