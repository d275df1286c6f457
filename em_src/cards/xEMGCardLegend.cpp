#include "cards/xEMGCardLegend.h"

#include <QPainter>
#include <QFontMetrics>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr int kArrow = 34;   // length of each arrow
constexpr double kHead = 6.0;

} // namespace

xEMGCardLegend::xEMGCardLegend(QWidget* parent) : QWidget(parent)
{
    // Moves over the legend go on to the card.
    setMouseTracking(true);
    resize(sizeHint());
}

void xEMGCardLegend::SetPlanView(bool on)
{
    if (plan == on)
        return;
    plan = on;
    update();
}

QString xEMGCardLegend::VerticalLabel() const
{
    return plan ? QStringLiteral("y") : QStringLiteral("z");
}

QSize xEMGCardLegend::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int letter = std::max(metrics.horizontalAdvance(QLatin1Char('x')), metrics.horizontalAdvance(QLatin1Char('z')));
    return QSize(4 + kArrow + 4 + letter + 2, 2 + metrics.height() + 2 + kArrow + 4);
}

void xEMGCardLegend::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetrics metrics(font());
    const QPointF corner(4.5, height() - 4.5);
    const QPointF right = corner + QPointF(kArrow, 0);
    const QPointF up = corner - QPointF(0, kArrow);
    QPen pen(palette().color(QPalette::WindowText));
    pen.setWidthF(1.0);
    painter.setPen(pen);
    painter.drawLine(corner, right - QPointF(kHead - 1, 0));
    painter.drawLine(corner, up + QPointF(0, kHead - 1));
    QPainterPath heads;
    heads.moveTo(right);
    heads.lineTo(right + QPointF(-kHead, -kHead / 2));
    heads.lineTo(right + QPointF(-kHead, kHead / 2));
    heads.closeSubpath();
    heads.moveTo(up);
    heads.lineTo(up + QPointF(-kHead / 2, kHead));
    heads.lineTo(up + QPointF(kHead / 2, kHead));
    heads.closeSubpath();
    painter.fillPath(heads, pen.color());
    painter.drawText(QPointF(right.x() + 3, right.y() + metrics.ascent() / 2.0 - 1), QStringLiteral("x"));
    painter.drawText(QPointF(up.x() - metrics.horizontalAdvance(VerticalLabel()) / 2.0 + 0.5, up.y() - 3),
                     VerticalLabel());
}
