#include "cards/xEMWaveCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "model/xEMSDesc.h"

const char* const xEMWaveCardLogic::kIncomplete = "Undefined waveform or windows.";
// The one title of both cards' scale dialog, the transmitter's included.
const char* const xEMWaveCardLogic::kScaleDialogTitle = "Rx Waveform Amplitude Scaling";
const char* const xEMWaveCardLogic::kWaveformPrompt =
    "Waveform definition.\nDefine sampling time (first column) and amplitude (second column) in nominal "
    "time/amplitude units. Optional error indication\n(third column) may be filled with zeros. Use "
    "Edit/Waveform/Copy-Cut-Paste menu option to import/export data from/to\nother applications or existing EMW "
    "descriptors via clipboard.";
const char* const xEMWaveCardLogic::kWindowsPrompt =
    "Sampling windows definition.\nDefine beginning (first column) and end (second column) of each sampling window "
    "in nominal time units.\nUse Edit/Windows/Copy-Cut-Paste menu option to import/export data from/to other "
    "applications or existing EMW descriptors\nvia clipboard.";
const char* const xEMWaveCardLogic::kRxWaveformButtonPrompt =
    "Edit receiver waveform.\nThe button is enabled if other than 'undefined' is selected in 'Receiver primary "
    "field'. Proceed to edit waveform and sampling.";
const char* const xEMWaveCardLogic::kTxWaveformButtonPrompt =
    "Edit transmitter waveform.\n(currently not supported).";
const char* const xEMWaveCardLogic::kTimeUnitsPrompt =
    "Time units.\nSpecify nominal time units used in waveform and sampling definition and their conversion factor "
    "to one of the predefined\nunits selectable via list button.";
const char* const xEMWaveCardLogic::kAmplitudeScalingPrompt =
    "Amplitude scaling.\nSpecify nominal amplitude units in which the waveform is expressed and their conversion "
    "factor to one of the predefined\nunits selectable via list button.";

xEMWaveCardLogic::xEMWaveCardLogic(xEMDesc& document, const std::string& title, xCommandTarget* up)
    : xEMTableCardLogic(
          document, up, {kScaleDialogTitle, 340, "equivalent secondary amplitude", "nominal (primary) amplitude "},
          {{kWaveformMenu, "Waveform", kWaveformCut, kWaveformCopy, kWaveformPaste, kWaveformGrid, 3, false},
           {kWindowsMenu, "Windows", kWindowsCut, kWindowsCopy, kWindowsPaste, kWindowsGrid, 2, true}}),
      transmitter(title == xEMEditDesc::kTxWaveCard)
{
}

xEMWaveform* xEMWaveCardLogic::Block() const
{
    if (!Record())
        return nullptr;
    return transmitter ? &Record()->txWaveform : &Record()->rxField;
}

xEMWaveCardLogic::Values xEMWaveCardLogic::ValuesOf(const xEMSDesc& record, bool transmitter)
{
    const xEMWaveform& block = transmitter ? record.txWaveform : record.rxField;
    return Values{record.windows, block.table, block.amplitudeUnit};
}

bool xEMWaveCardLogic::Apply(const Values& values, std::string& message)
{
    xEMSDesc* record = Record();
    if (!record) {
        message = kIncomplete;
        return false;
    }
    xEMWaveform& block = *Block();
    bool changed = TakeTable(record->windows, InRecordBounds(values.windows, record->windows));
    // The weights follow the windows; that alone is no change.
    if (record->weights.Size() != record->windows.Rows())
        record->SetChannels(record->windows.Rows());
    changed = TakeTable(block.table, InRecordBounds(values.waveform, block.table)) || changed;
    if (values.plotUnits != block.amplitudeUnit) {
        block.amplitudeUnit = values.plotUnits;
        changed = true;
    }
    if (changed) {
        MarkChanged();
        Send(xEMEditDesc::kCopySystem, record);
    }
    return Complete(message);
}

bool xEMWaveCardLogic::Complete(std::string& message) const
{
    const xEMSDesc* record = Record();
    const bool undefinedWaveform = !record || (transmitter ? record->TxWaveformIncomplete() : record->RxFieldIncomplete());
    if (!undefinedWaveform && record->Channels() >= 2)
        return true;
    message = kIncomplete;
    return false;
}

void xEMWaveCardLogic::RowsChanged(long grid, int rows)
{
    if (grid == kWindowsGrid)
        SendChannels(rows);
}

bool xEMWaveCardLogic::ScalePair(float*& first, float*& second) const
{
    xEMWaveform* block = Block();
    if (!block)
        return false;
    first = &block->equivalentAmplitude;
    second = &block->nominalAmplitude;
    return true;
}
