#ifndef TOLVAD_WIDGETS_X2DGBARS_H
#define TOLVAD_WIDGETS_X2DGBARS_H

// Sampling windows drawn as level bars, one from each window's start to its
// end, on the time axis of the port's first series.

#include "widgets/x2DGLine.h"

class x2DGBars : public x2DGLine {
public:
    explicit x2DGBars(x2DGPlot* port) : x2DGLine(port) {}

    // Rows of (start, end): X holds start and end of every window in turn,
    // from index 0; Y is all 0. The ranges stay as they are.
    void SetData(const FloatMatrix& table) override;
    // Touching windows are told apart by putting them alternately 5 pixels
    // below and above the frame's middle, the first one below.
    void Draw(x2DGSurface& surface) const override;
};

#endif
