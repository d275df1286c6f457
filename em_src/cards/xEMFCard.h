#ifndef TOLVAD_CARDS_XEMFCARD_H
#define TOLVAD_CARDS_XEMFCARD_H

#include "cards/xEMFCardLogic.h"
#include "frame/xCard.h"

#include <vector>

class QCheckBox;
class QPlainTextEdit;
class QPushButton;
class QStringListModel;
class xDWin;
class xEMDesc;
class xEMWinDesc;
class xEditBox;
class xListButton;
class xTxtGrd;

// The "Data Format" card: a sample of the survey's data, its two counts, and
// above each visible column of the parsed records a list that places an item
// at that column's position. It starts with one button that opens a sample;
// then it shows the sample, the counts, the two toggles and the buttons; once
// parsed, the grid and the lists. A view over xEMFCardLogic.
class xEMFCard : public xCard {
public:
    static xCard* Make(xEMWinDesc& document, xDWin& window);

    xEMFCard(xEMDesc& document, xDWin* window, const QRect& frame);
    ~xEMFCard() override;

    bool Apply(std::string& message) override;
    void Activate() override;
    void BuildMenu(xQtMenuBar& menuBar) override;
    void UpdateMenu(xQtMenuBar& menuBar) override;
    void RemoveMenu(xQtMenuBar& menuBar) override;
    bool FirstShown() override { return true; }
    bool DoMenuCommand(long command) override;
    // On top with a parsed sample, the lists follow at once.
    void MarkStale() override;
    void DoCommand(long command, void* data) override;

    // What the edit boxes hold; the record's counts before they exist.
    xEMFCardLogic::Values Values() const;
    xEMFCardLogic& Logic() { return logic; }

    // The views; null where they don't exist (yet).
    QPushButton* SampleButton() const { return sampleButton; }
    QPushButton* ReplaceButton() const { return replaceButton; }
    QPlainTextEdit* SampleView() const { return sampleView; }
    xEditBox* Box(long id) const;
    QCheckBox* Toggle(long id) const;
    xTxtGrd* Grid() const { return grid; }
    // The list above visible column index, from 0.
    xListButton* List(int index) const;
    int ListCount() const { return static_cast<int>(lists.size()); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildControls();
    void ShowSample();
    // Grid and lists anew from the logic's state.
    void BuildGrid();
    void DestroyGrid();
    // After the logic's Rebuild: grid and lists anew, "Parse data" grey.
    void Rebuilt();
    // The lists select what the logic says.
    void ShowLists();
    void PlaceControls();
    // The prompt regions of the controls stand where the controls stand now.
    void PromptsFollow();
    void AddUserItem();
    void RemoveUserItem();

    xEMFCardLogic logic;
    QPushButton* sampleButton = nullptr;
    long sampleCommand = xEMFCardLogic::kOpenSample;
    QPushButton* replaceButton = nullptr;
    QPlainTextEdit* sampleView = nullptr;
    xEditBox* commentBox = nullptr;
    xEditBox* itemBox = nullptr;
    QCheckBox* randomToggle = nullptr;
    QCheckBox* geosoftToggle = nullptr;
    xTxtGrd* grid = nullptr;
    QStringListModel* names = nullptr;
    std::vector<xListButton*> lists;
    QRect listsRegion;
    struct Prompted {
        QWidget* view;
        const char* text;
        QRect region;
    };
    std::vector<Prompted> prompted;
    int listsTop = 0;
};

#endif
