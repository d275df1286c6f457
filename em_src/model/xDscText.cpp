#include "model/xDscText.h"

#include "frame/xDoc.h"
#include "numeric/FloatArray.h"
#include "numeric/xExtract.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <istream>

void xDscText::AppendField(std::string& line, const char* text, int length, int width)
{
    if (width > length)
        line.append(static_cast<size_t>(width - length), ' ');
    line.append(text, static_cast<size_t>(length));
}

void xDscText::AppendFloat(std::string& line, float value, int width)
{
    char buffer[48];
    double wide = value;
    int length;
    if (std::isfinite(wide)) {
        // Exactly what "%.6g" gives, without the cost of a format string.
        auto result = std::to_chars(buffer, buffer + sizeof buffer, wide,
                                    std::chars_format::general, 6);
        length = static_cast<int>(result.ptr - buffer);
    } else {
        length = std::snprintf(buffer, sizeof buffer, "%.6g", wide);
    }
    AppendField(line, buffer, length, width);
}

void xDscText::AppendInt(std::string& line, long value, int width)
{
    char buffer[24];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    AppendField(line, buffer, static_cast<int>(result.ptr - buffer), width);
}

void xDscText::AppendRow(std::string& line, const float* values, int count, int width,
                         const char* separator)
{
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            line += separator;
        AppendFloat(line, values[i], width);
    }
    line += '\n';
}

int32_t xDscText::ReadCount(std::istream& in, int32_t fallback)
{
    int32_t count = fallback;
    xExtract::Int(in, count);
    xDoc::GetLine(in);
    return count < 0 ? 0 : count;
}

bool xDscText::Failed(const std::istream& in)
{
    return in.fail();
}

void xDscText::SkipLine(std::istream& in)
{
    xDoc::GetLine(in);
}

float xDscText::Cell(const FloatArray& row, int c)
{
    long index = static_cast<long>(row.Lower()) + c;
    return index <= row.Upper() ? row[static_cast<int>(index)] : 0.0f;
}
