#ifndef TOLVAD_WIDGETS_XCARDCLIPBOARD_H
#define TOLVAD_WIDGETS_XCARDCLIPBOARD_H

#include "widgets/xClipboardExchange.h"

class QDialog;

// The clipboard operations a card carries: the text exchange of tables and
// the viewer of what the clipboard holds.
class xCardClipboard : public xClipboardExchange {
public:
    // If the clipboard holds text: a window "clipboard", not modal, with the
    // text line by line in a scrolling view. Belongs to this object's window
    // when this object is a widget. Returns the window, or null.
    QDialog* ShowClipboard();
};

#endif
