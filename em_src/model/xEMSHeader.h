#ifndef TOLVAD_MODEL_XEMSHEADER_H
#define TOLVAD_MODEL_XEMSHEADER_H

#include <iosfwd>
#include <string>
#include <vector>

// The unit of a line of the form "value ... [unit]": the text between the last
// "[" and the last "]"; "---" when nothing stands between them; the first
// character of a line without brackets (empty for an empty line).
std::string BracketUnit(const std::string& line);

// The one record of a descriptor that holds for the whole system: who defined
// it, how nominal time relates to real time, the waveform type (which decides
// the domain) and the normalisation.
class xEMSHeader {
public:
    xEMSHeader();
    xEMSHeader(const xEMSHeader& other);
    // Copies scaling, type, normalisation and identity; not the card choices
    // rxKind and txKind.
    xEMSHeader& operator=(const xEMSHeader& other);

    void SetDefaults();

    bool IsFrequencyDomain() const;
    bool IsNormalizedByComponent() const;
    bool SameScaling(const xEMSHeader& other) const;
    bool SameIdentity(const xEMSHeader& other) const;
    // Nominal time per second: nominalHalfPeriod / (realHalfPeriod * seconds
    // per timeUnit). An unknown unit counts as seconds; a month is thirty weeks.
    double TimeFactor() const;

    float realHalfPeriod;
    float nominalHalfPeriod;
    float halfPeriod;
    std::string timeUnit;
    std::string waveformType;
    std::string normalizedBy;
    std::string systemName;
    std::string systemVersion;
    std::string definedBy;
    std::string dateDefined;
    std::string rxKind;
    std::string txKind;

    std::vector<std::string> timeUnits;
    std::vector<std::string> waveformTypes;
    std::vector<std::string> waveformKinds;
    std::vector<std::string> normalizations;

    // The shared vocabulary, in table order.
    static const std::vector<std::string>& TimeUnitList();
    static const std::vector<std::string>& WaveformTypeList();
    static const std::vector<std::string>& WaveformKindList();
    static const std::vector<std::string>& NormalizationList();
};

std::istream& operator>>(std::istream& in, xEMSHeader& header);
std::ostream& operator<<(std::ostream& out, const xEMSHeader& header);

#endif
