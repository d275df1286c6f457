#ifndef TOLVAD_WIDGETS_XLINESERIES_H
#define TOLVAD_WIDGETS_XLINESERIES_H

#include "widgets/xDependentSeries.h"

class x2DGLine;

// Lets a plotted line of a graph port follow a grid's table.
class xLineSeries : public xDependentSeries {
public:
    explicit xLineSeries(x2DGLine* line) : line(line) {}

    void SetData(const FloatMatrix& table) override;
    void ComputePixels() override;
    void Clear() override;
    void InvalidateArea() override;

    x2DGLine* Line() const { return line; }

private:
    x2DGLine* line;
};

#endif
