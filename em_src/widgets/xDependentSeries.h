#ifndef TOLVAD_WIDGETS_XDEPENDENTSERIES_H
#define TOLVAD_WIDGETS_XDEPENDENTSERIES_H

class FloatMatrix;

// A plotted series that follows the table of a grid: the grid hands it the
// table whenever the table is loaded or its rows in use change.
class xDependentSeries {
public:
    virtual ~xDependentSeries() = default;

    // Takes the table's columns as the series' data.
    virtual void SetData(const FloatMatrix& table) = 0;
    // Recomputes the pixels from the data and the ranges.
    virtual void ComputePixels() = 0;
    // Drops the data.
    virtual void Clear() = 0;
    // Marks the series' area for repainting.
    virtual void InvalidateArea() = 0;
};

#endif
