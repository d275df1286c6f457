#include "cards/xDipoleIcon.h"

#include <QPainter>

namespace {

using Arrow = xEMGCardLogic::Arrow;
using Shape = xEMGCardLogic::Shape;

// The moment's line stays inside the oval.
constexpr double kInset = 6.0;

} // namespace

void xDipoleIcon::Draw(QPainter& painter)
{
    const double size = kSize;
    const double middle = size / 2.0;
    painter.drawEllipse(QRectF(0.75, 0.75, size - 1.5, size - 1.5));
    const xEMGCardLogic::Picture picture = Picture();
    switch (picture.shape) {
    case Shape::kOvalLine: {
        bool horizontal = picture.arrow == Arrow::kLeft || picture.arrow == Arrow::kRight;
        QPointF low = horizontal ? QPointF(kInset, middle) : QPointF(middle, kInset);
        QPointF high = horizontal ? QPointF(size - kInset, middle) : QPointF(middle, size - kInset);
        bool headAtHigh = picture.arrow == Arrow::kRight || picture.arrow == Arrow::kDown;
        DrawArrowLine(painter, low, high, !headAtHigh, headAtHigh);
        break;
    }
    case Shape::kOvalDot:
        // The moment points out of the plan: a small circle, 2 units each way.
        painter.drawEllipse(QPointF(middle, middle), 2.0, 2.0);
        break;
    case Shape::kOvalCross:
        // The moment points into the section: two crossing lines, 1 unit short of the edges.
        painter.drawLine(QPointF(1.0, 1.0), QPointF(size - 1.0, size - 1.0));
        painter.drawLine(QPointF(size - 1.0, 1.0), QPointF(1.0, size - 1.0));
        break;
    default:
        // Without the component only the oval stands.
        break;
    }
}
