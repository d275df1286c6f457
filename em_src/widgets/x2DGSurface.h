#ifndef TOLVAD_WIDGETS_X2DGSURFACE_H
#define TOLVAD_WIDGETS_X2DGSURFACE_H

// What a graph port needs of a drawing surface, and the small value types it
// speaks in. The headless code draws through this interface, so that what a
// series draws can be checked without a screen; the Qt port implements it on a
// painter.

#include <cstdint>

// One cached pixel of a series: vertical first, then horizontal, 16 bits each,
// so that a redraw hands the cache to the surface as it stands.
struct x2DGPixel {
    int16_t v = 0;
    int16_t h = 0;
};

// A rectangle in pixels; right and bottom lie just outside it.
struct x2DGRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

// A point of the world frame.
struct x2DGPoint {
    float x = 0.0f;
    float y = 0.0f;
};

// The pen of a series: colour as 0xRRGGBB and width in pixels.
struct x2DGPen {
    uint32_t colour = 0x000000;
    int width = 1;
};

class x2DGSurface {
public:
    virtual ~x2DGSurface() = default;

    // Limits drawing to the rectangle; a null rectangle clears the clip.
    virtual void SetClip(const x2DGRect* rect) = 0;
    virtual void SetPen(const x2DGPen& pen) = 0;
    virtual void DrawPolyline(const x2DGPixel* points, int count) = 0;
    // The circle inscribed in the box.
    virtual void DrawOval(const x2DGRect& box) = 0;
    // Moves the pen without drawing, then draws from there.
    virtual void DrawSetPos(int h, int v) = 0;
    virtual void DrawLine(int h, int v) = 0;
};

#endif
