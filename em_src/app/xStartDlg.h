#ifndef TOLVAD_APP_XSTARTDLG_H
#define TOLVAD_APP_XSTARTDLG_H

#include "widgets/xModalEdWin.h"

class QButtonGroup;
class QRadioButton;

// The start dialog, shown when the editor starts without a file: a new
// descriptor or an existing one. OK puts the menu command of the choice in
// the caller's result word (32001 New, 32002 Open); Return is OK.
class xStartDlg : public xModalEdWin {
public:
    static constexpr int kWidth = 300;
    static constexpr int kHeight = 250;

    explicit xStartDlg(long* result, QWidget* parent = nullptr);

    QRadioButton* NewButton() const { return createNew; }
    QRadioButton* OpenButton() const { return openExisting; }

protected:
    bool Accept() override;

private:
    QRadioButton* createNew;
    QRadioButton* openExisting;
    // The import of old descriptors had a third choice; nothing fills it.
    QRadioButton* third = nullptr;
    QButtonGroup* group;
};

#endif
