#include "model/xDscText.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "numeric/xExtract.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <istream>
#include <limits>
#include <ostream>

namespace {

// Tables up to this many rows read as they are, whatever follows them.
constexpr int64_t kRowsAlwaysRead = 65536;
// The least a row takes in the file: a digit and its line end.
constexpr int64_t kLeastRowBytes = 2;
// Room for the text of any float or long.
constexpr int kNumberText = 32;

} // namespace

void xDscText::AppendField(std::string& line, const char* text, int length, int width)
{
    if (width > length)
        line.append(static_cast<size_t>(width - length), ' ');
    line.append(text, static_cast<size_t>(length));
}

int xDscText::FloatText(char* buffer, float value)
{
    // "inf" and "nan" would not read back: the file keeps a number instead.
    if (std::isnan(value))
        value = 0.0f;
    else if (std::isinf(value))
        value = std::copysign(std::numeric_limits<float>::max(), value);
    // Exactly what "%.6g" gives in the C locale, without a format string and
    // whatever LC_NUMERIC says. Six digits round the largest float down, so
    // every number written reads back as a float.
    auto result = std::to_chars(buffer, buffer + kNumberText, static_cast<double>(value),
                                std::chars_format::general, 6);
    return static_cast<int>(result.ptr - buffer);
}

void xDscText::AppendFloat(std::string& line, float value, int width)
{
    char text[kNumberText];
    AppendField(line, text, FloatText(text, value), width);
}

void xDscText::AppendInt(std::string& line, long value, int width)
{
    char buffer[24];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    AppendField(line, buffer, static_cast<int>(result.ptr - buffer), width);
}

void xDscText::AppendColumnInt(std::string& line, long value, int width)
{
    char buffer[24];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    const int length = static_cast<int>(result.ptr - buffer);
    AppendField(line, buffer, length, length >= width ? length + 1 : width);
}

void xDscText::AppendRow(std::string& line, const float* values, int count, int width,
                         const char* separator)
{
    // A row is put together on the stack and handed over whole: the tables
    // are most of a descriptor's text.
    const size_t gap = std::strlen(separator);
    char row[256];
    size_t used = 0;
    for (int i = 0; i < count; ++i) {
        char text[kNumberText];
        const int length = FloatText(text, values[i]);
        const size_t lead = i > 0 ? gap : 0;
        const size_t pad = width > length ? static_cast<size_t>(width - length) : 0;
        if (used + lead + pad + static_cast<size_t>(length) + 1 > sizeof row) {
            line.append(row, used);
            used = 0;
            line.append(separator, lead);
            AppendField(line, text, length, width);
            continue;
        }
        std::memcpy(row + used, separator, lead);
        std::memset(row + used + lead, ' ', pad);
        std::memcpy(row + used + lead + pad, text, static_cast<size_t>(length));
        used += lead + pad + static_cast<size_t>(length);
    }
    row[used++] = '\n';
    line.append(row, used);
}

void xDscText::Flush(std::ostream& out, std::string& text)
{
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    text.clear();
}

void xDscText::FlushFull(std::ostream& out, std::string& text)
{
    if (text.size() >= kWriteChunk)
        Flush(out, text);
}

int32_t xDscText::ReadCount(std::istream& in, int cols)
{
    int32_t count = 0;
    xExtract::Int(in, count);
    xDoc::GetLine(in);
    if (count < 0)
        count = 0;
    CheckTableRows(in, count, cols);
    return count;
}

void xDscText::CheckTableRows(std::istream& in, int64_t rows, int cols)
{
    if (rows <= kRowsAlwaysRead || rows * cols > FloatArray::kMaxElements)
        return;
    const int64_t left = BytesLeft(in);
    if (left >= 0 && left < rows * kLeastRowBytes)
        PostFatalExit("xEMDesc::Read()  Error reading EM system descriptor.");
}

int64_t xDscText::BytesLeft(std::istream& in)
{
    // Asked of the buffer, so that the stream's state stays as it is; a
    // stream that can't seek (a pipe) can't tell.
    std::streambuf* buffer = in.rdbuf();
    if (!buffer || in.fail())
        return -1;
    const std::streampos here = buffer->pubseekoff(0, std::ios::cur, std::ios::in);
    if (here == std::streampos(-1))
        return -1;
    const std::streampos end = buffer->pubseekoff(0, std::ios::end, std::ios::in);
    buffer->pubseekpos(here, std::ios::in);
    if (end == std::streampos(-1))
        return -1;
    return static_cast<int64_t>(end - here);
}

bool xDscText::Failed(const std::istream& in)
{
    return in.fail();
}

void xDscText::SkipLine(std::istream& in)
{
    xDoc::GetLine(in);
}

void xDscText::RowCells(const FloatMatrix& table, int r, float* values, int count)
{
    const int cols = table.Cols();
    const float* row = table.Data() + (int64_t(r) - table.RowLower()) * cols;
    for (int c = 0; c < count; ++c)
        values[c] = c < cols ? row[c] : 0.0f;
}
