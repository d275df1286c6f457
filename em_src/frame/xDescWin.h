#ifndef TOLVAD_FRAME_XDESCWIN_H
#define TOLVAD_FRAME_XDESCWIN_H

#include "frame/xDWin.h"

// The window of a descriptor. A key typed anywhere in it marks the document
// changed, whether or not the model changes, and then goes on as usual.
class xDescWin : public xDWin {
public:
    // Menu resource 9001, help, 3 cards a row, 5 cards at most, tabs 24 high.
    explicit xDescWin(xDoc* document);
    ~xDescWin() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

#endif
