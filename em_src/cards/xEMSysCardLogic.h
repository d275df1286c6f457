#ifndef TOLVAD_CARDS_XEMSYSCARDLOGIC_H
#define TOLVAD_CARDS_XEMSYSCARDLOGIC_H

#include "frame/xCardLogic.h"
#include "numeric/FloatArray.h"

#include <string>
#include <vector>

class xEMSHeader;

// The logic of the "System Description" card: the descriptor's header (who
// defined the system, its waveform type, normalisation and time scaling) and
// the two waveform kinds whose choice brings or takes away the waveform cards.
class xEMSysCardLogic : public xCardLogic {
public:
    // Controls of the card, in the order they are built.
    enum Control {
        kSystemName = 5000,
        kSystemVersion = 5001,
        kDefinedBy = 5002,
        kDateDefined = 5003,
        kWaveformType = 5004,
        kNormalizedByLabel = 5011,
        kNormalizedBy = 5012,
        kTxKindLabel = 5006,
        kTxKind = 5005,
        kRxKindLabel = 5008,
        kRxKind = 5007,
        kHalfPeriod = 5013,
        kTimeUnit = 5009,
        kNominalHalfPeriod = 5019,
        kFirstOrientationBox = 5500   // one box per orientation code, 100 first
    };
    enum Command {
        kTxKindChosen = 3002,
        kRxKindChosen = 3003,
        kWaveformTypeChosen = 3004,
        kTimeScaling = 9351
    };

    // What the controls hold; the half periods as read from their boxes.
    struct Values {
        std::string systemName, systemVersion, definedBy, dateDefined;
        std::string waveformType, normalizedBy;
        float halfPeriod = 0.0f;
        float nominalHalfPeriod = 0.0f;
        std::string txKind, rxKind, timeUnit;
    };

    explicit xEMSysCardLogic(xEMDesc& document, xCommandTarget* up = nullptr);

    xEMSHeader& Header() const;
    // What the controls show when they are loaded from a header.
    static Values ValuesOf(const xEMSHeader& header);

    // Stores every value that differs from the header at once, marking the
    // document changed for each, so that a failure later on keeps what came
    // before it. In the time domain both half periods must not be 0.
    bool Apply(const Values& values, std::string& message);
    bool CheckRecord(std::string& message) override;

    // 3002, 3003: stores a changed kind; then asks for the waveform card, or
    // for its removal when the kind is "undefined", whether it changed or not.
    void ChooseTxKind(const std::string& kind);
    void ChooseRxKind(const std::string& kind);
    // 3004: a new waveform type is stored and changes the domain.
    void ChooseWaveformType(const std::string& type);

    // 9351, the time scaling pair: the real and the nominal half period at 1
    // and 2, their labels with the time unit shown, and the edited pair back.
    FloatArray TimeScaling() const;
    static std::vector<std::string> TimeScalingLabels(const std::string& timeUnit);
    void TakeTimeScaling(const FloatArray& values);

private:
    void Take(std::string& field, const std::string& value);
    void ChooseKind(std::string& field, const std::string& kind, long addCommand, long removeCommand);
};

#endif
