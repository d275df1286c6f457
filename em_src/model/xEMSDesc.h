#ifndef TOLVAD_MODEL_XEMSDESC_H
#define TOLVAD_MODEL_XEMSDESC_H

#include "model/xEMWaveform.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"

#include <iosfwd>
#include <string>
#include <vector>

class xEMSHeader;

// The system record of one transmitter/receiver orientation. In the time
// domain: the two waveforms and the receiver sampling windows (rows 1 to m,
// columns start and end, in nominal time); in the frequency domain: the
// frequencies (rows 1 to n, one column) and an amplitude scale. One weight per
// window or frequency. The domain is the header's, which the frame attaches.
class xEMSDesc {
public:
    xEMSDesc();
    xEMSDesc(const xEMSDesc& other);
    xEMSDesc& operator=(const xEMSDesc& other);
    // Header and version are not compared.
    bool operator==(const xEMSDesc& other) const;

    void SetHeader(xEMSHeader* newHeader) { header = newHeader; }
    void SetVersion(int newVersion) { version = newVersion; }

    // Without a header the record counts as time domain.
    bool IsFrequencyDomain() const;
    int Channels() const;
    bool IsSingleChannel() const;
    // weights become 1 to n; those that existed before keep their values, new
    // ones are 1.0. The tables are not touched.
    void SetChannels(int n);
    bool HasUnitWeights() const;
    bool CopyUnitWeights(FloatArray& array) const;

    bool GetFrequencies(FloatArray& array) const;
    bool GetFrequencyTable(FloatMatrix& matrix) const;
    bool GetWindows(FloatMatrix& matrix) const;
    // The windows divided by factor (nominal time per second), transposed:
    // row 0 the starts, row 1 the ends.
    void GetWindowsInSeconds(FloatMatrix& matrix, float factor) const;
    bool GetTxWaveform(FloatMatrix& matrix) const;
    bool GetRxField(FloatMatrix& matrix) const;
    bool TxWaveformIncomplete() const;
    bool RxFieldIncomplete() const;

    float nominalAmplitude;
    float realAmplitude;
    FloatMatrix windows;
    FloatMatrix frequencies;
    FloatArray weights;
    std::string title;
    xEMWaveform txWaveform;
    xEMWaveform rxField;
    std::vector<std::string> txUnits;
    std::vector<std::string> rxUnits;
    std::vector<std::string> errorUnits;
    xEMSHeader* header;   // not owned
    int32_t version;

    // The weight written with the row at offset (0 for the first row): weights
    // pair with the rows by position. A row without a weight gets 1.
    float WeightAt(int offset) const;
};

std::istream& operator>>(std::istream& in, xEMSDesc& desc);
std::ostream& operator<<(std::ostream& out, const xEMSDesc& desc);

#endif
