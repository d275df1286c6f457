#ifndef TOLVAD_WIDGETS_XEDITFIELD_H
#define TOLVAD_WIDGETS_XEDITFIELD_H

#include <QLineEdit>

// The one-line text control of boxes and grids. It tells its owner by command
// when it gains and loses the focus and when Return is pressed in it; the
// numbers differ by owner, so they are given at construction (0 sends
// nothing). It looks as the style draws a line edit, disabled too, except
// that a disabled field's text is darkened until it reads well: its value
// still counts.
class xEditField : public QLineEdit {
public:
    xEditField(QWidget* parent, long focusInCommand, long focusOutCommand, long returnCommand);

    // The width the field needs to show this text whole in its font, frame
    // and margins included.
    int WidthFor(const QString& text) const;
    // The height it needs for its font; never below the given minimum.
    int HeightFor(int minimum) const;
    // Where the baseline of its text lies, from the field's top.
    int TextBaseline() const;

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ReadableWhenDisabled();

    long focusIn;
    long focusOut;
    long onReturn;
};

#endif
