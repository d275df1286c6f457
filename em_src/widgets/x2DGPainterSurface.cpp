#include "widgets/x2DGPainterSurface.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRect>

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

void x2DGPainterSurface::DrawPolyline(const x2DGPixel* cached, int count)
{
    if (count <= 0)
        return;
    points.resize(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        points[i] = QPoint(cached[i].h, cached[i].v);
    painter.drawPolyline(points.data(), count);
}

void x2DGPainterSurface::DrawOval(const x2DGRect& box)
{
    painter.drawEllipse(QRect(box.left, box.top, box.Width(), box.Height()));
}

void x2DGPainterSurface::DrawSetPos(int h, int v)
{
    position = QPoint(h, v);
}

void x2DGPainterSurface::DrawLine(int h, int v)
{
    const QPoint to(h, v);
    painter.drawLine(position, to);
    position = to;
}
