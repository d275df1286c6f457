#include "model/xEMWaveform.h"

#include "frame/xDoc.h"
#include "model/xDscText.h"
#include "model/xEMSHeader.h"
#include "numeric/xExtract.h"

#include <istream>
#include <ostream>

namespace {

const char kUndefined[] = "undefined";
const int kFieldWidth = 12;
const int kColumns = 3;

} // namespace

xEMWaveform::xEMWaveform() : table(1, kColumns)
{
    SetDefaults();
}

void xEMWaveform::SetDefaults()
{
    errorUnit = "ppm";
    kind = kUndefined;
    equivalentAmplitude = 1.0f;
    nominalAmplitude = 1.0f;
    amplitudeUnit = "amp";
    table.Resize(1, kColumns);
}

bool xEMWaveform::operator==(const xEMWaveform& other) const
{
    if (this == &other)
        return true;
    return kind == other.kind && equivalentAmplitude == other.equivalentAmplitude &&
           nominalAmplitude == other.nominalAmplitude && amplitudeUnit == other.amplitudeUnit &&
           errorUnit == other.errorUnit && table == other.table;
}

bool xEMWaveform::IsUndefined() const
{
    return kind == kUndefined;
}

bool xEMWaveform::Incomplete() const
{
    return IsUndefined() || table.Rows() < 3;
}

bool xEMWaveform::GetScaledTable(FloatMatrix& matrix) const
{
    if (IsUndefined() || static_cast<long>(table.Rows()) * table.Cols() == 1)
        return false;
    matrix = table;
    matrix.Transpose();
    float scale = equivalentAmplitude / nominalAmplitude;
    int amplitudeRow = matrix.RowLower() + 1;
    if (amplitudeRow <= matrix.RowUpper()) {
        FloatArray amplitudes = matrix.Row(amplitudeRow);
        for (int c = amplitudes.Lower(); c <= amplitudes.Upper(); ++c)
            amplitudes[c] = static_cast<float>(static_cast<double>(amplitudes[c]) * scale);
    }
    return true;
}

std::istream& operator>>(std::istream& in, xEMWaveform& waveform)
{
    waveform.kind = xDoc::GetLine(in);
    if (waveform.IsUndefined())
        return in;
    xDoc::GetLine(in);
    xExtract::Float(in, waveform.nominalAmplitude);
    xExtract::Float(in, waveform.equivalentAmplitude);
    waveform.amplitudeUnit = BracketUnit(xDoc::GetLine(in));
    int32_t rows = xDscText::ReadCount(in, kColumns);
    waveform.table.Resize(1, rows, 0, kColumns - 1);
    waveform.errorUnit = BracketUnit(xDoc::GetLine(in));
    FloatMatrix& table = waveform.table;
    xDscText::ReadRows(in, rows, [&](int32_t offset) {
        float* row = table.Element(1 + offset, 0);
        for (int c = 0; c < kColumns; ++c)
            xExtract::Float(in, row[c]);
    });
    return in;
}

std::ostream& operator<<(std::ostream& out, const xEMWaveform& waveform)
{
    std::string text = waveform.kind + "\n";
    if (!waveform.IsUndefined()) {
        text += "AMPLITUDE SCALING\n";
        xDscText::AppendFloat(text, waveform.nominalAmplitude);
        text += "  ";
        xDscText::AppendFloat(text, waveform.equivalentAmplitude);
        text += "   [" + waveform.amplitudeUnit + "]\n";
        const FloatMatrix& table = waveform.table;
        xDscText::AppendInt(text, table.Rows());
        // The unit in this line is always ppm, whatever errorUnit holds.
        text += "\n        TIME      CURRENT        ERROR  [ppm]\n";
        float values[kColumns];
        for (int r = table.RowLower(); r <= table.RowUpper(); ++r) {
            xDscText::RowCells(table, r, values, kColumns);
            xDscText::AppendRow(text, values, kColumns, kFieldWidth, " ");
            xDscText::FlushFull(out, text);
        }
    }
    xDscText::Flush(out, text);
    return out;
}
