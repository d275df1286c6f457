#ifndef TOLVAD_APP_XTUTORIALDLG_H
#define TOLVAD_APP_XTUTORIALDLG_H

#include <QDialog>

class QCheckBox;

// The suite's tutorial dialog: three lines on what a tutorial project is and
// a check box that asks for one. The editor itself never opens it.
class xTutorialDlg : public QDialog {
public:
    explicit xTutorialDlg(QWidget* parent = nullptr);

    // Runs the dialog; true when the box was ticked.
    bool Run();
    QCheckBox* Box() const { return box; }

private:
    QCheckBox* box;
};

#endif
