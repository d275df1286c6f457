#include "cards/xEMFItemList.h"

#include "model/xEMFDesc.h"
#include "model/xTROrientation.h"

#include <algorithm>
#include <cstdlib>

const char* const xEMFItemList::kNothing = "***";

namespace {

constexpr size_t kNameLength = 4;

} // namespace

void xEMFItemList::Add(const std::string& name)
{
    firstIndex.emplace(name, static_cast<int>(names.size()));
    names.push_back(name);
}

void xEMFItemList::Build(const xEMFDesc& format, bool random)
{
    names.clear();
    firstIndex.clear();
    Add(kNothing);
    for (const char* name : xEMFDesc::kFixedItemNames)
        Add(name);
    users = static_cast<int>(format.userLabels.size());
    for (const std::string& name : format.userLabels)
        Add(name);
    const bool frequency = format.frequencyDomain != 0;
    for (int code = kFirstOrientationCode + 1; code <= kLastOrientationCode; ++code) {
        const int count = std::min(format.OrientationChannels(code), format.ChannelCount());
        const int last = random ? count : std::min(count, 1);
        for (int i = 1; i <= last; ++i) {
            if (frequency) {
                Add(ChannelLabel({'Q', code, i}));
                Add(ChannelLabel({'P', code, i}));
            } else {
                Add(ChannelLabel({0, code, i}));
            }
        }
    }
}

std::string xEMFItemList::Name(int index) const
{
    return index >= 0 && index < Size() ? names[static_cast<size_t>(index)] : std::string();
}

int xEMFItemList::IndexOf(const std::string& name) const
{
    const auto found = firstIndex.find(name);
    return found == firstIndex.end() ? 0 : found->second;
}

bool xEMFItemList::IsFixed(int index) const
{
    return index >= 1 && index <= xEMFDesc::kFixedItemCount && index < Size();
}

bool xEMFItemList::IsUser(int index) const
{
    return index >= kFirstUser && index < kFirstUser + users && index < Size();
}

bool xEMFItemList::IsChannel(int index) const
{
    return index >= kFirstUser + users && index < Size();
}

std::string xEMFItemList::ChannelLabel(const Channel& channel)
{
    std::string label;
    if (channel.component) {
        label += channel.component;
        label += ' ';
    }
    return label + CodeName(channel.code) + "[" + std::to_string(channel.index) + "]";
}

bool xEMFItemList::ParseChannel(const std::string& label, bool frequencyDomain, Channel& channel)
{
    const size_t from = frequencyDomain ? 2 : 0;
    if (label.size() < from + kNameLength)
        return false;
    channel.component = frequencyDomain ? label[0] : 0;
    channel.code = NameToCode(label.substr(from, kNameLength));
    const size_t open = label.rfind('[');
    const size_t close = open == std::string::npos ? open : label.find(']', open);
    if (close == std::string::npos)
        return false;
    channel.index = std::atoi(label.substr(open + 1, close - open - 1).c_str());
    if (frequencyDomain && channel.component != 'Q' && channel.component != 'P')
        return false;
    return channel.code > kFirstOrientationCode && channel.code <= kLastOrientationCode && channel.index >= 1;
}
