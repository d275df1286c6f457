#include "widgets/x2DGPlot.h"

#include "gui/xPlatform.h"
#include "numeric/FloatArray.h"
#include "widgets/x2DGLine.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// Pixels per centimetre of the screen the horizontal scale was made for.
constexpr double kPixelsPerCentimetre = 28.3265;

// A range can map numbers when its ends are finite and differ; both ends 0
// means it isn't known yet.
bool Usable(float a, float b)
{
    return std::isfinite(a) && std::isfinite(b) && a != b;
}

// A label format must hold exactly one conversion of a double, so that a bad
// format can't read what isn't there.
bool IsNumberFormat(const std::string& format)
{
    int conversions = 0;
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%')
            continue;
        ++i;
        if (i < format.size() && format[i] == '%')
            continue;
        while (i < format.size() && std::strchr("-+ #0", format[i]))
            ++i;
        while (i < format.size() && format[i] >= '0' && format[i] <= '9')
            ++i;
        if (i < format.size() && format[i] == '.') {
            ++i;
            while (i < format.size() && format[i] >= '0' && format[i] <= '9')
                ++i;
        }
        if (i >= format.size() || !std::strchr("eEfFgGaA", format[i]))
            return false;
        ++conversions;
    }
    return conversions == 1;
}

}   // namespace

x2DGPlot::x2DGPlot(xCommandTarget* next, const x2DGRect& frameRect, int width, int height)
    : xCommandTarget(next), frame(frameRect)
{
    if (width == 0 && height == 0) {
        width = frame.Width();
        height = frame.Height();
    }
    virtualWidth = std::max(0, width);
    virtualHeight = std::max(0, height);
}

x2DGPlot::~x2DGPlot()
{
    // The series must not call back into a plot that is going away.
    for (auto& line : series) {
        line->port = nullptr;
        line->SetNextTarget(nullptr);
    }
    series.clear();
}

bool x2DGPlot::StoreXRange(float min, float max)
{
    if (!(min < max))
        return false;
    xMin = min;
    xMax = max;
    return true;
}

bool x2DGPlot::StoreYRange(float min, float max)
{
    if (!(min < max))
        return false;
    const double d = (double(max) - double(min)) * yMargin;
    yMin = static_cast<float>(min - d);
    yMax = static_cast<float>(max + d);
    return true;
}

void x2DGPlot::SetXRange(float min, float max)
{
    if (StoreXRange(min, max))
        RecomputeSeries(false);
}

void x2DGPlot::SetYRange(float min, float max)
{
    if (StoreYRange(min, max))
        RecomputeSeries(false);
}

bool x2DGPlot::TakeRangeFromFirstSeries(bool horizontal)
{
    if (series.empty())
        return false;
    currentSeries = series.front().get();
    const FloatArray* values = horizontal ? currentSeries->xValues.get()
                                          : currentSeries->yValues.get();
    if (!values || values->Size() <= 0)
        return false;
    const float min = values->Min(nullptr);
    const float max = values->Max(nullptr);
    if (!(min < max))
        return false;
    (horizontal ? xMin : yMin) = min;
    (horizontal ? xMax : yMax) = max;
    return true;
}

bool x2DGPlot::GetRange(bool horizontal, float& min, float& max)
{
    const float& low = horizontal ? xMin : yMin;
    const float& high = horizontal ? xMax : yMax;
    if (low == 0.0f && high == 0.0f)
        TakeRangeFromFirstSeries(horizontal);
    min = low;
    max = high;
    return Usable(low, high);
}

bool x2DGPlot::GetXRange(float& min, float& max)
{
    return GetRange(true, min, max);
}

bool x2DGPlot::GetYRange(float& min, float& max)
{
    return GetRange(false, min, max);
}

void x2DGPlot::RecomputeSeries(bool redraw)
{
    for (auto& line : series)
        line->ComputePixels();
    if (redraw)
        Invalidate();
}

void x2DGPlot::AddSeries(x2DGLine* line, bool redraw)
{
    if (!line)
        return;
    if (line->port == this) {
        for (auto& owned : series)
            if (owned.get() == line)
                return;
    } else if (line->port) {
        line->port->ReleaseSeries(line);
    }
    line->port = this;
    line->SetNextTarget(this);
    series.emplace_back(line);
    line->ComputePixels();
    if (redraw)
        Invalidate();
}

void x2DGPlot::ReleaseSeries(x2DGLine* line)
{
    for (auto it = series.begin(); it != series.end(); ++it) {
        if (it->get() == line) {
            it->release();
            series.erase(it);
            break;
        }
    }
    if (currentSeries == line)
        currentSeries = nullptr;
}

std::unique_ptr<x2DGLine> x2DGPlot::RemoveSeries(x2DGLine* line)
{
    if (!line || line->port != this)
        return nullptr;
    ReleaseSeries(line);
    line->port = nullptr;
    line->SetNextTarget(nullptr);
    Invalidate();
    return std::unique_ptr<x2DGLine>(line);
}

x2DGLine* x2DGPlot::Series(int index) const
{
    if (index < 0 || index >= SeriesCount())
        return nullptr;
    return series[index].get();
}

void x2DGPlot::SetEndLabels(float start, float end, const std::string& prefix,
                            const std::string& format, bool atBottom)
{
    fidStart = start;
    fidEnd = end;
    labelPrefix = prefix;
    labelFormat = format;
    labelsAtBottom = atBottom;
    endLabelsSet = true;
    EndLabelsChanged();
}

std::string x2DGPlot::EndLabelText(bool right) const
{
    const float fid = ScrolledPixelToFid(right ? float(frame.Width()) : 0.0f);
    // FIDs are running numbers, so a label without a usable format shows whole ones.
    const char* format = IsNumberFormat(labelFormat) ? labelFormat.c_str() : "%.0f";
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const std::string number = FormatText(format, double(fid));
#pragma GCC diagnostic pop
    return right ? number : labelPrefix + number;
}

void x2DGPlot::SetHorizontalScale(float scale, float verticalScale)
{
    if (verticalScale != 1.0f)
        PostFatalExit("x2DGPort::SetHorizontalScale() - vertical scale must be 1.0.");
    const float middle = ScrolledPixelToX(float(frame.Width() / 2));
    if (!(scale >= 1.0f))
        scale = 1.0f;
    const double wanted = (double(xMax) - double(xMin)) * kPixelsPerCentimetre * 100.0 / scale;
    int width = frame.Width();
    if (wanted > width)
        width = wanted >= kMaxVirtualWidth ? kMaxVirtualWidth : static_cast<int>(wanted);
    SetVirtualSize(width, virtualHeight);
    RecomputeSeries(false);
    CentreOn(middle);
}

void x2DGPlot::CentreOn(float fid)
{
    float offset = float(frame.Width() / 2) - FidToPixel(fid);
    const float lowest = -float(virtualWidth - frame.Width());
    if (!(offset >= lowest))
        offset = lowest;
    if (!(offset <= 0.0f))
        offset = 0.0f;
    ScrollTo(static_cast<int>(offset));
}

std::string x2DGPlot::ReadOutText(int h, int v) const
{
    const float fid = ScrolledPixelToFid(float(h - frame.left));
    const float amplitude = PixelToY(float(v - frame.top));
    return FormatText(" FID : %9.2f\n AMP : %9.2f", double(fid), double(amplitude));
}

void x2DGPlot::AddSketchPad(long command)
{
    itsSketchPad = SketchPad();
    itsSketchPad->command = command;
}

void x2DGPlot::BeginBand(int h, int v)
{
    if (!itsSketchPad)
        return;
    itsSketchPad->startH = itsSketchPad->endH = h - frame.left;
    itsSketchPad->startV = itsSketchPad->endV = v - frame.top;
    itsSketchPad->dragging = true;
}

void x2DGPlot::ExtendBand(int h, int v)
{
    if (!itsSketchPad || !itsSketchPad->dragging)
        return;
    itsSketchPad->endH = h - frame.left;
    itsSketchPad->endV = v - frame.top;
}

void x2DGPlot::FinishBand(int h, int v)
{
    if (!itsSketchPad || !itsSketchPad->dragging)
        return;
    ExtendBand(h, v);
    itsSketchPad->dragging = false;
    DoCommand(itsSketchPad->command, this);
}

x2DGPoint x2DGPlot::BandPointToWorld(int h, int v) const
{
    x2DGPoint point;
    point.x = static_cast<float>(double(h) * ScaleX() + xMin);
    point.y = static_cast<float>(double(virtualHeight - v) * ScaleY() + yMin);
    return point;
}

x2DGPoint x2DGPlot::GetWStartPoint()
{
    if (!itsSketchPad) {
        PostFatalExit("x2DGPort::GetWStartPoint()  - itsSketchPad undefined.");
        return x2DGPoint();
    }
    return BandPointToWorld(itsSketchPad->startH, itsSketchPad->startV);
}

x2DGPoint x2DGPlot::GetWEndPoint()
{
    if (!itsSketchPad) {
        PostFatalExit("x2DGPort::GetWEndPoint()  - itsSketchPad undefined.");
        return x2DGPoint();
    }
    return BandPointToWorld(itsSketchPad->endH, itsSketchPad->endV);
}

// A port with no width yet maps over one pixel rather than dividing by zero.
float x2DGPlot::PixelToFid(float px) const
{
    const double w = std::max(1, virtualWidth);
    return static_cast<float>(fidStart + px * (double(fidEnd) - fidStart) / w);
}

float x2DGPlot::PixelToX(float px) const
{
    const double w = std::max(1, virtualWidth);
    return static_cast<float>(xMin + px * (double(xMax) - xMin) / w);
}

float x2DGPlot::PixelToY(float py) const
{
    const double h = std::max(1, virtualHeight);
    if (yMin <= yMax)
        return static_cast<float>(yMin + (h - py) * (double(yMax) - yMin) / h);
    return static_cast<float>(yMax + py * (double(yMin) - yMax) / h);
}

// The descending branch adds a whole width where FidToPixel subtracts from
// one; existing plots rely on that, so the two stay different.
float x2DGPlot::XToPixel(float x) const
{
    if (xMin == xMax)
        return 0.0f;
    const double w = virtualWidth;
    if (xMin < xMax)
        return static_cast<float>((double(x) - xMin) / (double(xMax) - xMin) * w);
    return static_cast<float>(((double(x) - xMax) / (double(xMin) - xMax) + 1.0) * w);
}

float x2DGPlot::FidToPixel(float fid) const
{
    if (fidStart == fidEnd)
        return 0.0f;
    const double w = virtualWidth;
    if (fidStart < fidEnd)
        return static_cast<float>((double(fid) - fidStart) / (double(fidEnd) - fidStart) * w);
    return static_cast<float>((1.0 - (double(fid) - fidEnd) / (double(fidStart) - fidEnd)) * w);
}

float x2DGPlot::ScrolledPixelToFid(float px) const
{
    return PixelToFid(px - float(scrollPosition));
}

float x2DGPlot::ScrolledPixelToX(float px) const
{
    return PixelToX(px - float(scrollPosition));
}

float x2DGPlot::ScaleX() const
{
    if (!Usable(xMin, xMax) || virtualWidth <= 0)
        return 1.0f;
    return (xMax - xMin) / float(virtualWidth);
}

float x2DGPlot::ScaleY() const
{
    if (!Usable(yMin, yMax) || virtualHeight <= 0)
        return 1.0f;
    return (yMax - yMin) / float(virtualHeight);
}

int x2DGPlot::ZeroLinePixel() const
{
    const float v = float(frame.bottom) - (zeroLineValue - yMin) / ScaleY();
    return x2DGLine::ToPixel(v);
}

void x2DGPlot::SetVirtualSize(int width, int height)
{
    virtualWidth = std::clamp(width, 0, kMaxVirtualWidth);
    virtualHeight = std::max(0, height);
    // The frame must stay covered by the virtual area.
    scrollPosition = std::clamp(scrollPosition, std::min(0, frame.Width() - virtualWidth), 0);
    ScrollChanged();
}

void x2DGPlot::ScrollTo(int offset)
{
    if (offset != scrollPosition) {
        scrollPosition = offset;
        RecomputeSeries(false);
    }
    ScrollChanged();
    Invalidate();
}

void x2DGPlot::Resize(const x2DGRect& newFrame, bool visible)
{
    frame = newFrame;
    scrollPosition = 0;
    SetVirtualSize(frame.Width(), frame.Height());
    EndLabelsChanged();
    if (visible)
        for (auto& line : series)
            line->DoCommand(kResized, nullptr);
}

void x2DGPlot::Reframe(const x2DGRect& newFrame)
{
    frame = newFrame;
    SetVirtualSize(std::max(virtualWidth, frame.Width()), frame.Height());
    RecomputeSeries(false);
    Invalidate();
}

void x2DGPlot::DrawContents(x2DGSurface& surface) const
{
    if (drawZeroLine) {
        const int v = ZeroLinePixel();
        surface.SetClip(&Paper());
        surface.DrawSetPos(Paper().left, v);
        surface.DrawLine(Paper().right, v);
        surface.SetClip(nullptr);
    }
    for (const auto& line : series)
        line->Draw(surface);
}

void x2DGPlot::ShiftYRange(double factor, double shareOfSpan)
{
    const double shift = (double(yMax) - yMin) * shareOfSpan;
    yMin = static_cast<float>(yMin * factor + shift);
    yMax = static_cast<float>(yMax * factor + shift);
    RecomputeSeries(true);
}

void x2DGPlot::DoCommand(long command, void* data)
{
    switch (command) {
    case kDoubleYRange:
        ShiftYRange(2.0, 0.0);
        break;
    case kHalveYRange:
        ShiftYRange(0.5, 0.0);
        break;
    case kHorizontalScale:
    case kHorizontalScaleAlso:
        if (data)
            SetHorizontalScale(*static_cast<const float*>(data));
        break;
    case kShiftYDown:
        ShiftYRange(1.0, -0.1);
        break;
    case kShiftYUp:
        ShiftYRange(1.0, 0.1);
        break;
    case kCrossHairCursor:
    case kArrowCursor:
        if (readOut)
            SetCrossHairCursor(command == kCrossHairCursor);
        break;
    default:
        xCommandTarget::DoCommand(command, data);
    }
}

void x2DGPlot::InvalidateRect(const x2DGRect&) {}
void x2DGPlot::ScrollChanged() {}
void x2DGPlot::EndLabelsChanged() {}
void x2DGPlot::SetCrossHairCursor(bool) {}
