#ifndef TOLVAD_FRAME_XPWIN_H
#define TOLVAD_FRAME_XPWIN_H

#include "frame/xPromptHost.h"
#include "gui/xCommandTarget.h"

#include <QMainWindow>
#include <QRect>

#include <memory>
#include <string>
#include <vector>

class QFrame;
class QLabel;
class QPushButton;
class xDoc;
class xQtMenuBar;

// A window that tells the user what lies under the mouse: a light grey panel
// at its bottom edge shows up to four lines of the prompt of the region under
// the mouse, a heading and three lines of text. Prompts are on or off for all
// windows at once, until the program ends. The window also keeps the
// keyboard order of its views, and carries the menu bar of resource 9001.
class xPWin : public QMainWindow, public xCommandTarget, public xPromptHost {
public:
    enum Command { kOk = 1, kCancel = 2, kShowPrompt = 67676, kToggleHelp = 10241, kNullCommand = 20003 };
    // The help menu the window builds, and the about entry it holds.
    enum { kHelpMenu = 32450, kAbout = 32010 };
    static constexpr int kPanelMargin = 5;
    static constexpr int kPanelHeight = 65;
    static constexpr int kLineCount = 4;

    // Shared by every window; 1 at program start.
    static bool helpOn;

    // With help false there is no panel and no prompt lists, and prompts go
    // off for all windows. Commands the window doesn't take go to document.
    xPWin(xDoc* document, bool help);
    ~xPWin() override;

    // The frame of a new window: 636 wide below the title bar, centred on the
    // screen, then moved 20 right and down for each other open document.
    QRect PlacementFrame(int otherDocuments) const;

    // Prompt regions are in the coordinates of the client area. The mouse
    // moved there: a change of region shows its prompt.
    void MouseMovedTo(const QPoint& point);
    void ShowPrompt(const char* text);
    void SetHelpOn(bool on) { helpOn = on; }

    // "OK" (command 1) and "Cancel" (command 2) at the bottom right corner;
    // the panel narrows to leave them room.
    void AddOkCancel();

    void DoCommand(long command, void* data) override;
    // A menu command of this window.
    virtual void DoMenuCommand(long command);
    // The window's share of the menus; the help menu follows helpOn.
    virtual void DoSetUpMenus(xQtMenuBar& menuBar);
    virtual void DoUpdateMenus(xQtMenuBar& menuBar);

    xDoc* Document() const { return document; }
    xQtMenuBar& MenuBar() const { return *menuBar; }
    // The area below the menu bar that holds the window's views.
    QWidget* Client() const { return client; }
    bool HasPanel() const { return panel != nullptr; }
    QFrame* Panel() const { return panel; }
    QLabel* PromptLine(int index) const { return lines[index]; }
    QPushButton* OkButton() const { return okButton; }
    QPushButton* CancelButton() const { return cancelButton; }
    // Height the panel needs for its lines.
    int PanelHeight() const;
    // Width the panel needs to show these prompts whole, the heading in the
    // font of the first line and the rest in that of the others.
    int PanelWidthFor(const std::vector<std::string>& texts) const;

    // Lays the views out in a client area of this size; here the panel.
    virtual void LayOut(const QSize& clientSize);

protected:
    // Lays the panel out in a client area of this size; gives the panel's
    // top, or the client's height without a panel.
    int LayOutPanel(const QSize& clientSize);
    // What OK and Cancel do: the window closes.
    virtual void CloseWindow() { close(); }
    // A menu command as the menu bar gives it: the work is done from the
    // event loop, so that a command may close the window that sent it.
    void MenuChosen(long command);
    // The menu bar takes the state of the window and its document.
    virtual void RefreshMenus();

private:
    xDoc* document;
    QWidget* client = nullptr;
    std::unique_ptr<xQtMenuBar> menuBar;
    QFrame* panel = nullptr;
    QLabel* lines[kLineCount] = {};
    QPushButton* okButton = nullptr;
    QPushButton* cancelButton = nullptr;
};

#endif
