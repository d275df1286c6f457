#ifndef TOLVAD_WIDGETS_XTEXTEDWIN_H
#define TOLVAD_WIDGETS_XTEXTEDWIN_H

#include "widgets/xModalEdWin.h"

class QLabel;
class QLineEdit;

// Edits one text under a caption.
class xTextEdWin : public xModalEdWin {
public:
    xTextEdWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(std::string* text, const std::string& caption);
    QLineEdit* Field() const { return field; }
    QLabel* Caption() const { return caption; }

protected:
    bool Accept() override;

private:
    QLabel* caption = nullptr;
    QLineEdit* field = nullptr;
};

#endif
