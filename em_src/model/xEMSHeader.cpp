#include "model/xEMSHeader.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "model/xDscText.h"
#include "numeric/xExtract.h"

#include <istream>
#include <ostream>

namespace {

const char kFrequencyDomain[] = "frequency domain";
const char kNormalizedByLabel[] = "WAVEFORM NORMALIZED BY";

} // namespace

std::string BracketUnit(const std::string& line)
{
    long start = 0;
    long end = 0;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '[')
            start = static_cast<long>(i) + 1;
        else if (line[i] == ']')
            end = static_cast<long>(i) - 1;
    }
    if (end < start)
        return "---";
    if (line.empty())
        return std::string();
    return line.substr(static_cast<size_t>(start), static_cast<size_t>(end - start + 1));
}

const std::vector<std::string>& xEMSHeader::TimeUnitList()
{
    static const std::vector<std::string> list = {"nSec", "microsec", "mSec", "sec",  "min",
                                                  "hour", "day",      "week", "month"};
    return list;
}

const std::vector<std::string>& xEMSHeader::WaveformTypeList()
{
    static const std::vector<std::string> list = {"transient", "halfperiod", kFrequencyDomain};
    return list;
}

const std::vector<std::string>& xEMSHeader::WaveformKindList()
{
    static const std::vector<std::string> list = {"undefined", "nominal", "averaged", "calibrated",
                                                  "other"};
    return list;
}

const std::vector<std::string>& xEMSHeader::NormalizationList()
{
    static const std::vector<std::string> list = {"total field", "component"};
    return list;
}

xEMSHeader::xEMSHeader()
    : timeUnits(TimeUnitList()), waveformTypes(WaveformTypeList()),
      waveformKinds(WaveformKindList()), normalizations(NormalizationList())
{
    SetDefaults();
}

xEMSHeader::xEMSHeader(const xEMSHeader& other) : xEMSHeader()
{
    *this = other;
}

void xEMSHeader::SetDefaults()
{
    realHalfPeriod = 1.0f;
    nominalHalfPeriod = 1.0f;
    halfPeriod = 0.0f;
    timeUnit = "sec";
    waveformType = "halfperiod";
    normalizedBy = "total field";
    rxKind = "nominal";
    txKind = "undefined";
}

xEMSHeader& xEMSHeader::operator=(const xEMSHeader& other)
{
    if (this == &other)
        return *this;
    realHalfPeriod = other.realHalfPeriod;
    nominalHalfPeriod = other.nominalHalfPeriod;
    halfPeriod = other.halfPeriod;
    timeUnit = other.timeUnit;
    normalizedBy = other.normalizedBy;
    waveformType = other.waveformType;
    systemName = other.systemName;
    systemVersion = other.systemVersion;
    definedBy = other.definedBy;
    dateDefined = other.dateDefined;
    return *this;
}

bool xEMSHeader::IsFrequencyDomain() const
{
    return waveformType == kFrequencyDomain;
}

bool xEMSHeader::IsNormalizedByComponent() const
{
    return !IsFrequencyDomain() && normalizedBy == "component";
}

bool xEMSHeader::SameScaling(const xEMSHeader& other) const
{
    if (this == &other)
        return true;
    return realHalfPeriod == other.realHalfPeriod && nominalHalfPeriod == other.nominalHalfPeriod &&
           halfPeriod == other.halfPeriod && timeUnit == other.timeUnit &&
           waveformType == other.waveformType && normalizedBy == other.normalizedBy;
}

bool xEMSHeader::SameIdentity(const xEMSHeader& other) const
{
    return systemName == other.systemName && systemVersion == other.systemVersion &&
           definedBy == other.definedBy && dateDefined == other.dateDefined;
}

double xEMSHeader::TimeFactor() const
{
    // Seconds per unit, as 32-bit floats; the list follows TimeUnitList().
    static const float kSeconds[] = {1e-9f, 1e-6f, 1e-3f, 1.0f, 60.0f, 3600.0f, 86400.0f,
                                     604800.0f, 18144000.0f};
    double seconds = 1.0;
    const std::vector<std::string>& units = TimeUnitList();
    for (size_t i = 0; i < units.size(); ++i)
        if (timeUnit == units[i])
            seconds = kSeconds[i];
    return static_cast<double>(nominalHalfPeriod) /
           (static_cast<double>(realHalfPeriod) * seconds);
}

std::istream& operator>>(std::istream& in, xEMSHeader& header)
{
    xDoc::GetLine(in);
    header.systemName = xDoc::GetLine(in);
    xDoc::GetLine(in);
    header.systemVersion = xDoc::GetLine(in);
    xDoc::GetLine(in);
    header.definedBy = xDoc::GetLine(in);
    xDoc::GetLine(in);
    header.dateDefined = xDoc::GetLine(in);
    xDoc::GetLine(in);
    xExtract::Float(in, header.nominalHalfPeriod);
    xExtract::Float(in, header.realHalfPeriod);
    header.timeUnit = BracketUnit(xDoc::GetLine(in));
    xDoc::GetLine(in);
    header.waveformType = xDoc::GetLine(in);
    if (!header.IsFrequencyDomain()) {
        // The stored half period is only ever a copy of the real one.
        xExtract::Float(in, header.halfPeriod);
        header.halfPeriod = header.realHalfPeriod;
        xDoc::GetLine(in);
    }
    if (xDoc::GetLine(in) != kNormalizedByLabel) {
        PostNote("Old system descriptor, will be updated to support waveform normalization.");
        return in;
    }
    header.normalizedBy = xDoc::GetLine(in);
    return in;
}

std::ostream& operator<<(std::ostream& out, const xEMSHeader& header)
{
    std::string text;
    text += "SYSTEM NAME\n" + header.systemName + "\nVERSION\n" + header.systemVersion +
            "\nDEFINED BY\n" + header.definedBy + "\nDATE DEFINED\n" + header.dateDefined +
            "\nTIME SCALING\n";
    xDscText::AppendFloat(text, header.nominalHalfPeriod);
    text += "  ";
    xDscText::AppendFloat(text, header.realHalfPeriod);
    text += "   [" + header.timeUnit + "]\nWAVEFORM TYPE\n" + header.waveformType + "\n";
    if (!header.IsFrequencyDomain()) {
        xDscText::AppendFloat(text, header.halfPeriod);
        text += "   [" + header.timeUnit + "]\n";
    }
    text += std::string(kNormalizedByLabel) + "\n" + header.normalizedBy + "\n";
    return out << text;
}
