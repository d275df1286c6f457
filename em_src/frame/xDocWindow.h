#ifndef TOLVAD_FRAME_XDOCWINDOW_H
#define TOLVAD_FRAME_XDOCWINDOW_H

#include <string>

class xDoc;

// What a document needs of one of its windows. The document owns its windows
// (xDoc::AddWindow); a window knows its document and asks it before closing.
class xDocWindow {
public:
    xDocWindow() = default;
    virtual ~xDocWindow() = default;
    xDocWindow(const xDocWindow&) = delete;
    xDocWindow& operator=(const xDocWindow&) = delete;

    // Brings the window's menu bar in line with the document's state.
    virtual void UpdateMenus() = 0;
    virtual void SetTitle(const std::string& title) = 0;

    // Closes the window when its document agrees (xDoc::CanCloseWindow): the
    // document lets go of it and destroys it, so the caller must not touch the
    // window after a true result. A window without a document just closes.
    bool Close();

    xDoc* Document() const { return document; }

    // Where the window stands on the screen, for arranging the windows; a
    // window without a place gives false.
    virtual bool GetFrame(int& /*left*/, int& /*top*/, int& /*width*/, int& /*height*/) const
    {
        return false;
    }
    virtual void MoveTo(int /*left*/, int /*top*/) {}

protected:
    // First word of a close: a window may refuse before its document is asked
    // (a window of cards asks the cards that are not complete).
    virtual bool MayClose() { return true; }
    // Last word of the window before it is destroyed by a close; the screen
    // form hides itself here.
    virtual void Closing() {}

private:
    friend class xDoc;
    xDoc* document = nullptr;
};

#endif
