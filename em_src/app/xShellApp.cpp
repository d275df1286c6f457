#include "app/xShellApp.h"

#include "frame/xDoc.h"

xShellApp::xShellApp()
    : windowsMenu{kWindowsMenu,
                  "Windows",
                  'W',
                  {{kCascade, "Cascade", 'C'}, {kMinimize, "Minimize", 'M'}, {kRestoreSize, "Restore Size", 'R'}}}
{
}

void xShellApp::SendToDocuments(long command, void* data)
{
    // A document may go while it is told; count again each time.
    for (size_t i = 0; i < DocumentCount(); ++i)
        Document(i)->DoCommand(command, data);
}

void xShellApp::Cascade(Point step)
{
    Point at = step;
    for (size_t d = 0; d < DocumentCount(); ++d) {
        xDoc* doc = Document(d);
        for (size_t w = 0; w < doc->WindowCount(); ++w) {
            int left = 0, top = 0, width = 0, height = 0;
            xDocWindow* window = doc->Window(w);
            if (!window->GetFrame(left, top, width, height) || width == 0 || height == 0)
                continue;
            window->MoveTo(at.x, at.y);
            at.x += 10;
            at.y += TitleBarHeight();
        }
    }
}

void xShellApp::DoMenuCommand(long command, bool shift, bool control)
{
    Point step{1, TitleBarHeight() + 1};
    switch (command) {
    case kRestoreSize:
        SendToDocuments(kRestoreDocument, &step);
        break;
    case kMinimize:
        SendToDocuments(kMinimizeDocument, &step);
        break;
    case kCascade:
        Cascade(step);
        break;
    default:
        ApplicationMenuCommand(command, shift, control);
        SendToDocuments(kMenuNotice, &command);
        break;
    }
}

void xShellApp::DoCommand(long command, void* data)
{
    switch (command) {
    case kAskWindowsMenu:
        if (data)
            static_cast<xCommandTarget*>(data)->DoCommand(kWindowsMenuAnswer, &windowsMenu);
        return;
    case kRestoreDocument:
    case kMinimizeDocument:
    case kWindowsNotice:
    case kMenuNotice:
    case kNullCommand:
        return;
    default:
        ApplicationCommand(command, data);
    }
}

void xShellApp::ApplicationCommand(long command, void* data)
{
    xCommandTarget::DoCommand(command, data);
}
