#ifndef TOLVAD_WIDGETS_XMODALEDWIN_H
#define TOLVAD_WIDGETS_XMODALEDWIN_H

#include "gui/xCommandTarget.h"

#include <QDialog>
#include <QFont>
#include <QPoint>

#include <string>

class QPushButton;

// The base of the modal editors: "OK" (command 1) at the right of the bottom
// row and default, "Cancel" (command 2) at the left. The window is centred on
// the caller's point and kept 10 pixels inside the screen. Its size is the
// least it has: it widens until both buttons show whole side by side, and
// grows to hold what SetUpUserItem built. OK closes when Accept agrees; Cancel
// sets the one flag the whole family shares, which the caller reads after the
// run. Other commands go on to the parent.
class xModalEdWin : public QDialog, public xCommandTarget {
public:
    enum Command { kOk = 1, kCancel = 2 };
    static constexpr int kMargin = 10;
    static constexpr int kButtonRow = 40;
    static constexpr int kButtonWidth = 80;
    static constexpr int kButtonHeight = 25;

    // A null parent or a centre of (-1, -1) centres on the parent's window,
    // or on the screen.
    xModalEdWin(QWidget* parent, const std::string& title, QPoint centre, int width, int height);

    // Set to false by every new window of the family, to true by Cancel.
    static bool Cancelled;

    // Runs the window modally; the result of the run is in Cancelled.
    void Run() { exec(); }
    void DoCommand(long command, void* data) override;
    // Recentres for a new client size and rebuilds the buttons at the new
    // bottom; false, with nothing changed, when the frame would leave the screen.
    bool ResizeToFit(int width, int height);

    QPushButton* OkButton() const { return okButton; }
    QPushButton* CancelButton() const { return cancelButton; }

    // The client area above the buttons starts at clientTop and is
    // clientHeight high.
    int clientHeight;
    int clientTop = 0;
    std::string format = "%10.7e";
    QFont labelFont;
    int fieldWidth = 90;
    int fieldHeight = 23;
    double itemGap = 1.0;

protected:
    // Takes the edited value back; false keeps the window open.
    virtual bool Accept() { return true; }
    void reject() override;
    // Grows the window until it holds every control built on it above the
    // buttons, with a margin, and keeps it inside the screen.
    void FitToContents();
    // The height of the bottom row with the buttons.
    int ButtonRowHeight() const;
    // A caption over a control, both across the window and as large as their
    // texts need, then the window grown to hold them.
    void PlaceCaptioned(QWidget* caption, QWidget* control);

    // What is edited; not owned.
    void* value = nullptr;

private:
    void PlaceButtons();
    QRect FrameAround(QPoint centre, int width, int height) const;
    QSize ButtonSize(QPushButton* button) const;
    // The least width that shows both buttons whole with margins between.
    int ButtonsWidth() const;
    // Takes the frame, moved so that it keeps the margin inside the screen.
    void PlaceInsideScreen(QRect frame);

    QPushButton* okButton;
    QPushButton* cancelButton;
};

#endif
