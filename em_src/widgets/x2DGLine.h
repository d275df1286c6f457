#ifndef TOLVAD_WIDGETS_X2DGLINE_H
#define TOLVAD_WIDGETS_X2DGLINE_H

// One series of a graph port: two float arrays, X and Y, and the cache of
// their pixel positions. The pixels are computed once per change of data,
// range, scroll position or size, so that drawing the series hands the cache
// to the surface in one call and does no arithmetic.

#include "gui/xCommandTarget.h"
#include "widgets/x2DGSurface.h"

#include <memory>
#include <optional>
#include <vector>

class FloatArray;
class FloatMatrix;
class x2DGPlot;

class x2DGLine : public xCommandTarget {
public:
    // Appends the series to the port's list; the port owns it from then on.
    explicit x2DGLine(x2DGPlot* port);
    ~x2DGLine() override;
    x2DGLine(const x2DGLine&) = delete;
    x2DGLine& operator=(const x2DGLine&) = delete;

    x2DGPlot* port = nullptr;                 // not owned
    std::optional<x2DGRect> readOutBox;       // where the read-out box stands while shown
    bool showPoints = false;                  // marks instead of a polyline
    std::vector<x2DGPixel> pixels;            // one per point while a range is known
    std::unique_ptr<FloatArray> xValues;      // a copy, or a view of the caller's array
    std::unique_ptr<FloatArray> yValues;
    bool ownsX = false;
    bool ownsY = false;
    x2DGPen pen;

    int PixelCount() const { return static_cast<int>(pixels.size()); }

    // With copy off the series only points at the array and leaves it to the
    // caller. On the port's current series each of these sets its range.
    void SetX(FloatArray& array, bool copy);
    void SetY(FloatArray& array, bool copy);
    void SetYConstant(float value, int count);
    // X from the table's first column, Y from the next.
    virtual void SetData(const FloatMatrix& table);
    // Does nothing unless both arrays have the same length and the port knows
    // both ranges: the last pixels then stay.
    virtual void ComputePixels();
    virtual void FinishPixels();
    // Back to no data: the arrays (a borrowed array stays alive) and the pixels go.
    void Clear();
    void SetPen(const x2DGPen& newPen);
    void ShowPoints(bool on);

    // A table this series follows has changed: fewer than 2 rows empty the
    // series, otherwise it takes the table and recomputes; the area is redrawn.
    void UpdateFromTable(const FloatMatrix& table);
    void Invalidate() const;

    virtual void Draw(x2DGSurface& surface) const;
    // Takes the port's size change (20006); the rest goes up to the port.
    void DoCommand(long command, void* data) override;

    // A pixel coordinate truncated toward zero and held to the 16-bit range;
    // a NaN goes to the far corner, out of any frame.
    static int16_t ToPixel(float value);

protected:
    void ReplaceArrays(std::unique_ptr<FloatArray> x, std::unique_ptr<FloatArray> y);
    // The current series sets the port's ranges from its arrays.
    void UpdateRanges(bool horizontal, bool vertical);
    bool HasTwoColumns(const FloatMatrix& table, const char* operation) const;
};

#endif
