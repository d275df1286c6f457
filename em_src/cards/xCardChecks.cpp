#include "cards/xCardChecks.h"

#include "cards/xEMFCardLogic.h"
#include "cards/xEMFreqCardLogic.h"
#include "cards/xEMGCardLogic.h"
#include "cards/xEMSysCardLogic.h"
#include "cards/xEMWaveCardLogic.h"
#include "frame/xEMEditDesc.h"

#include <algorithm>

namespace {

template <typename Logic>
std::unique_ptr<xCardLogic> Make(xEMDesc& document)
{
    return std::make_unique<Logic>(document);
}

// The logic of a card whose title chooses what it edits.
template <typename Logic, const char* const& Title>
std::unique_ptr<xCardLogic> MakeTitled(xEMDesc& document)
{
    return std::make_unique<Logic>(document, Title);
}

struct Entry {
    const char* title;
    std::unique_ptr<xCardLogic> (*make)(xEMDesc&);
};

// The cards with a logic of their own, by title.
const Entry kCards[] = {
    {xEMEditDesc::kSystemCard, &Make<xEMSysCardLogic>},
    {xEMEditDesc::kTxWaveCard, &MakeTitled<xEMWaveCardLogic, xEMEditDesc::kTxWaveCard>},
    {xEMEditDesc::kRxWaveCard, &MakeTitled<xEMWaveCardLogic, xEMEditDesc::kRxWaveCard>},
    {xEMEditDesc::kFrequencyCard, &Make<xEMFreqCardLogic>},
    {xEMEditDesc::kGeometryCard, &Make<xEMGCardLogic>},
    {xEMEditDesc::kFormatCard, &Make<xEMFCardLogic>},
};

} // namespace

std::unique_ptr<xCardLogic> xCardChecks::MakeLogic(const std::string& title, xEMDesc& document)
{
    for (const Entry& entry : kCards)
        if (title == entry.title)
            return entry.make(document);
    return nullptr;
}

std::vector<xCardChecks::Failure> xCardChecks::Run(xEMEditDesc& document)
{
    std::vector<int> codes;
    for (const auto& item : document.items)
        codes.push_back(item.second->code);
    std::sort(codes.begin(), codes.end());

    std::vector<Failure> failures;
    const int current = document.current;
    for (int code : codes) {
        if (!document.SetCurrent(code))
            continue;
        for (const std::string& title : document.CardTitles()) {
            std::unique_ptr<xCardLogic> logic = MakeLogic(title, document);
            std::string message;
            if (logic && !logic->CheckRecord(message))
                failures.push_back({code, title, message});
        }
    }
    document.SetCurrent(current);
    return failures;
}
