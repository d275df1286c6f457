#include "widgets/x2DGLine.h"

#include "gui/xPlatform.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGPlot.h"

#include <algorithm>
#include <cstdint>

x2DGLine::x2DGLine(x2DGPlot* owner)
{
    if (owner)
        owner->AddSeries(this, false);
}

x2DGLine::~x2DGLine()
{
    if (port)
        port->ReleaseSeries(this);
}

int16_t x2DGLine::ToPixel(float value)
{
    if (value != value || value <= float(INT16_MIN))
        return INT16_MIN;
    if (value >= float(INT16_MAX))
        return INT16_MAX;
    return static_cast<int16_t>(value);
}

void x2DGLine::ReplaceArrays(std::unique_ptr<FloatArray> x, std::unique_ptr<FloatArray> y)
{
    xValues = std::move(x);
    yValues = std::move(y);
    ownsX = ownsY = true;
}

void x2DGLine::UpdateRanges(bool horizontal, bool vertical)
{
    if (!port || port->currentSeries != this)
        return;
    bool changed = false;
    if (horizontal && xValues)
        changed = port->StoreXRange(xValues->Min(), xValues->Max());
    if (vertical && yValues)
        changed = port->StoreYRange(yValues->Min(), yValues->Max()) || changed;
    if (changed)
        port->RecomputeSeries(false);
}

namespace {

std::unique_ptr<FloatArray> Take(FloatArray& array, bool copy)
{
    if (!copy)
        return std::make_unique<FloatArray>(array.Data(), array.Lower(), array.Upper());
    auto owned = std::make_unique<FloatArray>(array.Lower(), array.Upper());
    *owned = array;
    return owned;
}

}   // namespace

void x2DGLine::SetX(FloatArray& array, bool copy)
{
    xValues = Take(array, copy);
    ownsX = copy;
    UpdateRanges(true, false);
}

void x2DGLine::SetY(FloatArray& array, bool copy)
{
    yValues = Take(array, copy);
    ownsY = copy;
    UpdateRanges(false, true);
}

void x2DGLine::SetYConstant(float value, int count)
{
    const int lower = xValues ? xValues->Lower() : 0;
    yValues = std::make_unique<FloatArray>(lower, lower + std::max(0, count) - 1);
    *yValues = value;
    ownsY = true;
    UpdateRanges(false, true);
}

bool x2DGLine::HasTwoColumns(const FloatMatrix& table, const char* operation) const
{
    if (table.ColUpper() - table.ColLower() >= 1)
        return true;
    PostError("%s::SetData() - the table needs two columns.", operation);
    return false;
}

void x2DGLine::SetData(const FloatMatrix& table)
{
    if (!HasTwoColumns(table, "x2DGLine"))
        return;
    const int first = table.RowLower(), last = table.RowUpper();
    const int xColumn = table.ColLower(), yColumn = xColumn + 1;
    auto x = std::make_unique<FloatArray>(first, last);
    auto y = std::make_unique<FloatArray>(first, last);
    for (int r = first; r <= last; ++r) {
        const FloatArray& row = table.Row(r);
        (*x)[r] = row[xColumn];
        (*y)[r] = row[yColumn];
    }
    ReplaceArrays(std::move(x), std::move(y));
    UpdateRanges(true, true);
}

void x2DGLine::ComputePixels()
{
    if (!port || !xValues || !yValues)
        return;
    const int n = xValues->Size();
    if (n <= 0 || n != yValues->Size())
        return;
    float xLow, xHigh, yLow, yHigh;
    const bool xKnown = port->GetXRange(xLow, xHigh);
    const bool yKnown = port->GetYRange(yLow, yHigh);
    if (!xKnown || !yKnown)
        return;
    if (PixelCount() != n)
        pixels.assign(static_cast<size_t>(n), x2DGPixel());

    const float scaleX = (xHigh - xLow) / float(std::max(1, port->VirtualWidth()));
    const float scaleY = (yHigh - yLow) / float(std::max(1, port->VirtualHeight()));
    const float left = float(port->Frame().left + port->ScrollPosition());
    const float bottom = float(port->Frame().bottom);
    const float* x = xValues->Data();
    const float* y = yValues->Data();
    x2DGPixel* out = pixels.data();
    for (int i = 0; i < n; ++i) {
        out[i].h = ToPixel((x[i] - xLow) / scaleX + left);
        out[i].v = ToPixel(bottom - (y[i] - yLow) / scaleY);
    }
    FinishPixels();
}

void x2DGLine::FinishPixels() {}

void x2DGLine::Clear()
{
    xValues.reset();
    yValues.reset();
    ownsX = ownsY = false;
    std::vector<x2DGPixel>().swap(pixels);
    Invalidate();
}

void x2DGLine::SetPen(const x2DGPen& newPen)
{
    pen = newPen;
}

void x2DGLine::ShowPoints(bool on)
{
    showPoints = on;
}

void x2DGLine::UpdateFromTable(const FloatMatrix& table)
{
    if (table.RowUpper() - table.RowLower() + 1 < 2) {
        Clear();
        return;
    }
    SetData(table);
    ComputePixels();
    Invalidate();
}

void x2DGLine::Invalidate() const
{
    if (port)
        port->Invalidate();
}

void x2DGLine::Draw(x2DGSurface& surface) const
{
    if (!port || pixels.empty())
        return;
    const x2DGRect& frame = port->Frame();
    surface.SetPen(pen);
    surface.SetClip(&port->Paper());
    if (!showPoints) {
        surface.DrawPolyline(pixels.data(), PixelCount());
    } else {
        for (const x2DGPixel& p : pixels) {
            if (p.h < frame.left)
                continue;
            if (p.h > frame.right)
                break;
            surface.DrawOval({p.h - 2, p.v - 2, p.h + 2, p.v + 2});
        }
    }
    surface.SetClip(nullptr);
}

void x2DGLine::DoCommand(long command, void* data)
{
    if (command == x2DGPlot::kResized) {
        ComputePixels();
        return;
    }
    xCommandTarget::DoCommand(command, data);
}
