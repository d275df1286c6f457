#ifndef TOLVAD_CARDS_XEMWAVECARDLOGIC_H
#define TOLVAD_CARDS_XEMWAVECARDLOGIC_H

#include "cards/xEMTableCardLogic.h"

#include <string>
#include <vector>

class xEMWaveform;

// The logic of the "Tx Waveform" and "Rx Waveform" cards: one waveform table
// of the current orientation (the transmitter current on the card titled "Tx
// Waveform", the receiver primary field on any other), the sampling windows
// both cards share, the windows' weights and the waveform's amplitude scale.
class xEMWaveCardLogic : public xEMTableCardLogic {
public:
    enum Control {
        kWindowsGrid = 5000,
        kWindowsSeries = 5001,
        kWaveformGrid = 5002,
        kWaveformSeries = 5003,
        kPlotUnits = 5004
    };
    enum Command {
        kWaveformMenu = 3452,
        kWaveformCut = 3453,
        kWaveformCopy = 3454,
        kWaveformPaste = 3455,
        kWindowsMenu = 3457,
        kWindowsCut = 3458,
        kWindowsCopy = 3459,
        kWindowsPaste = 3460
    };
    // The grids take what the clipboard can bring: 4500 numbers.
    static constexpr int kWaveformRows = 1500;
    static constexpr int kWindowRows = 2250;
    static constexpr int kVisibleRows = 13;
    static const char* const kIncomplete;
    static const char* const kScaleDialogTitle;
    static const char* const kWaveformPrompt;
    static const char* const kWindowsPrompt;
    // Help texts that no control of the card shows.
    static const char* const kRxWaveformButtonPrompt;
    static const char* const kTxWaveformButtonPrompt;
    static const char* const kTimeUnitsPrompt;
    static const char* const kAmplitudeScalingPrompt;

    // What the controls hold.
    struct Values {
        FloatMatrix windows;
        FloatMatrix waveform;
        std::string plotUnits;
    };

    // title chooses the block: "Tx Waveform" the transmitter's, any other the
    // receiver's.
    xEMWaveCardLogic(xEMDesc& document, const std::string& title, xCommandTarget* up = nullptr);

    bool Transmitter() const { return transmitter; }
    // The edited block of the record; null without a record.
    xEMWaveform* Block() const;
    static Values ValuesOf(const xEMSDesc& record, bool transmitter);

    // Stores the windows (the weights follow their count), the waveform and
    // the plot units, each that differs; a change marks the document and goes
    // to the window as 9407. Complete with a defined waveform of 3 rows or
    // more and at least 2 windows.
    bool Apply(const Values& values, std::string& message);

    // The windows grid's count goes to the window; the waveform's does not.
    void RowsChanged(long grid, int rows) override;

protected:
    // The block's equivalent amplitude, then its nominal one.
    bool ScalePair(float*& first, float*& second) const override;
    bool Complete(std::string& message) const override;

private:
    bool transmitter;
};

#endif
