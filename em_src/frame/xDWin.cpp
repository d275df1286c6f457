#include "frame/xDWin.h"

#include "app/xEdit2App.h"
#include "app/xQtMenuBar.h"
#include "frame/xCard.h"
#include "frame/xCardTab.h"
#include "frame/xDoc.h"
#include "gui/xPlatform.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace {

const QColor kLightGrey(192, 192, 192);

void Paint(QWidget* widget, const QColor& colour)
{
    widget->setAutoFillBackground(true);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
}

// The window's close from its frame: the window goes as its document allows,
// and a document left without windows goes too.
void CloseFromFrame(xDWin* window)
{
    xDoc* doc = window->Document();
    if (!window->Close())
        return;
    if (doc && doc->WindowCount() == 0)
        if (auto* app = dynamic_cast<xEdit2App*>(doc->NextTarget()))
            app->DestroyDocument(doc);
}

} // namespace

xDWin::xDWin(xDoc* document, bool help, int cardsPerRow, int maxCards, double tabHeight)
    : xPWin(document, help), cardsPerRow(std::max(1, cardsPerRow)), maxCards(maxCards), tabHeight(tabHeight)
{
    Paint(Client(), QColor(212, 212, 212));
    joinView = new QWidget(Client());
    Paint(joinView, kLightGrey);
    joinView->hide();
    SetTitle(document ? document->GetFileName() : std::string());
    resize(636, 420);
    FitToCards();
}

xDWin::~xDWin() = default;

int xDWin::TabHeight() const
{
    return std::max(static_cast<int>(tabHeight), QFontMetrics(font()).height() + 8);
}

xCard* xDWin::CreateNewCard(const std::string& title)
{
    auto* card = new xCard(this, cardFrame);
    auto* label = new QLabel(QString::fromStdString(title), card);
    label->move(20, 20);
    label->adjustSize();
    if (!AppendCard(card, title)) {
        delete card;
        return nullptr;
    }
    return card;
}

bool xDWin::AppendCard(xCard* card, const std::string& title)
{
    int n = CardCount() + 1;
    int row = CardCount() / cardsPerRow + 1;
    if (n > maxCards) {
        // The text names twice the tabs of a row, whatever the limit.
        PostWarning("xDWin::AppendCard() - exceeded max no of Cards allowed in window (<%s>).",
                    std::to_string(cardsPerRow * 2).c_str());
        return false;
    }
    card->SetTitle(title);
    card->hide();
    if (card->parentWidget() != Client())
        card->setParent(Client());
    auto* tab = new xCardTab(Client(), card, title, row);
    tabs.push_back(tab);
    tab->show();
    AddNavigableView(card);
    if (n == cardsPerRow * 2) {
        for (int corner = 0; corner < 2; ++corner) {
            auto* line = new QWidget(Client());
            Paint(line, kLightGrey);
            line->show();
            cornerLines.push_back(line);
        }
    }
    FitToCards();
    PlaceViews();
    return true;
}

xCard* xDWin::CardAt(int index) const
{
    if (index < 0 || index >= CardCount())
        return nullptr;
    return tabs[static_cast<size_t>(index)]->Card();
}

xCard* xDWin::SelectedCard() const
{
    return selectedTab ? selectedTab->Card() : nullptr;
}

xCardTab* xDWin::TabOf(const xCard* card) const
{
    for (xCardTab* tab : tabs)
        if (tab->Card() == card)
            return tab;
    return nullptr;
}

int xDWin::IndexOf(const xCardTab* tab) const
{
    auto found = std::find(tabs.begin(), tabs.end(), tab);
    return found == tabs.end() ? -1 : static_cast<int>(found - tabs.begin());
}

void xDWin::SelectCard(int index)
{
    if (index >= 0 && index < CardCount())
        DoCommand(kSelectTab, tabs[static_cast<size_t>(index)]);
}

void xDWin::SelectCardOf(xCard* card)
{
    if (xCardTab* tab = TabOf(card))
        DoCommand(kSelectTab, tab);
}

bool xDWin::HasCard(const std::string& title) const
{
    return FindCard(title) != nullptr;
}

xCard* xDWin::FindCard(const std::string& title) const
{
    for (xCardTab* tab : tabs)
        if (tab->Card()->Title() == title)
            return tab->Card();
    return nullptr;
}

bool xDWin::IsSelected(const xCard* card) const
{
    return selectedTab && card && selectedTab->Card() == card;
}

int xDWin::SelectedIndex() const
{
    return selectedTab ? IndexOf(selectedTab) : 0;
}

bool xDWin::ApplyAll(std::string& message)
{
    for (xCardTab* tab : tabs)
        if (!tab->Card()->Apply(message))
            return false;
    return true;
}

void xDWin::Select(xCardTab* tab)
{
    if (!tab || tab == selectedTab)
        return;
    if (selectedTab) {
        xCard* old = selectedTab->Card();
        old->DoCommand(xCard::kLeaving, this);
        selectedTab->SetSelected(false);
        old->hide();
    }
    // The selected tab always stands in the row next to the cards: its row
    // and the first exchange their cards, tab by tab.
    if (tab->Row() > 1) {
        xCard* wanted = tab->Card();
        int firstOfRow = (tab->Row() - 1) * cardsPerRow;
        for (int i = 0; i < cardsPerRow && firstOfRow + i < CardCount(); ++i)
            tabs[static_cast<size_t>(i)]->SwapWith(*tabs[static_cast<size_t>(firstOfRow + i)]);
        tab = TabOf(wanted);
    }
    selectedTab = tab;
    tab->SetSelected(true);
    PlaceViews();
    xCard* card = tab->Card();
    card->show();
    card->update();
    QPointer<xDWin> self(this);
    QPointer<xCard> shownCard(card);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!self || !shownCard || selectedTab != tab)
        return;
    card->DoCommand(xCard::kOnTop, this);
    if (self)
        RefreshMenus();
}

bool xDWin::RemoveCard(const std::string& title)
{
    xCard* card = FindCard(title);
    if (!card)
        return false;
    return RemoveCardAt(IndexOf(TabOf(card)));
}

bool xDWin::RemoveCardAt(int index)
{
    if (tabs.empty())
        return false;
    index = std::clamp(index, 0, CardCount() - 1);
    xCard* doomed = tabs[static_cast<size_t>(index)]->Card();
    if (tabs[static_cast<size_t>(index)] == selectedTab) {
        if (index >= 2) {
            Select(tabs[static_cast<size_t>(index - 1)]);
        } else {
            // Of a window with two tabs the selected one can't go.
            if (index >= CardCount() - 2)
                return false;
            Select(tabs[static_cast<size_t>(index + 1)]);
        }
        // A change of rows may have moved the card to another tab.
        index = IndexOf(TabOf(doomed));
    }
    xCard* selected = SelectedCard();
    for (int i = index; i < CardCount() - 1; ++i)
        tabs[static_cast<size_t>(i)]->SwapWith(*tabs[static_cast<size_t>(i + 1)]);
    xCardTab* last = tabs.back();
    tabs.pop_back();
    RemoveNavigableView(doomed);
    if (selectedTab == last)
        selectedTab = nullptr;
    if (selected && selected != doomed) {
        selectedTab = TabOf(selected);
        for (xCardTab* tab : tabs)
            tab->SetSelected(tab == selectedTab);
    }
    last->hide();
    last->deleteLater();
    doomed->hide();
    doomed->deleteLater();
    PlaceViews();
    return true;
}

void xDWin::DoCommand(long command, void* data)
{
    if (command == kSelectTab) {
        Select(static_cast<xCardTab*>(data));
        return;
    }
    xPWin::DoCommand(command, data);
}

void xDWin::DoMenuCommand(long command)
{
    if (xCard* card = SelectedCard())
        if (card->DoMenuCommand(command))
            return;
    xPWin::DoMenuCommand(command);
}

void xDWin::RefreshMenus()
{
    if (xCard* card = SelectedCard())
        card->UpdateMenu(MenuBar());
    xPWin::RefreshMenus();
}

void xDWin::SetTitle(const std::string& title)
{
    setWindowTitle(QString::fromStdString(title) + QStringLiteral("[*]"));
}

bool xDWin::GetFrame(int& left, int& top, int& width, int& height) const
{
    QRect frame = geometry();
    left = frame.left();
    top = frame.top();
    width = frame.width();
    height = frame.height();
    return true;
}

void xDWin::MoveTo(int left, int top)
{
    move(left, top);
}

bool xDWin::MayClose()
{
    bool proceed = !Document() || !Document()->IsChanged();
    for (size_t i = 0; i < tabs.size() && !proceed; ++i)
        if (!tabs[i]->Card()->CanClose(proceed))
            return false;
    return true;
}

void xDWin::Closing()
{
    hide();
}

void xDWin::closeEvent(QCloseEvent* event)
{
    event->ignore();
    QPointer<xDWin> self(this);
    QTimer::singleShot(0, qApp, [self] {
        if (self)
            CloseFromFrame(self);
    });
}

void xDWin::CloseWindow()
{
    close();
}

void xDWin::LayOut(const QSize& clientSize)
{
    int panelTop = LayOutPanel(clientSize);
    int rows = std::max(1, maxCards / cardsPerRow);
    int height = TabHeight();
    cardFrame = QRect(QPoint(5, (rows + 1) * height + 5),
                      QPoint(clientSize.width() - 5 * rows - 1, panelTop - 5 - 1));
    firstTabFrame = QRect(cardFrame.left(), cardFrame.top() - height + 2, cardFrame.width() / cardsPerRow, height);
    PlaceViews();
}

void xDWin::PlaceViews()
{
    int height = TabHeight();
    for (size_t i = 0; i < tabs.size(); ++i) {
        xCardTab* tab = tabs[i];
        int row = tab->Row();
        int column = static_cast<int>(i) % cardsPerRow;
        QRect frame = firstTabFrame.translated(column * firstTabFrame.width() + 10 * (row - 1),
                                               -(height - 2) * (row - 1));
        tab->setGeometry(frame);
        tab->Card()->setGeometry(cardFrame);
    }
    // Upper rows behind the first; the join over the selected tab's edge.
    for (auto it = tabs.rbegin(); it != tabs.rend(); ++it)
        (*it)->raise();
    if (selectedTab) {
        QRect tab = selectedTab->geometry();
        joinView->setGeometry(QRect(QPoint(tab.left() + 2, cardFrame.top() - 2),
                                    QPoint(tab.right() - 3, cardFrame.top())));
        joinView->show();
        joinView->raise();
    } else {
        joinView->hide();
    }
    if (cornerLines.size() == 2) {
        cornerLines[0]->setGeometry(firstTabFrame.left(), firstTabFrame.top() - height, 1, height);
        cornerLines[1]->setGeometry(cardFrame.right(), firstTabFrame.top() - height, 1, height);
    }
}

void xDWin::FitToCards()
{
    int rows = std::max(1, maxCards / cardsPerRow);
    QSize needed(0, 0);
    int tabWidth = 0;
    std::vector<std::string> prompts = PromptTexts();
    for (xCardTab* tab : tabs) {
        needed = needed.expandedTo(tab->Card()->NeededSize());
        tabWidth = std::max(tabWidth, tab->NeededWidth());
        for (const std::string& text : tab->Card()->PromptTexts())
            prompts.push_back(text);
    }
    int cardWidth = std::max(needed.width(), cardsPerRow * tabWidth + 10 * (rows - 1));
    int panelWidth = PanelWidthFor(prompts) + (OkButton() ? OkButton()->width() + kPanelMargin : 0);
    int width = std::max(5 + cardWidth + 5 * rows, 2 * kPanelMargin + panelWidth);
    int height = (rows + 1) * TabHeight() + 5 + needed.height() + 5 + (HasPanel() ? PanelHeight() + 5 : 0);
    Client()->setMinimumSize(width, height);
    QSize grown = Client()->size().expandedTo(QSize(width, height));
    if (grown != Client()->size())
        resize(size() + (grown - Client()->size()));
    LayOut(Client()->size());
}
