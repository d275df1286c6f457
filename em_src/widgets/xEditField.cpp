#include "widgets/xEditField.h"

#include "widgets/xCommandView.h"

#include <QKeyEvent>

xEditField::xEditField(QWidget* parent, long focusInCommand, long focusOutCommand, long returnCommand)
    : QLineEdit(parent), focusIn(focusInCommand), focusOut(focusOutCommand), onReturn(returnCommand)
{
    SetBackground(true);
}

void xEditField::SetBackground(bool white)
{
    QPalette p = palette();
    p.setColor(QPalette::Base, white ? QColor(255, 255, 255) : QColor(192, 192, 192));
    setPalette(p);
}

void xEditField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (focusIn)
        xCommandView::Send(parentWidget(), focusIn, this);
}

void xEditField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (focusOut)
        xCommandView::Send(parentWidget(), focusOut, this);
}

void xEditField::keyPressEvent(QKeyEvent* event)
{
    QLineEdit::keyPressEvent(event);
    if (onReturn && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        xCommandView::Send(parentWidget(), onReturn, this);
}
