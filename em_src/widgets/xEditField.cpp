#include "widgets/xEditField.h"

#include "widgets/xCommandView.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFrame>

namespace {
// The line edit's own margins around its text, inside the contents rectangle.
const int kHorizontalMargin = 2;
const int kVerticalMargin = 1;
} // namespace

xEditField::xEditField(QWidget* parent, long focusInCommand, long focusOutCommand, long returnCommand)
    : QLineEdit(parent), focusIn(focusInCommand), focusOut(focusOutCommand), onReturn(returnCommand)
{
    ReadableWhenDisabled();
}

void xEditField::ReadableWhenDisabled()
{
    // Halfway from the style's disabled text to its ordinary text, on the
    // style's disabled background.
    const QPalette style = QApplication::palette(this);
    const QColor faint = style.color(QPalette::Disabled, QPalette::Text);
    const QColor normal = style.color(QPalette::Active, QPalette::Text);
    const QColor readable((faint.red() + normal.red()) / 2, (faint.green() + normal.green()) / 2,
                          (faint.blue() + normal.blue()) / 2);
    QPalette p = palette();
    if (p.color(QPalette::Disabled, QPalette::Text) == readable)
        return;
    p.setColor(QPalette::Disabled, QPalette::Text, readable);
    setPalette(p);
}

void xEditField::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        ReadableWhenDisabled();
}

int xEditField::WidthFor(const QString& text) const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QMargins textMargin = textMargins();
    const QMargins contents = contentsMargins();
    // One pixel more for the cursor behind the last character.
    const int width = fontMetrics().horizontalAdvance(text) + 1 + 2 * kHorizontalMargin + textMargin.left() +
                      textMargin.right() + contents.left() + contents.right();
    const int height = fontMetrics().height() + 2 * kVerticalMargin;
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(width, height), this).width();
}

int xEditField::HeightFor(int minimum) const
{
    return std::max(minimum, sizeHint().height());
}

int xEditField::TextBaseline() const
{
    // As the line edit lays out its text: centred in the contents rectangle.
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this)
                               .marginsRemoved(textMargins());
    const QFontMetrics metrics = fontMetrics();
    return contents.y() + (contents.height() - metrics.height() + 1) / 2 + metrics.ascent();
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
