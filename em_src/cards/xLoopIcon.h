#ifndef TOLVAD_CARDS_XLOOPICON_H
#define TOLVAD_CARDS_XLOOPICON_H

#include "cards/xSensorIcon.h"

// A large loop: a thin diamond in the section, a square in the plan. A double
// click edits the loop's corners ("Edit Loop Corners").
class xLoopIcon : public xSensorIcon {
public:
    using xSensorIcon::xSensorIcon;

protected:
    void Draw(QPainter& painter) override;
    void Edit() override;
};

#endif
