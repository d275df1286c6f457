#include "frame/xDescWin.h"

#include "frame/xDoc.h"

#include <QApplication>
#include <QKeyEvent>

xDescWin::xDescWin(xDoc* document) : xDWin(document, true, 3, 5, 24.0)
{
    // Keys go to the view with the focus; the window sees them on the way.
    qApp->installEventFilter(this);
}

xDescWin::~xDescWin()
{
    qApp->removeEventFilter(this);
}

bool xDescWin::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && Document()) {
        auto* widget = qobject_cast<QWidget*>(watched);
        auto* key = static_cast<QKeyEvent*>(event);
        bool modifierAlone = key->key() == Qt::Key_Shift || key->key() == Qt::Key_Control ||
                             key->key() == Qt::Key_Alt || key->key() == Qt::Key_Meta ||
                             key->key() == Qt::Key_AltGr;
        if (widget && widget->window() == this && !modifierAlone)
            Document()->SetChanged(true);
    }
    return xDWin::eventFilter(watched, event);
}
