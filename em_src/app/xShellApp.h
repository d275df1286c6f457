#ifndef TOLVAD_APP_XSHELLAPP_H
#define TOLVAD_APP_XSHELLAPP_H

#include "gui/xCommandTarget.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class xDoc;
class xDocWindow;

// The application of the suite's programs: the "Windows" menu that arranges
// the document windows, and the sending of a command to every document. The
// editor derives from it and passes its window commands over.
class xShellApp : public xCommandTarget {
public:
    enum {
        kWindowsMenu = 31899,
        kCascade = 31898,
        kMinimize = 31897,
        kRestoreSize = 31896,
        // Commands to the documents and answers to them.
        kRestoreDocument = 501,
        kMinimizeDocument = 502,
        kAskWindowsMenu = 507,      // data: the asking link, answered with 508
        kWindowsMenuAnswer = 508,   // data: the Windows menu
        kWindowsNotice = 510,
        kMenuNotice = 511,          // data: the menu command's id
        kNullCommand = 20003
    };

    struct MenuEntry {
        long id;
        std::string text;
        char mnemonic;
    };
    struct Menu {
        long tag;
        std::string title;
        char mnemonic;
        std::vector<MenuEntry> entries;   // all enabled
    };
    struct Point {
        int x;
        int y;
    };

    xShellApp();

    const Menu& WindowsMenu() const { return windowsMenu; }

    // DoCommand of each document in turn.
    void SendToDocuments(long command, void* data);
    // Puts the top left corner of each document window with a size at the
    // running point, which starts at step and moves 10 right and a title bar
    // down from window to window.
    void Cascade(Point step);

    // The Windows commands; every other one goes to the application's own
    // table and is then told to the documents.
    virtual void DoMenuCommand(long command, bool shift, bool control);
    void DoCommand(long command, void* data) override;

    virtual size_t DocumentCount() const = 0;
    virtual xDoc* Document(size_t index) const = 0;

protected:
    // The application's own table of menu commands (New, Open, Close, ...).
    virtual void ApplicationMenuCommand(long command, bool shift, bool control) = 0;
    // What the application does with a command that came up the chain.
    virtual void ApplicationCommand(long command, void* data);
    // Height of a window's title bar on this screen.
    virtual int TitleBarHeight() const { return 0; }

    // Start-up file names not yet consumed.
    int32_t startupFileCount = 0;

private:
    Menu windowsMenu;
};

#endif
