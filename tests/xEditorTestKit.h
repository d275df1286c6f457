#ifndef TOLVAD_TESTS_XEDITORTESTKIT_H
#define TOLVAD_TESTS_XEDITORTESTKIT_H

#include <QPoint>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QDialog;
class QWidget;
class xEMWinDesc;
class xEditBox;
class xListButton;
class xQtMenuBar;

// What the editor's screen tests do as a user: open a descriptor's window,
// type into boxes, choose in lists, answer the dialog that comes up, and look
// for text that doesn't show whole.
class xEditorTestKit {
public:
    // The full path of a bundled example.
    static std::string Example(const std::string& name);
    // A descriptor read from a file and shown in its window, card 0 on top,
    // outside any application.
    static std::unique_ptr<xEMWinDesc> OpenWindow(const std::string& path);

    // Runs act on the next modal dialog as soon as it is up (from the event
    // loop), so that the code that opens it may block in exec.
    static void OnNextDialog(std::function<void(QDialog&)> act);
    // Lets queued work run (menu commands, closes from the frame).
    static void Settle();

    // Selects the box's text and types over it, as keys.
    static void TypeInto(xEditBox& box, const std::string& text);
    // Moves the list to an entry with the arrow keys, which chooses it as a
    // user does.
    static void ChooseIn(xListButton& list, const std::string& text);
    // The mouse moves over a widget with no button down, as the window
    // system would tell it (the cursor of the offscreen platform may stand
    // over another window).
    static void MoveMouse(QWidget& widget, const QPoint& position);
    // Chooses the menu entry of an id and lets its command run; false when
    // there is no such entry or it is grey.
    static bool ChooseMenu(xQtMenuBar& menuBar, long id);

    // Labels, buttons, lists and fields below root whose text doesn't fit
    // their width (or their label's height), one line each with the need.
    static std::vector<std::string> ClippedTexts(QWidget& root);
};

#endif
