#include "widgets/xCommandView.h"

#include <QEvent>

xCommandView::xCommandView(QWidget* parent, long id) : QWidget(parent), viewId(id) {}

void xCommandView::DoCommand(long command, void* data)
{
    if (NextTarget()) {
        NextTarget()->DoCommand(command, data);
        return;
    }
    // Looked up at the time of sending, so a view may be reparented.
    if (xCommandTarget* above = TargetAbove(this))
        above->DoCommand(command, data);
}

void xCommandView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Layout();
}

xCommandTarget* xCommandView::TargetAbove(const QWidget* widget)
{
    for (QWidget* w = widget ? widget->parentWidget() : nullptr; w; w = w->parentWidget())
        if (auto* target = dynamic_cast<xCommandTarget*>(w))
            return target;
    return nullptr;
}

void xCommandView::Send(QWidget* from, long command, void* data)
{
    if (auto* self = dynamic_cast<xCommandTarget*>(from)) {
        self->DoCommand(command, data);
        return;
    }
    if (xCommandTarget* above = TargetAbove(from))
        above->DoCommand(command, data);
}
