#ifndef TOLVAD_FRAME_XCARD_H
#define TOLVAD_FRAME_XCARD_H

#include "frame/xPromptHost.h"
#include "widgets/xCardClipboard.h"
#include "widgets/xCommandView.h"

#include <QRect>

#include <map>
#include <memory>
#include <string>
#include <vector>

class xDWin;
class xEMEditDesc;
class xQtMenuBar;

// One page of a descriptor window. A card keeps nothing of the model: it
// shows the records of its document and writes what the user changed back
// through Apply. The window tells it when it comes on top (9000) and leaves
// (9001); the document tells it of changes by the calls under "From the
// document". Each card keeps its own prompt regions, sent up to the window's
// panel as the mouse moves, and finds its controls by id.
class xCard : public xCommandView, public xCardClipboard, public xPromptHost {
public:
    enum Command { kOnTop = 9000, kLeaving = 9001 };

    // The card lies in the window's card frame, hidden until selected.
    xCard(xDWin* window, const QRect& frame);
    ~xCard() override;

    const std::string& Title() const { return title; }
    void SetTitle(const std::string& text) { title = text; }
    xDWin* Window() const { return window; }

    // --- What a card replaces ---
    // Takes the controls into the record, marking the document changed when
    // anything differs; true when the card is complete, else false with the
    // reason. The record is updated in both cases.
    virtual bool Apply(std::string& message);
    // The card stops being on top: its menus go.
    virtual void Deactivate();
    // The card comes on top: its menus come.
    virtual void Activate();
    virtual void BuildMenu(xQtMenuBar& menuBar);
    virtual void UpdateMenu(xQtMenuBar& menuBar);
    virtual void RemoveMenu(xQtMenuBar& menuBar);
    // Runs the first time the card comes on top; a concrete card gives true.
    virtual bool FirstShown();
    // Asked when the window closes with changes: a card that isn't complete
    // asks whether to go on without saving; "Yes" sets proceed for the
    // cards behind it.
    virtual bool CanClose(bool& proceed);
    // A menu command while the card is on top; true when the card took it.
    virtual bool DoMenuCommand(long command);

    // --- From the document ---
    // Another orientation is current: a card that edits per-orientation
    // records takes those of the document's current orientation.
    virtual void SetDescriptor(xEMEditDesc& document, int code);
    // The document changed what this card shows. A card that reloads on the
    // spot when it is on top replaces this.
    virtual void MarkStale() { stale = true; }
    // For the orientation selectors of the cards that have one.
    virtual void OrientationAdded(int code);
    virtual void OrientationRemoved(int code, int other);
    virtual void EnableSelector(bool on);
    // The system changed its domain (frequency or time).
    virtual void SetFrequencyDomain(bool frequency);

    // --- Views ---
    // Prompt regions are in the card's coordinates. The controls by their ids.
    void AddView(long id, QWidget* view);
    QWidget* View(long id) const;
    // Size the card needs to show its controls whole.
    QSize NeededSize() const;

    // Brings the card on top: a hidden card's tab is selected first.
    void ShowCard();

    void DoCommand(long command, void* data) override;

    bool stale = false;
    bool shown = false;

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    xDWin* window;
    std::string title;
    std::map<long, QWidget*> views;
};

#endif
