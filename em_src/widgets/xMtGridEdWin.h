#ifndef TOLVAD_WIDGETS_XMTGRIDEDWIN_H
#define TOLVAD_WIDGETS_XMTGRIDEDWIN_H

#include "widgets/xModalEdWin.h"

#include <vector>

class FloatMatrix;
class xEdGrid;

// Edits a small matrix of a size fixed at construction in a labelled grid.
class xMtGridEdWin : public xModalEdWin {
public:
    xMtGridEdWin(QWidget* parent, const std::string& title, int width, int height, int rows, int columns,
                 QPoint centre = QPoint(-1, -1));
    // A matrix of another size is an error, and the window stays empty.
    void SetUpUserItem(FloatMatrix* matrix, const std::vector<std::string>& rowLabels,
                       const std::vector<std::string>& columnLabels);
    xEdGrid* Grid() const { return grid; }

protected:
    bool Accept() override;

private:
    int rows;
    int columns;
    xEdGrid* grid = nullptr;
};

#endif
