#ifndef TOLVAD_WIDGETS_XGRIDEDVIEWWIN_H
#define TOLVAD_WIDGETS_XGRIDEDVIEWWIN_H

#include "widgets/xModalEdWin.h"

class FloatMatrix;
class xGridEdView;

// Edits a matrix in an editing grid (id 3456). The visible size and the
// capacity come from the setters, 5 rows by 3 columns unless set; the
// capacity is never below the matrix.
class xGridEdViewWin : public xModalEdWin {
public:
    static constexpr int kGridId = 3456;

    xGridEdViewWin(QWidget* parent, const std::string& title, QPoint centre = QPoint(-1, -1));
    void SetVisibleSize(int rows, int columns);
    void SetCapacity(int rows, int columns);
    void SetUpUserItem(FloatMatrix* matrix);
    xGridEdView* View() const { return view; }

protected:
    bool Accept() override;

private:
    int visibleRows = 5, visibleColumns = 3;
    int capacityRows = 5, capacityColumns = 3;
    xGridEdView* view = nullptr;
};

#endif
