#ifndef TOLVAD_CARDS_XEMFREQCARDLOGIC_H
#define TOLVAD_CARDS_XEMFREQCARDLOGIC_H

#include "cards/xEMTableCardLogic.h"

#include <string>
#include <vector>

// The logic of the "Frequencies" card of a frequency-domain system: the
// frequency table of the current orientation, one weight per frequency and
// the record's amplitude scale pair.
class xEMFreqCardLogic : public xEMTableCardLogic {
public:
    enum Control { kFrequencyGrid = 6000 };
    enum Command { kFrequencyMenu = 3462, kFrequencyCut = 3463, kFrequencyCopy = 3464, kFrequencyPaste = 3465 };
    // The grid takes what the clipboard can bring.
    static constexpr int kFrequencyRows = 4500;
    static constexpr int kVisibleRows = 12;
    static const char* const kIncomplete;
    static const char* const kScaleDialogTitle;
    static const char* const kFrequencyPrompt;

    // What the control holds.
    struct Values {
        FloatMatrix frequencies;
    };

    explicit xEMFreqCardLogic(xEMDesc& document, xCommandTarget* up = nullptr);

    static Values ValuesOf(const xEMSDesc& record);

    // Stores the frequencies when they differ and sizes the weights to them;
    // either marks the document and goes to the window as 9407. Complete with
    // at least 2 frequencies.
    bool Apply(const Values& values, std::string& message);

    // The one grid's count always goes to the window.
    void RowsChanged(long grid, int rows) override;

protected:
    // The real amplitude first, though the record holds the nominal first.
    bool ScalePair(float*& first, float*& second) const override;
    bool Complete(std::string& message) const override;
};

#endif
