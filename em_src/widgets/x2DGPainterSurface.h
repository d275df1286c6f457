#ifndef TOLVAD_WIDGETS_X2DGPAINTERSURFACE_H
#define TOLVAD_WIDGETS_X2DGPAINTERSURFACE_H

// The drawing surface of a graph port on a Qt painter. Lines run through the
// centres of the cached pixels.

#include "widgets/x2DGSurface.h"

#include <QPointF>
#include <vector>

class QPainter;

class x2DGPainterSurface : public x2DGSurface {
public:
    explicit x2DGPainterSurface(QPainter& painter) : painter(painter) {}

    void SetClip(const x2DGRect* rect) override;
    void SetPen(const x2DGPen& pen) override;
    // The cached pairs are only widened into the painter's points.
    void DrawPolyline(const x2DGPixel* points, int count) override;
    void DrawOval(const x2DGRect& box) override;
    void DrawSetPos(int h, int v) override;
    void DrawLine(int h, int v) override;

private:
    QPainter& painter;
    std::vector<QPointF> points;
    QPointF position;
};

#endif
