#ifndef TOLVAD_WIDGETS_XCHOICEEDWIN_H
#define TOLVAD_WIDGETS_XCHOICEEDWIN_H

#include "widgets/xModalEdWin.h"

#include <vector>

class QComboBox;
class QLabel;

// Picks one entry of a list, given at construction, under a caption.
class xChoiceEdWin : public xModalEdWin {
public:
    xChoiceEdWin(QWidget* parent, const std::string& title, const std::vector<std::string>& choices,
                 QPoint centre = QPoint(-1, -1));
    // The index selects the entry shown first and takes the choice.
    void SetUpUserItem(int* index, const std::string& caption);
    QComboBox* List() const { return list; }

protected:
    bool Accept() override;

private:
    std::vector<std::string> choices;
    QLabel* caption = nullptr;
    QComboBox* list = nullptr;
};

#endif
