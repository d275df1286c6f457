#ifndef TOLVAD_CARDS_XEMTABLECARD_H
#define TOLVAD_CARDS_XEMTABLECARD_H

#include "cards/xEMTableCardLogic.h"
#include "frame/xCard.h"

#include <memory>
#include <string>
#include <vector>

class QCheckBox;
class QPushButton;
class xGridEdView;
class xTROrientationSelector;
class xTRClasf;

// The screen side the waveform and the frequency cards share: their grids, the
// orientation selector, the two dialog buttons and the common check box; the
// Cut, Copy and Paste sub-menus under Edit with the clipboard viewer; the
// reload from the record each time the card comes on top or the orientation
// changes, and Apply when it leaves. A card made from it gives its logic and
// its Load; its controls are placed by the card from the font's metrics.
class xEMTableCard : public xCard {
public:
    xEMTableCard(xDWin* window, const QRect& frame);
    ~xEMTableCard() override;

    // The selector (id 20012) on the descriptor's orientations, in the place
    // the card keeps for it; before the first Activate.
    void AddOrientationSelector(const xTRClasf& clasf);

    void Deactivate() override;
    void Activate() override;
    void BuildMenu(xQtMenuBar& menuBar) override;
    void UpdateMenu(xQtMenuBar& menuBar) override;
    void RemoveMenu(xQtMenuBar& menuBar) override;
    bool FirstShown() override { return true; }
    bool DoMenuCommand(long command) override;

    void SetDescriptor(xEMEditDesc& document, int code) override;
    void OrientationAdded(int code) override;
    void OrientationRemoved(int code, int other) override;
    // The selectors go grey while one record stands for all orientations,
    // and the common box shows that mode.
    void EnableSelector(bool on) override;

    void DoCommand(long command, void* data) override;

    xGridEdView* Grid(long id) const;
    xTROrientationSelector* Selector() const;
    QCheckBox* CommonBox() const;
    QPushButton* Button(long id) const;

protected:
    virtual xEMTableCardLogic& TableLogic() = 0;
    // The record's tables and texts into the controls.
    virtual void Load() = 0;

    // The controls, for the card's own layout. A grid becomes a table of the
    // logic under its id; a button sends its command to the card; the common
    // box sends 9405 when checked and 9406 when cleared.
    xGridEdView* AddGrid(long id, const QRect& frame, int visibleRows, int visibleColumns, int capacityRows,
                         int capacityColumns, const char* title);
    QPushButton* AddButton(long id, const char* text, long command);
    QCheckBox* AddCommonBox(const char* subject);
    // Where the selector goes when it is added.
    void SetSelectorPlace(const QPoint& topLeft) { selectorPlace = topLeft; }

    // The height of a grid of rows and the width of one of columns, so that
    // every number and the edited text show whole.
    int GridHeight(int rows) const;
    int GridWidth(int columns) const;
    int CellWidth() const;
    // A line of text in the card's font: its height and a text's width.
    int LineHeight() const;
    int TextWidth(const char* text) const;
    // What a selector and a button need.
    QSize SelectorSize() const;
    int ButtonHeight() const;

    // The cells being typed in are stored, so that Apply and the menu
    // commands read what the user sees.
    void StoreTypedCells();

private:
    void EditAmplitudeScale();
    void EditWeights();

    std::vector<std::unique_ptr<xEMTableCardLogic::Grid>> tables;
    QPoint selectorPlace;
};

#endif
