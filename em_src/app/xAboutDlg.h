#ifndef TOLVAD_APP_XABOUTDLG_H
#define TOLVAD_APP_XABOUTDLG_H

#include "widgets/xModalEdWin.h"

#include <vector>

class QLabel;

// The about window, centred on the screen: the program's and the file
// format's version, centred, then a line on what the program is.
class xAboutDlg : public xModalEdWin {
public:
    explicit xAboutDlg(QWidget* parent = nullptr);

    const std::vector<QLabel*>& Lines() const { return lines; }

private:
    std::vector<QLabel*> lines;
};

#endif
