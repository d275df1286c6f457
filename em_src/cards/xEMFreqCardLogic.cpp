#include "cards/xEMFreqCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "model/xEMSDesc.h"

const char* const xEMFreqCardLogic::kIncomplete = "Undefined frequencies.";
const char* const xEMFreqCardLogic::kScaleDialogTitle = "Amplitude scaling";
const char* const xEMFreqCardLogic::kFrequencyPrompt = "Frequencies.\nSpecify range of frequencies used [Hz].";

xEMFreqCardLogic::xEMFreqCardLogic(xEMDesc& document, xCommandTarget* up)
    : xEMTableCardLogic(
          document, up, {kScaleDialogTitle, 250, "real amplitude", "nominal amplitude "},
          {{kFrequencyMenu, "Frequency", kFrequencyCut, kFrequencyCopy, kFrequencyPaste, kFrequencyGrid, 1, true}})
{
}

xEMFreqCardLogic::Values xEMFreqCardLogic::ValuesOf(const xEMSDesc& record)
{
    return Values{record.frequencies};
}

bool xEMFreqCardLogic::Apply(const Values& values, std::string& message)
{
    xEMSDesc* record = Record();
    if (!record) {
        message = kIncomplete;
        return false;
    }
    const bool tableChanged = TakeTable(record->frequencies, InRecordBounds(values.frequencies, record->frequencies));
    // Unlike the waveform card, weights of the wrong count alone are a change.
    const bool countChanged = record->weights.Size() != record->frequencies.Rows();
    if (countChanged)
        record->SetChannels(record->frequencies.Rows());
    if (tableChanged || countChanged) {
        MarkChanged();
        Send(xEMEditDesc::kCopySystem, record);
    }
    return Complete(message);
}

bool xEMFreqCardLogic::Complete(std::string& message) const
{
    if (Record() && Record()->Channels() >= 2)
        return true;
    message = kIncomplete;
    return false;
}

void xEMFreqCardLogic::RowsChanged(long /*grid*/, int rows)
{
    SendChannels(rows);
}

bool xEMFreqCardLogic::ScalePair(float*& first, float*& second) const
{
    xEMSDesc* record = Record();
    if (!record)
        return false;
    first = &record->realAmplitude;
    second = &record->nominalAmplitude;
    return true;
}
