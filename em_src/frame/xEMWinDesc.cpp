#include "frame/xEMWinDesc.h"

#include "app/xEdit2App.h"
#include "frame/xCard.h"
#include "frame/xCardCatalog.h"
#include "frame/xDescWin.h"

#include <QCheckBox>
#include <QSignalBlocker>

xEMWinDesc::xEMWinDesc(xCommandTarget* boss, long id) : xEMEditDesc(boss, id) {}

xEMWinDesc::~xEMWinDesc()
{
    // The window goes while the model it shows is still whole.
    while (WindowCount() > 0)
        TakeWindow(Window(0));
}

xDescWin* xEMWinDesc::DescWindow() const
{
    return WindowCount() > 0 ? dynamic_cast<xDescWin*>(Window(0)) : nullptr;
}

template <typename Call>
void xEMWinDesc::ForEachCard(Call call)
{
    if (xDescWin* window = DescWindow())
        for (int i = 0; i < window->CardCount(); ++i)
            call(*window->CardAt(i));
}

void xEMWinDesc::BuildWindow()
{
    auto made = std::make_unique<xDescWin>(this);
    xDescWin* window = made.get();
    AddWindow(std::move(made));
    auto* app = dynamic_cast<xEdit2App*>(NextTarget());
    int others = app && app->DocumentCount() > 0 ? static_cast<int>(app->DocumentCount()) - 1 : 0;
    window->setGeometry(window->PlacementFrame(others));
    for (const std::string& title : CardTitles())
        AddCard(title);
    window->SetTitle(GetFileName());
    window->show();
    window->SelectCard(0);
}

void xEMWinDesc::AddCard(const std::string& title)
{
    xDescWin* window = DescWindow();
    if (!window || window->HasCard(title))
        return;
    if (xCard* card = xCardCatalog::Make(title, *this, *window))
        if (!window->AppendCard(card, title))
            delete card;
}

void xEMWinDesc::DoCommand(long command, void* data)
{
    xDescWin* window = DescWindow();
    switch (command) {
    case kAddTxWaveCard:
        AddCard(kTxWaveCard);
        return;
    case kAddRxWaveCard:
        AddCard(kRxWaveCard);
        return;
    case kRemoveTxWaveCard:
    case kRemoveRxWaveCard:
        if (window)
            window->RemoveCard(command == kRemoveTxWaveCard ? kTxWaveCard : kRxWaveCard);
        return;
    case kToFrequencyDomain:
    case kToTimeDomain:
        ToDomain(command == kToFrequencyDomain);
        return;
    case kAddOrientation:
        if (auto* box = static_cast<QCheckBox*>(data))
            AddOrientation(box->text().toStdString());
        return;
    case kRemoveOrientation:
        if (auto* box = static_cast<QCheckBox*>(data)) {
            if (!RemoveOrientation(NameToCode(box->text().toStdString()))) {
                const QSignalBlocker quiet(box);
                box->setChecked(true);
            }
        }
        return;
    default:
        xEMEditDesc::DoCommand(command, data);
    }
}

void xEMWinDesc::ToDomain(bool frequency)
{
    if ((format->frequencyDomain != 0) == frequency)
        return;
    xDescWin* window = DescWindow();
    if (frequency && window) {
        window->RemoveCard(kRxWaveCard);
        window->RemoveCard(kTxWaveCard);
    } else if (window) {
        window->RemoveCard(kFrequencyCard);
    }
    ForEachCard([frequency](xCard& card) { card.SetFrequencyDomain(frequency); });
    if (frequency) {
        ToFrequencyDomain();
        AddCard(kFrequencyCard);
    } else {
        if (WantsTxWaveCard())
            AddCard(kTxWaveCard);
        if (WantsRxWaveCard())
            AddCard(kRxWaveCard);
        ToTimeDomain();
    }
}

bool xEMWinDesc::ApplyAll(std::string& message)
{
    xDescWin* window = DescWindow();
    return !window || window->ApplyAll(message);
}

void xEMWinDesc::MarkCardStale(const std::string& title)
{
    if (xDescWin* window = DescWindow())
        if (xCard* card = window->FindCard(title))
            card->MarkStale();
}

void xEMWinDesc::ReloadCards()
{
    ForEachCard([this](xCard& card) { card.SetDescriptor(*this, current); });
}

void xEMWinDesc::SelectorsAdd(int code)
{
    ForEachCard([code](xCard& card) { card.OrientationAdded(code); });
}

void xEMWinDesc::SelectorsRemove(int code, int other)
{
    ForEachCard([code, other](xCard& card) { card.OrientationRemoved(code, other); });
}

void xEMWinDesc::SelectorsEnable(bool on)
{
    ForEachCard([on](xCard& card) { card.EnableSelector(on); });
}
