#ifndef TOLVAD_WIDGETS_XNOTEWIN_H
#define TOLVAD_WIDGETS_XNOTEWIN_H

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;
class QTimer;

// The "Note" window: a text with up to three buttons, each of which closes the
// window and leaves its place (0, 1, 2) as the result. A timed note is not
// modal: it closes by itself or on a press of the mouse, and the caller waits
// in the event loop. The variant with "Skip all" lets a caller leave out the
// rest of a series of notes.
class xNoteWin : public QDialog {
public:
    // A null button is left out. With milliseconds above 0 the note is timed;
    // a second timed call while one is open only replaces its text.
    static int ShowNote(const char* text, long milliseconds, const char* button1,
                        const char* button2 = nullptr, const char* button3 = nullptr);
    // The text with "OK", shown for 20000 milliseconds.
    static int ShowNote(const char* text);
    // Always modal; the check box shows skipFlag and writes it back on a button.
    static int ShowNoteWithSkip(const char* text, bool& skipFlag, const char* button1,
                                const char* button2 = nullptr, const char* button3 = nullptr);

    // The timed note on the screen, if any.
    static xNoteWin* OpenNote() { return openNote; }
    // The result of the last button pressed.
    static int Result() { return result; }

    QString Text() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    xNoteWin(const char* text, int height, const char* const buttons[3], bool* skipFlag);
    ~xNoteWin() override;
    void Press(int index);
    void CentreOnScreen();

    QLabel* textArea;
    QCheckBox* skipBox = nullptr;
    bool* skip;
    bool timed = false;

    static int result;
    static xNoteWin* openNote;
};

#endif
