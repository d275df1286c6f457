#include "cards/xSensorIcon.h"

#include "widgets/xGridEdViewWin.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

const QColor kFill(192, 192, 192);
constexpr double kHeadLength = 7.0;
constexpr double kHeadHalfWidth = 3.5;

void DrawHead(QPainter& painter, const QPointF& tip, const QPointF& from)
{
    const QPointF along = tip - from;
    const double length = std::hypot(along.x(), along.y());
    if (length <= 0.0)
        return;
    const QPointF unit = along / length;
    const QPointF normal(-unit.y(), unit.x());
    const QPointF base = tip - unit * kHeadLength;
    QPainterPath head;
    head.moveTo(tip);
    head.lineTo(base + normal * kHeadHalfWidth);
    head.lineTo(base - normal * kHeadHalfWidth);
    head.closeSubpath();
    painter.fillPath(head, painter.pen().color());
}

} // namespace

xSensorIcon::xSensorIcon(QWidget* parent, const Setup& setup)
    : xCommandView(parent, setup.id), logic(setup.logic), sensor(setup.sensor), component(setup.component),
      plan(setup.plan), pen(setup.pen)
{
    setGeometry(QRect(setup.centre - QPoint(kSize / 2, kSize / 2), QSize(kSize, kSize)));
    // Moves without a button go on to the card, for its cursor labels and prompts.
    setMouseTracking(true);
}

xEMGCardLogic::Picture xSensorIcon::Picture() const
{
    return xEMGCardLogic::PictureOf(*sensor, component, plan);
}

bool xSensorIcon::EditTable(const char* title, FloatMatrix& table, int capacityRows, int shownRows, int margin)
{
    xGridEdViewWin dialog(this, title, mapToGlobal(QPoint(kSize / 2, kSize / 2)));
    dialog.SetCapacity(capacityRows, 3);
    dialog.SetVisibleSize(shownRows, 3);
    const QSize least(kSize + 2 * margin, kSize + 2 * margin);
    if (dialog.width() < least.width() || dialog.height() < least.height())
        dialog.ResizeToFit(std::max(dialog.width(), least.width()), std::max(dialog.height(), least.height()));
    dialog.SetUpUserItem(&table);
    dialog.Run();
    return !xModalEdWin::Cancelled;
}

void xSensorIcon::Dragged()
{
    sentCentre = Centre();
    xCommandView::DoCommand(xEMGCardLogic::kReceiverDragged, &sentCentre);
}

void xSensorIcon::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    Edit();
    if (command)
        xCommandView::DoCommand(command, this);
}

void xSensorIcon::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    // The transmitter stays at the origin: only the receiver drags.
    dragging = draggable;
    grab = event->position().toPoint();
    event->accept();
}

void xSensorIcon::mouseMoveEvent(QMouseEvent* event)
{
    if (!dragging) {
        event->ignore();
        return;
    }
    // Moving the view repaints what it leaves and what it covers, nothing more.
    move(mapToParent(event->position().toPoint()) - grab);
    Dragged();
    event->accept();
}

void xSensorIcon::mouseReleaseEvent(QMouseEvent* event)
{
    if (!dragging || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    Dragged();
    dragging = false;
    event->accept();
}

void xSensorIcon::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), kFill);
    QPen line(pen);
    line.setWidthF(1.5);
    line.setCapStyle(Qt::FlatCap);
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    Draw(painter);
}

void xSensorIcon::DrawArrowLine(QPainter& painter, const QPointF& from, const QPointF& to, bool headAtFrom,
                                bool headAtTo)
{
    // The shaft stops where a head begins, so the tip stays sharp.
    const QPointF along = to - from;
    const double length = std::hypot(along.x(), along.y());
    const QPointF unit = length > 0.0 ? along / length : QPointF();
    const QPointF start = headAtFrom ? from + unit * (kHeadLength - 1.0) : from;
    const QPointF end = headAtTo ? to - unit * (kHeadLength - 1.0) : to;
    painter.drawLine(start, end);
    if (headAtFrom)
        DrawHead(painter, from, to);
    if (headAtTo)
        DrawHead(painter, to, from);
}
