#include "widgets/x2DGPainterSurface.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRectF>

void x2DGPainterSurface::SetClip(const x2DGRect* rect)
{
    if (rect)
        painter.setClipRect(QRect(rect->left, rect->top, rect->Width(), rect->Height()));
    else
        painter.setClipping(false);
}

void x2DGPainterSurface::SetPen(const x2DGPen& pen)
{
    painter.setPen(QPen(QColor(QRgb(pen.colour)), pen.width));
}

namespace {
// A pixel's centre: a smoothed line of one pixel through it stays sharp when
// it runs level or upright.
QPointF Centre(int h, int v)
{
    return QPointF(h + 0.5, v + 0.5);
}
} // namespace

void x2DGPainterSurface::DrawPolyline(const x2DGPixel* cached, int count)
{
    if (count <= 0)
        return;
    points.resize(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        points[i] = Centre(cached[i].h, cached[i].v);
    painter.drawPolyline(points.data(), count);
}

void x2DGPainterSurface::DrawOval(const x2DGRect& box)
{
    painter.drawEllipse(QRectF(Centre(box.left, box.top), Centre(box.right, box.bottom)));
}

void x2DGPainterSurface::DrawSetPos(int h, int v)
{
    position = Centre(h, v);
}

void x2DGPainterSurface::DrawLine(int h, int v)
{
    const QPointF to = Centre(h, v);
    painter.drawLine(position, to);
    position = to;
}
