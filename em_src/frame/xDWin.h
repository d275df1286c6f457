#ifndef TOLVAD_FRAME_XDWIN_H
#define TOLVAD_FRAME_XDWIN_H

#include "frame/xDocWindow.h"
#include "frame/xPWin.h"

#include <QRect>

#include <string>
#include <vector>

class xCard;
class xCardTab;

// A window of tabbed cards above the prompt panel. Tabs stand in rows of
// cardsPerRow; the selected tab is always in the row next to the cards.
// Menu commands go to the card on top first, then to the window, the
// document and the application; so does the enabling of the menus.
class xDWin : public xPWin, public xDocWindow {
public:
    enum Command { kSelectTab = 7000 };

    xDWin(xDoc* document, bool help, int cardsPerRow, int maxCards, double tabHeight);
    ~xDWin() override;

    // A bare card with its title at (20, 20), appended; null when refused.
    xCard* CreateNewCard(const std::string& title);
    // Appends a card under its tab; false, with a warning, beyond maxCards.
    bool AppendCard(xCard* card, const std::string& title);
    void SelectCard(int index);
    void SelectCardOf(xCard* card);
    bool HasCard(const std::string& title) const;
    xCard* FindCard(const std::string& title) const;
    bool RemoveCard(const std::string& title);
    bool RemoveCardAt(int index);
    bool IsSelected(const xCard* card) const;
    // Place of the selected tab, 0 when none.
    int SelectedIndex() const;
    // Apply of each card in tab order, to the first that isn't complete.
    bool ApplyAll(std::string& message);

    int CardCount() const { return static_cast<int>(tabs.size()); }
    xCard* CardAt(int index) const;
    xCardTab* TabAt(int index) const { return tabs[static_cast<size_t>(index)]; }
    xCard* SelectedCard() const;
    const QRect& CardFrame() const { return cardFrame; }
    QWidget* JoinView() const { return joinView; }
    int TabHeight() const;

    void DoCommand(long command, void* data) override;
    void DoMenuCommand(long command) override;

    // xDocWindow; its document is null once the document let the window go.
    using xDocWindow::Document;
    void UpdateMenus() override { RefreshMenus(); }
    void SetTitle(const std::string& title) override;
    bool GetFrame(int& left, int& top, int& width, int& height) const override;
    void MoveTo(int left, int top) override;

    void LayOut(const QSize& clientSize) override;
    // The window grows until every card, tab and prompt line shows whole. A
    // card that builds controls or prompts after it was appended calls it.
    void FitToCards();

protected:
    // The close of the window: while the document has changes the cards are
    // asked in tab order, and one that refuses stops the close.
    bool MayClose() override;
    void Closing() override;
    // A close from the window's frame (or OK, Cancel) closes the window as
    // the document allows, from the event loop.
    void closeEvent(QCloseEvent* event) override;
    void CloseWindow() override;
    void RefreshMenus() override;

private:
    void Select(xCardTab* tab);
    xCardTab* TabOf(const xCard* card) const;
    int IndexOf(const xCardTab* tab) const;
    // Tabs, cards, the join and the panel in the client area.
    void PlaceViews();

    int cardsPerRow;
    int maxCards;
    double tabHeight;
    xCardTab* selectedTab = nullptr;
    QWidget* joinView = nullptr;
    std::vector<xCardTab*> tabs;
    std::vector<QWidget*> cornerLines;
    QRect firstTabFrame;
    QRect cardFrame;
};

#endif
