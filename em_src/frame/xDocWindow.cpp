#include "frame/xDocWindow.h"

#include "frame/xDoc.h"

bool xDocWindow::Close()
{
    xDoc* owner = document;
    if (!MayClose())
        return false;
    if (owner && !owner->CanCloseWindow(this))
        return false;
    Closing();
    if (owner)
        owner->ReleaseWindow(this);   // destroys this window
    return true;
}
