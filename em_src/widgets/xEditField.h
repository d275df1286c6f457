#ifndef TOLVAD_WIDGETS_XEDITFIELD_H
#define TOLVAD_WIDGETS_XEDITFIELD_H

#include <QLineEdit>

// The one-line text control of boxes and grids. It tells its owner by command
// when it gains and loses the focus and when Return is pressed in it; the
// numbers differ by owner, so they are given at construction (0 sends
// nothing).
class xEditField : public QLineEdit {
public:
    xEditField(QWidget* parent, long focusInCommand, long focusOutCommand, long returnCommand);

    // White, or light grey for a field that can't be used.
    void SetBackground(bool white);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    long focusIn;
    long focusOut;
    long onReturn;
};

#endif
