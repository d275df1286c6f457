#ifndef TOLVAD_MODEL_XEMWAVEFORM_H
#define TOLVAD_MODEL_XEMWAVEFORM_H

#include "numeric/FloatMatrix.h"

#include <iosfwd>
#include <string>

// One waveform of a time-domain system (the transmitter current or the
// receiver primary field): a table of time, amplitude and error per sample,
// rows 1 to n once read, with the scale that ties nominal amplitude to the
// equivalent secondary amplitude. kind "undefined" means no waveform is given.
class xEMWaveform {
public:
    xEMWaveform();

    void SetDefaults();
    bool operator==(const xEMWaveform& other) const;

    bool IsUndefined() const;
    // "undefined", or fewer than three samples.
    bool Incomplete() const;
    // The table transposed (row 0 time, 1 amplitude, 2 error) with the
    // amplitudes scaled by equivalentAmplitude / nominalAmplitude. False and
    // nothing done for an undefined waveform or a table never filled (one
    // element in all).
    bool GetScaledTable(FloatMatrix& matrix) const;

    std::string errorUnit;
    std::string kind;
    float equivalentAmplitude;
    float nominalAmplitude;
    std::string amplitudeUnit;
    FloatMatrix table;
};

std::istream& operator>>(std::istream& in, xEMWaveform& waveform);
std::ostream& operator<<(std::ostream& out, const xEMWaveform& waveform);

#endif
