#ifndef TOLVAD_WIDGETS_X2DGPLOT_H
#define TOLVAD_WIDGETS_X2DGPLOT_H

// The arithmetic of a graph port, apart from any screen: the world frame and
// its ranges, the ordered list of series, the mapping between pixels and
// numbers, the horizontal scale and scroll position, the end label texts, the
// read-out text, the rubber band, and the port's own commands. The Qt port
// derives from it and supplies the screen through the hooks at the end.

#include "gui/xCommandTarget.h"
#include "widgets/x2DGSurface.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class FloatArray;
class x2DGLine;

class x2DGPlot : public xCommandTarget {
public:
    enum Command : long {
        kDoubleYRange = 5675,
        kHalveYRange = 5676,
        kHorizontalScale = 5677,
        kHorizontalScaleAlso = 5678,
        kShiftYDown = 5679,
        kShiftYUp = 5680,
        kResized = 20006,        // sent to every series when the frame changes
        kCrossHairCursor = 20012,
        kArrowCursor = 20013
    };

    // The rubber band: its command and its two ends, in pixels from the
    // frame's top left corner.
    struct SketchPad {
        long command = 0;
        int startH = 0, startV = 0;
        int endH = 0, endV = 0;
        bool dragging = false;
    };

    // With both sizes 0 the frame's size is the virtual size.
    x2DGPlot(xCommandTarget* next, const x2DGRect& frame, int virtualWidth, int virtualHeight);
    ~x2DGPlot() override;
    x2DGPlot(const x2DGPlot&) = delete;
    x2DGPlot& operator=(const x2DGPlot&) = delete;

    bool readOut = false;
    float fidStart = 0.0f;
    float fidEnd = 0.0f;
    std::string labelFormat;
    float xMin = 0.0f;
    float xMax = 0.0f;
    float yMin = 0.0f;
    float yMax = 0.0f;
    // Optional positions along the horizontal axis: a copy, or a view of the
    // caller's array when ownsXAxis is off. None at construction.
    std::unique_ptr<FloatArray> xAxis;
    bool ownsXAxis = false;
    x2DGLine* currentSeries = nullptr;   // the series that sets the ranges
    bool labelsAtBottom = false;
    std::string labelPrefix;
    std::optional<SketchPad> itsSketchPad;
    bool drawZeroLine = false;
    float zeroLineValue = 0.0f;
    float yMargin = 0.2f;

    // Ranges. The setters act only when min is below max.
    void SetXRange(float min, float max);
    void SetYRange(float min, float max);
    // A range with both ends 0 is not known yet: it is then taken from the
    // first series, which becomes the current one. False when there is none.
    bool GetXRange(float& min, float& max);
    bool GetYRange(float& min, float& max);
    void RecomputeSeries(bool redraw);

    // The port owns its series. A series constructed on the port is already
    // in the list; AddSeries takes one over from nowhere or another port.
    void AddSeries(x2DGLine* line, bool redraw);
    // Takes the series out of the list and hands it back to the caller.
    std::unique_ptr<x2DGLine> RemoveSeries(x2DGLine* line);
    int SeriesCount() const { return static_cast<int>(series.size()); }
    x2DGLine* Series(int index) const;

    void SetEndLabels(float start, float end, const std::string& prefix, const std::string& format,
                      bool atBottom);
    // The texts of the left and the right end label.
    std::string EndLabelText(bool right) const;
    bool HasEndLabels() const { return endLabelsSet; }

    void SetHorizontalScale(float scale, float verticalScale = 1.0f);
    void CentreOn(float fid);

    void EnableReadOut() { readOut = true; }
    void DisableReadOut() { readOut = false; }
    // The two lines of the read-out box for a pointer at (h, v) in port pixels.
    std::string ReadOutText(int h, int v) const;

    void AddSketchPad(long command);
    // The band follows the mouse in port pixels; finishing it sends its
    // command up the chain with this plot as data.
    void BeginBand(int h, int v);
    void ExtendBand(int h, int v);
    void FinishBand(int h, int v);
    x2DGPoint GetWStartPoint();
    x2DGPoint GetWEndPoint();

    // Conversions between virtual pixels and numbers.
    float PixelToFid(float px) const;
    float PixelToX(float px) const;
    float PixelToY(float py) const;
    float XToPixel(float x) const;
    float FidToPixel(float fid) const;
    float ScrolledPixelToFid(float px) const;
    float ScrolledPixelToX(float px) const;

    // World units per pixel; 1.0 without a usable range.
    float ScaleX() const;
    float ScaleY() const;
    // The height of the zero line in port pixels.
    int ZeroLinePixel() const;

    const x2DGRect& Frame() const { return frame; }
    // Where the series may draw: the frame and the margin around it that the
    // screen gives, so that the ends of the ranges show whole. The frame
    // itself until one is set.
    const x2DGRect& Paper() const { return paper ? *paper : frame; }
    void SetPaper(const x2DGRect& area) { paper = area; }
    int VirtualWidth() const { return virtualWidth; }
    int VirtualHeight() const { return virtualHeight; }
    // Horizontal scroll position: 0 or negative, the virtual area's offset.
    int ScrollPosition() const { return scrollPosition; }
    void SetVirtualSize(int width, int height);
    void ScrollTo(int offset);
    // The frame changed: the virtual size follows it, the labels are rebuilt,
    // and a visible port tells every series.
    void Resize(const x2DGRect& newFrame, bool visible);
    // The frame lost or gained height to a strip of the port's own (labels, a
    // scroll bar): the virtual height follows it, the virtual width and the
    // scroll position stay.
    void Reframe(const x2DGRect& newFrame);

    // Zero line, then every series in list order.
    void DrawContents(x2DGSurface& surface) const;

    void DoCommand(long command, void* data) override;

    // Hooks for the screen; headless they do nothing.
    virtual void InvalidateRect(const x2DGRect& rect);
    virtual void ScrollChanged();
    virtual void EndLabelsChanged();
    virtual void SetCrossHairCursor(bool crossHair);
    void Invalidate() { InvalidateRect(Paper()); }

    // The largest virtual width; pixels beyond the 16-bit range can't be cached.
    static constexpr int kMaxVirtualWidth = 32767;

private:
    friend class x2DGLine;
    void ReleaseSeries(x2DGLine* line);
    // The range setters without their recompute, so that a series setting
    // both ranges recomputes once. True when the range was taken.
    bool StoreXRange(float min, float max);
    bool StoreYRange(float min, float max);
    bool TakeRangeFromFirstSeries(bool horizontal);
    bool GetRange(bool horizontal, float& min, float& max);
    x2DGPoint BandPointToWorld(int h, int v) const;
    void ShiftYRange(double factor, double shareOfSpan);

    std::vector<std::unique_ptr<x2DGLine>> series;
    x2DGRect frame;
    std::optional<x2DGRect> paper;
    int virtualWidth = 0;
    int virtualHeight = 0;
    int scrollPosition = 0;
    bool endLabelsSet = false;
};

#endif
