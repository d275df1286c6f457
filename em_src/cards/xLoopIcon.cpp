#include "cards/xLoopIcon.h"

#include <QPainter>
#include <QPolygonF>

namespace {

// The dialog: the icon's frame grown by 65 at least, up to 30 corners, 5 shown.
constexpr int kDialogMargin = 65;
constexpr int kCornerRows = 30;
constexpr int kShownRows = 5;

} // namespace

void xLoopIcon::Draw(QPainter& painter)
{
    if (Picture().shape == xEMGCardLogic::Shape::kLoopPlan) {
        painter.drawRect(QRectF(4.0, 4.0, kSize - 8.0, kSize - 8.0));
        return;
    }
    // The loop seen edge on.
    const QPolygonF diamond{QPointF(25, 0.75), QPointF(30, 25), QPointF(25, kSize - 0.75), QPointF(20, 25)};
    painter.drawPolygon(diamond);
}

void xLoopIcon::Edit()
{
    const FloatMatrix before = Logic().LoopTable(*Sensor(), Component());
    FloatMatrix table = before;
    if (EditTable(xEMGCardLogic::kLoopTitle, table, kCornerRows, kShownRows, kDialogMargin) &&
        Logic().TakeLoop(*Sensor(), Component(), before, table))
        update();
}
