#include "frame/xCardCatalog.h"

#include "cards/xEMFCard.h"
#include "cards/xEMFreqCard.h"
#include "cards/xEMGCard.h"
#include "cards/xEMSysCard.h"
#include "cards/xEMWaveCard.h"
#include "frame/xEMEditDesc.h"

#include <map>

namespace {

// The cards, one line each.
std::map<std::string, xCardCatalog::Maker>& Makers()
{
    static std::map<std::string, xCardCatalog::Maker> makers = {
        {xEMEditDesc::kSystemCard, &xEMSysCard::Make},
        {xEMEditDesc::kTxWaveCard, &xEMWaveCard::MakeTx},
        {xEMEditDesc::kRxWaveCard, &xEMWaveCard::MakeRx},
        {xEMEditDesc::kFrequencyCard, &xEMFreqCard::Make},
        {xEMEditDesc::kGeometryCard, &xEMGCard::Make},
        {xEMEditDesc::kFormatCard, &xEMFCard::Make},
    };
    return makers;
}

} // namespace

bool xCardCatalog::Exists(const std::string& title)
{
    return Makers().count(title) != 0;
}

xCard* xCardCatalog::Make(const std::string& title, xEMWinDesc& document, xDWin& window)
{
    auto found = Makers().find(title);
    return found == Makers().end() ? nullptr : found->second(document, window);
}

void xCardCatalog::Register(const std::string& title, Maker make)
{
    if (make)
        Makers()[title] = make;
    else
        Makers().erase(title);
}
