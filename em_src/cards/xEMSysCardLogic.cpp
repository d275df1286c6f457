#include "cards/xEMSysCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "model/xEMSHeader.h"

namespace {

const char* const kUndefinedKind = "undefined";
const char* const kFrequencyDomain = "frequency domain";

} // namespace

xEMSysCardLogic::xEMSysCardLogic(xEMDesc& document, xCommandTarget* up) : xCardLogic(document, up) {}

xEMSHeader& xEMSysCardLogic::Header() const
{
    return *Document().header;
}

xEMSysCardLogic::Values xEMSysCardLogic::ValuesOf(const xEMSHeader& header)
{
    Values values;
    values.systemName = header.systemName;
    values.systemVersion = header.systemVersion;
    values.definedBy = header.definedBy;
    values.dateDefined = header.dateDefined;
    values.waveformType = header.waveformType;
    values.normalizedBy = header.normalizedBy;
    values.halfPeriod = header.halfPeriod;
    values.nominalHalfPeriod = header.nominalHalfPeriod;
    values.txKind = header.txKind;
    values.rxKind = header.rxKind;
    values.timeUnit = header.timeUnit;
    return values;
}

void xEMSysCardLogic::Take(std::string& field, const std::string& value)
{
    if (field == value)
        return;
    field = value;
    MarkChanged();
}

bool xEMSysCardLogic::Apply(const Values& values, std::string& message)
{
    xEMSHeader& header = Header();
    Take(header.systemName, values.systemName);
    Take(header.systemVersion, values.systemVersion);
    Take(header.definedBy, values.definedBy);
    Take(header.dateDefined, values.dateDefined);
    Take(header.waveformType, values.waveformType);
    Take(header.normalizedBy, values.normalizedBy);
    if (header.IsFrequencyDomain())
        return true;

    if (values.halfPeriod == 0.0f) {
        message = "Undefined halfperiod in real time.";
        return false;
    }
    // The one way of editing that keeps the real half period and its copy equal.
    if (values.halfPeriod != header.halfPeriod) {
        header.halfPeriod = values.halfPeriod;
        header.realHalfPeriod = values.halfPeriod;
        MarkChanged();
    }
    if (values.nominalHalfPeriod == 0.0f) {
        message = "Undefined halfperiod in nominal time.";
        return false;
    }
    if (values.nominalHalfPeriod != header.nominalHalfPeriod) {
        header.nominalHalfPeriod = values.nominalHalfPeriod;
        MarkChanged();
    }
    Take(header.txKind, values.txKind);
    Take(header.rxKind, values.rxKind);
    Take(header.timeUnit, values.timeUnit);
    return true;
}

bool xEMSysCardLogic::CheckRecord(std::string& message)
{
    return Apply(ValuesOf(Header()), message);
}

void xEMSysCardLogic::ChooseKind(std::string& field, const std::string& kind, long addCommand, long removeCommand)
{
    Take(field, kind);
    Send(kind != kUndefinedKind ? addCommand : removeCommand);
}

void xEMSysCardLogic::ChooseTxKind(const std::string& kind)
{
    ChooseKind(Header().txKind, kind, xEMEditDesc::kAddTxWaveCard, xEMEditDesc::kRemoveTxWaveCard);
}

void xEMSysCardLogic::ChooseRxKind(const std::string& kind)
{
    ChooseKind(Header().rxKind, kind, xEMEditDesc::kAddRxWaveCard, xEMEditDesc::kRemoveRxWaveCard);
}

void xEMSysCardLogic::ChooseWaveformType(const std::string& type)
{
    xEMSHeader& header = Header();
    if (header.waveformType == type)
        return;
    header.waveformType = type;
    MarkChanged();
    Send(type == kFrequencyDomain ? xEMEditDesc::kToFrequencyDomain : xEMEditDesc::kToTimeDomain);
}

FloatArray xEMSysCardLogic::TimeScaling() const
{
    FloatArray values(1, 2);
    values[1] = Header().realHalfPeriod;
    values[2] = Header().nominalHalfPeriod;
    return values;
}

std::vector<std::string> xEMSysCardLogic::TimeScalingLabels(const std::string& timeUnit)
{
    return {"real time [" + timeUnit + "]  ", "nominal time "};
}

void xEMSysCardLogic::TakeTimeScaling(const FloatArray& values)
{
    xEMSHeader& header = Header();
    if (!values.InRange(1) || !values.InRange(2))
        return;
    if (values[1] == header.realHalfPeriod && values[2] == header.nominalHalfPeriod)
        return;
    header.realHalfPeriod = values[1];
    header.nominalHalfPeriod = values[2];
    MarkChanged();
}
