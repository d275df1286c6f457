#ifndef TOLVAD_WIDGETS_XTABLEVIEWWIN_H
#define TOLVAD_WIDGETS_XTABLEVIEWWIN_H

#include "widgets/xModalEdWin.h"

class FloatArray;
class QListWidget;

// Shows the numbers of a table as a read-only list, one row per entry.
class xTableViewWin : public xModalEdWin {
public:
    xTableViewWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(const FloatArray* table);
    QListWidget* List() const { return list; }

private:
    QListWidget* list = nullptr;
};

#endif
