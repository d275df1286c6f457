#include "model/xEMSDesc.h"

#include "frame/xDoc.h"
#include "model/xDscText.h"
#include "model/xEMSHeader.h"
#include "numeric/xExtract.h"

#include <istream>
#include <ostream>

namespace {

const char kSeparator[] = "_________________________________________________________\n";
const int kFieldWidth = 12;

// Above these versions of the layout, the frequency table is followed by the
// amplitude scale, and tables carry weights.
const int kLastWithoutScaling = 3;
const int kLastWithoutWeights = 4;

} // namespace

xEMSDesc::xEMSDesc()
    : nominalAmplitude(1.0f), realAmplitude(1.0f), windows(1, 2), frequencies(1, 1),
      weights(1, 1), title("WAVEFORM TYPE"), txUnits{"amp", "amp/m^2"},
      rxUnits{"amp/m", "nanoVolts", "nV/amp", "%", "ppt", "ppm", "nV/amp/m^2", "Wb/m^2"},
      errorUnits{"%", "ppt", "ppm", "rms", "---"}, header(nullptr), version(9)
{
    weights = 1.0f;
    rxField.kind = "nominal";
    rxField.amplitudeUnit = "amp/m";
}

xEMSDesc::xEMSDesc(const xEMSDesc& other) : xEMSDesc()
{
    *this = other;
}

xEMSDesc& xEMSDesc::operator=(const xEMSDesc& other)
{
    if (this == &other)
        return *this;
    header = other.header;
    windows = other.windows;
    frequencies = other.frequencies;
    weights = other.weights;
    nominalAmplitude = other.nominalAmplitude;
    realAmplitude = other.realAmplitude;
    txWaveform = other.txWaveform;
    rxField = other.rxField;
    version = other.version;
    title = other.title;
    return *this;
}

bool xEMSDesc::operator==(const xEMSDesc& other) const
{
    if (this == &other)
        return true;
    return windows == other.windows && frequencies == other.frequencies &&
           weights == other.weights && nominalAmplitude == other.nominalAmplitude &&
           realAmplitude == other.realAmplitude && txWaveform == other.txWaveform &&
           rxField == other.rxField;
}

bool xEMSDesc::IsFrequencyDomain() const
{
    return header && header->IsFrequencyDomain();
}

int xEMSDesc::Channels() const
{
    return IsFrequencyDomain() ? frequencies.Rows() : windows.Rows();
}

bool xEMSDesc::IsSingleChannel() const
{
    return Channels() < 2;
}

void xEMSDesc::SetChannels(int n)
{
    FloatArray old(weights);
    weights.Resize(1, n < 0 ? 0 : n);
    weights = 1.0f;
    for (int i = 1; i <= n && i <= old.Upper(); ++i)
        if (old.InRange(i))
            weights[i] = old[i];
}

bool xEMSDesc::HasUnitWeights() const
{
    return weights.Count(1.0f) == weights.Size();
}

bool xEMSDesc::CopyUnitWeights(FloatArray& array) const
{
    if (!HasUnitWeights())
        return false;
    array = weights;
    return true;
}

bool xEMSDesc::GetFrequencies(FloatArray& array) const
{
    if (!IsFrequencyDomain())
        return false;
    array.Resize(frequencies.RowLower(), frequencies.RowUpper());
    for (int r = frequencies.RowLower(); r <= frequencies.RowUpper(); ++r)
        array[r] = frequencies.Row(r)[frequencies.ColLower()];
    return true;
}

bool xEMSDesc::GetFrequencyTable(FloatMatrix& matrix) const
{
    if (!IsFrequencyDomain())
        return false;
    matrix = frequencies.Transposed();
    return true;
}

bool xEMSDesc::GetWindows(FloatMatrix& matrix) const
{
    matrix = windows.Transposed();
    return true;
}

void xEMSDesc::GetWindowsInSeconds(FloatMatrix& matrix, float factor) const
{
    matrix = windows;
    matrix /= factor;
    matrix.Transpose();
}

bool xEMSDesc::GetTxWaveform(FloatMatrix& matrix) const
{
    return txWaveform.GetScaledTable(matrix);
}

bool xEMSDesc::GetRxField(FloatMatrix& matrix) const
{
    return rxField.GetScaledTable(matrix);
}

bool xEMSDesc::TxWaveformIncomplete() const
{
    return txWaveform.Incomplete();
}

bool xEMSDesc::RxFieldIncomplete() const
{
    return rxField.Incomplete();
}

float xEMSDesc::WeightAt(int offset) const
{
    long index = static_cast<long>(weights.Lower()) + offset;
    return index <= weights.Upper() ? weights[static_cast<int>(index)] : 1.0f;
}

namespace {

// Rows 1 to count of table with columns from 0, and as many unit weights.
void ResizeTable(xEMSDesc& desc, FloatMatrix& table, int32_t count, int cols)
{
    table.Resize(1, count, 0, cols - 1);
    desc.weights.Resize(1, count);
    desc.weights = 1.0f;
}

void ReadFrequencies(std::istream& in, xEMSDesc& desc)
{
    xDoc::GetLine(in);
    xDoc::GetLine(in);
    int32_t count = xDscText::ReadCount(in, 1);
    ResizeTable(desc, desc.frequencies, count, 1);
    xDoc::GetLine(in);
    bool weighted = desc.version > kLastWithoutWeights;
    xDscText::ReadRows(in, count, [&](int32_t offset) {
        xExtract::Float(in, *desc.frequencies.Element(1 + offset, 0));
        if (weighted)
            xExtract::Float(in, desc.weights[1 + offset]);
    });
    if (desc.version > kLastWithoutScaling) {
        xDoc::GetLine(in);
        xExtract::Float(in, desc.nominalAmplitude);
        xExtract::Float(in, desc.realAmplitude);
        xDoc::GetLine(in);
    }
    xDoc::GetLine(in);
}

void ReadTimeDomain(std::istream& in, xEMSDesc& desc)
{
    xDoc::GetLine(in);
    xDoc::GetLine(in);
    in >> desc.txWaveform;
    xDoc::GetLine(in);
    xDoc::GetLine(in);
    in >> desc.rxField;
    xDoc::GetLine(in);
    xDoc::GetLine(in);
    int32_t count = xDscText::ReadCount(in, 2);
    ResizeTable(desc, desc.windows, count, 2);
    xDoc::GetLine(in);
    bool weighted = desc.version > kLastWithoutWeights;
    xDscText::ReadRows(in, count, [&](int32_t offset) {
        float* row = desc.windows.Element(1 + offset, 0);
        xExtract::Float(in, row[0]);
        xExtract::Float(in, row[1]);
        if (weighted)
            xExtract::Float(in, desc.weights[1 + offset]);
    });
    xDoc::GetLine(in);
}

void WriteFrequencies(std::ostream& out, std::string& text, const xEMSDesc& desc)
{
    const FloatMatrix& table = desc.frequencies;
    text += kSeparator;
    text += "FREQUENCIES\n";
    xDscText::AppendInt(text, table.Rows());
    text += '\n';
    text += kSeparator;
    for (int r = table.RowLower(), offset = 0; r <= table.RowUpper(); ++r, ++offset) {
        float values[2];
        xDscText::RowCells(table, r, values, 1);
        values[1] = desc.WeightAt(offset);
        xDscText::AppendRow(text, values, 2, kFieldWidth, "");
        xDscText::FlushFull(out, text);
    }
    text += "AMPLITUDE SCALING\n";
    xDscText::AppendFloat(text, desc.nominalAmplitude);
    text += ' ';
    xDscText::AppendFloat(text, desc.realAmplitude);
    text += '\n';
    text += kSeparator;
}

void WriteWindows(std::ostream& out, std::string& text, const xEMSDesc& desc)
{
    const FloatMatrix& table = desc.windows;
    text += kSeparator;
    text += "RECEIVER SAMPLING\n";
    xDscText::AppendInt(text, table.Rows());
    text += "\n       START          END       WEIGHT\n";
    for (int r = table.RowLower(), offset = 0; r <= table.RowUpper(); ++r, ++offset) {
        float values[3];
        xDscText::RowCells(table, r, values, 2);
        values[2] = desc.WeightAt(offset);
        xDscText::AppendRow(text, values, 3, kFieldWidth, " ");
        xDscText::FlushFull(out, text);
    }
    text += kSeparator;
}

} // namespace

std::istream& operator>>(std::istream& in, xEMSDesc& desc)
{
    if (desc.IsFrequencyDomain())
        ReadFrequencies(in, desc);
    else
        ReadTimeDomain(in, desc);
    return in;
}

std::ostream& operator<<(std::ostream& out, const xEMSDesc& desc)
{
    std::string text;
    if (desc.IsFrequencyDomain()) {
        WriteFrequencies(out, text, desc);
    } else {
        out << kSeparator << "TRANSMITTER CURRENT WAVEFORM\n" << desc.txWaveform << kSeparator
            << "RECEIVER PRIMARY FIELD\n" << desc.rxField;
        WriteWindows(out, text, desc);
    }
    xDscText::Flush(out, text);
    return out;
}
