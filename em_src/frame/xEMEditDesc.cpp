#include "frame/xEMEditDesc.h"

#include "gui/xMenuBar.h"
#include "gui/xPlatform.h"

#include <memory>

const char* const xEMEditDesc::kSystemCard = "System Description";
const char* const xEMEditDesc::kTxWaveCard = "Tx Waveform";
const char* const xEMEditDesc::kRxWaveCard = "Rx Waveform";
const char* const xEMEditDesc::kFrequencyCard = "Frequencies";
const char* const xEMEditDesc::kGeometryCard = "System Geometry";
const char* const xEMEditDesc::kFormatCard = "Data Format";

namespace {

const char* const kUndefinedKind = "undefined";

// The set codes of a table in ascending order, 100 included when set.
std::vector<int> SetCodes(xTRClasf clasf)
{
    std::vector<int> codes;
    clasf.Rewind();
    int code = 0;
    while (clasf.NextSet(code))
        codes.push_back(code);
    return codes;
}

} // namespace

xEMEditDesc::xEMEditDesc(xCommandTarget* boss, long id) : xEMDesc(boss, id)
{
    replaceWhole = true;
}

std::vector<std::string> xEMEditDesc::CardTitles() const
{
    std::vector<std::string> titles{kSystemCard};
    if (header->IsFrequencyDomain()) {
        titles.push_back(kFrequencyCard);
    } else {
        if (WantsTxWaveCard())
            titles.push_back(kTxWaveCard);
        if (WantsRxWaveCard())
            titles.push_back(kRxWaveCard);
    }
    titles.push_back(kGeometryCard);
    titles.push_back(kFormatCard);
    return titles;
}

bool xEMEditDesc::WantsTxWaveCard() const
{
    return system && system->txWaveform.kind != kUndefinedKind;
}

bool xEMEditDesc::WantsRxWaveCard() const
{
    return system && system->rxField.kind != kUndefinedKind;
}

void xEMEditDesc::DoCommand(long command, void* data)
{
    switch (command) {
    case kPickOrientation:
        if (data)
            PickOrientation(*static_cast<int*>(data));
        return;
    case kRxSensorName:
    case kTxSensorName:
        ShareSensorKind(command == kTxSensorName);
        return;
    case kResize:
        if (data)
            Resize(*static_cast<int*>(data));
        return;
    case kCommonOn:
    case kCommonOff:
        SetCommonMode(command == kCommonOn);
        return;
    case kCopySystem:
        if (sharedMode)
            CopyToAllItems(static_cast<const xEMSDesc*>(data), true, false);
        return;
    case kCopyGeometry:
        if (sharedMode)
            CopyToAllItems(nullptr, false, true);
        return;
    default:
        xEMDesc::DoCommand(command, data);
    }
}

void xEMEditDesc::PickOrientation(int code)
{
    SetCurrent(code);
    ReloadCards();
}

void xEMEditDesc::ShareSensorKind(bool transmitter)
{
    if (!geometry)
        return;
    const std::string kind = transmitter ? geometry->tx.kind : geometry->rx.kind;
    for (auto& entry : items) {
        xEMDescItem& item = *entry.second;
        if (&item.geometry == geometry)
            continue;
        xEMSensorType& sensor = transmitter ? item.geometry.tx : item.geometry.rx;
        if (sensor.kind == kind)
            continue;
        sensor.SetKind(kind);
        sensor.AddComponent(transmitter ? TxComponent(item.code) : RxComponent(item.code));
    }
}

xEMDescItem* xEMEditDesc::FirstItem() const
{
    return items.empty() ? nullptr : items.begin()->second.get();
}

bool xEMEditDesc::AddOrientation(const std::string& name)
{
    int code = NameToCode(name);
    std::string key = CodeName(code);
    if (items.count(key))
        return false;
    std::unique_ptr<xEMDescItem> item;
    if (xEMDescItem* first = FirstItem()) {
        item = std::make_unique<xEMDescItem>(first->system, first->geometry, code);
    } else {
        // A descriptor without records (an unsupported file) starts them anew.
        xEMSDesc newSystem;
        newSystem.SetHeader(header.get());
        item = std::make_unique<xEMDescItem>(newSystem, xEMGDesc(), code);
    }
    item->geometry.KeepComponent(code);
    int channels = item->system.Channels();
    items[key] = std::move(item);
    format->SetOrientationChannels(channels, code);
    // A descriptor that had no records now has current ones.
    if (!SetCurrent(current)) {
        SetCurrent(code);
        ReloadCards();
    }
    MarkCardStale(kFormatCard);
    SelectorsAdd(code);
    SetChanged(true);
    return true;
}

void xEMEditDesc::EnsureItem(int code)
{
    if (items.count(CodeName(code)) || !system || !geometry)
        return;
    auto item = std::make_unique<xEMDescItem>(*system, *geometry, code);
    item->geometry.KeepComponent(code);
    items[CodeName(code)] = std::move(item);
}

bool xEMEditDesc::RemoveOrientation(int code)
{
    if (format->clasf.Count() <= 1) {
        PostWarning("At least one Transmitter/Receiver orientation has to remain selected at all times.");
        return false;
    }
    if (code == current) {
        int next = format->clasf.OtherSet(code);
        if (sharedMode)
            CopyToAllItems(nullptr, true, true);
        // An orientation that the table names without records gets copies,
        // so that the current records never go with the removed ones.
        EnsureItem(next);
        SetCurrent(next);
        ReloadCards();
    }
    format->SetOrientationChannels(0, code);
    MarkCardStale(kFormatCard);
    SelectorsRemove(code, current);
    auto found = items.find(CodeName(code));
    if (found != items.end() && &found->second->system != system)
        items.erase(found);
    SetChanged(true);
    return true;
}

void xEMEditDesc::Resize(int n)
{
    if (!system)
        return;
    system->SetChannels(n);
    if (!sharedMode) {
        format->SetOrientationChannels(n, current);
        format->ClearPositions(current);
    } else {
        CopyToAllItems(nullptr, true, false);
        for (int code : SetCodes(format->clasf)) {
            format->SetOrientationChannels(n, code);
            format->ClearPositions(code);
        }
    }
    format->ResizeToClasf();
    MarkCardStale(kFormatCard);
}

void xEMEditDesc::SetCommonMode(bool on)
{
    sharedMode = on;
    if (on) {
        CopyToAllItems(nullptr, true, true);
        int channels = system ? system->Channels() : 1;
        for (int code : SetCodes(format->clasf)) {
            format->SetOrientationChannels(channels, code);
            format->ClearPositions(code);
        }
        format->ResizeToClasf();
        // The positions went: the data format card has to show that.
        MarkCardStale(kFormatCard);
    }
    SelectorsEnable(!on);
}

void xEMEditDesc::CopyToAllItems(const xEMSDesc* record, bool withSystem, bool withGeometry)
{
    const xEMSDesc* source = record ? record : system;
    for (auto& entry : items) {
        xEMDescItem& item = *entry.second;
        if (withSystem && source && &item.system != source)
            item.system = *source;
        if (withGeometry && geometry && &item.geometry != geometry) {
            item.geometry = *geometry;
            item.geometry.KeepComponent(item.code);
        }
    }
}

bool xEMEditDesc::ToFrequencyDomain()
{
    return ChangeDomain(true);
}

bool xEMEditDesc::ToTimeDomain()
{
    return ChangeDomain(false);
}

bool xEMEditDesc::ChangeDomain(bool frequency)
{
    if ((format->frequencyDomain != 0) == frequency)
        return false;
    // The counts follow the records in the new domain (windows or
    // frequencies), and the position tables their widest, so that a file
    // saved now reads back.
    format->SetClasf(ItemClasf());
    format->ResizeToClasf();
    format->frequencyDomain = frequency ? 1 : 0;
    MarkCardStale(kFormatCard);
    return true;
}

bool xEMEditDesc::CardsApplied()
{
    if (!HasWindow())
        return false;
    std::string message;
    if (ApplyAll(message))
        return true;
    PostNote("Cannot save the file - %s", message.c_str());
    return false;
}

bool xEMEditDesc::DoSave()
{
    return CardsApplied() && xEMDesc::DoSave();
}

bool xEMEditDesc::DoSaveAs()
{
    return CardsApplied() && xEMDesc::DoSaveAs();
}

bool xEMEditDesc::DoClose()
{
    if (IsChanged()) {
        int answer = AskOfThree("Save", "Discard", "Cancel", GetFileName() + " has changed, save before closing?");
        // What comes of a Save isn't looked at: the window's close asks again.
        if (answer == 0)
            DoSave();
        else if (answer == 1)
            SetChanged(false);
        else if (answer == 2)
            return false;
    }
    while (WindowCount() > 0) {
        if (!Window(0)->Close())
            return false;
    }
    return true;
}

void xEMEditDesc::DoUpdateMenus(xMenuBar& menuBar)
{
    menuBar.Enable(kSaveAs, true);
    menuBar.Enable(kSave, IsChanged() && FileExists());
    menuBar.Enable(kPrintSetup, false);
    menuBar.Enable(kPrint, false);
    menuBar.Enable(kClose, true);
}
