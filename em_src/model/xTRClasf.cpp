#include "model/xTRClasf.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "model/xDscText.h"
#include "model/xTROrientation.h"
#include "numeric/xExtract.h"

#include <cstdio>

namespace {

constexpr int kFirstReal = kFirstOrientationCode + 1;

// The names line of both file forms: the nine real orientations, width 6.
const std::string& NamesLine()
{
    static const std::string line = [] {
        std::string text;
        char field[32];
        for (int code = kFirstReal; code <= kLastOrientationCode; ++code) {
            std::snprintf(field, sizeof field, "%6s", OrientationNames()[code - kFirstOrientationCode].c_str());
            text += field;
        }
        text += '\n';
        return text;
    }();
    return line;
}

void WriteCounts(std::ostream& out, const xTRClasf& clasf, int from)
{
    std::string line;
    for (int code = from; code <= kLastOrientationCode; ++code)
        xDscText::AppendColumnInt(line, clasf[code], 6);
    line += '\n';
    out.write(line.data(), static_cast<std::streamsize>(line.size()));
}

void ReadCounts(std::istream& in, xTRClasf& clasf, int from)
{
    xDoc::ReadLine(in, nullptr);
    for (int code = from; code <= kLastOrientationCode; ++code)
        xExtract::Int(in, clasf[code]);
    xDoc::ReadLine(in, nullptr);
}

} // namespace

xTRClasf::xTRClasf() : LongArray(kFirstOrientationCode, kLastOrientationCode), cursor(kFirstOrientationCode)
{
    LongArray::operator=(0);
    (*this)[kLastOrientationCode] = 1;
}

xTRClasf::xTRClasf(const LongArray& values)
    : LongArray(kFirstOrientationCode, kLastOrientationCode), cursor(kFirstOrientationCode)
{
    LongArray::operator=(0);
    if (values.Size() != kOrientationCodeCount)
        PostWarning("xTRClasf:: Attempt to initialize using incompatible array size.");
    // The table keeps its bounds whatever it is given, so no code can reach
    // past it later.
    const int count = values.Size() < kOrientationCodeCount ? values.Size() : kOrientationCodeCount;
    for (int i = 0; i < count; ++i)
        (*this)[kFirstOrientationCode + i] = values[values.Lower() + i];
}

xTRClasf::xTRClasf(const xTRClasf& other) : LongArray(other), cursor(other.cursor) {}

xTRClasf& xTRClasf::operator=(const xTRClasf& other)
{
    if (this != &other) {
        LongArray::operator=(other);
        cursor = other.cursor;
    }
    return *this;
}

xTRClasf& xTRClasf::operator=(int32_t value)
{
    LongArray::operator=(value);
    return *this;
}

int32_t xTRClasf::At(int code) const
{
    return InRange(code) ? (*this)[code] : 0;
}

bool xTRClasf::IsSet(int code) const
{
    return At(code) != 0;
}

bool xTRClasf::NextSet(int& code)
{
    while (cursor <= Upper()) {
        const int index = cursor++;
        if (Contains(index)) {
            code = index;
            return true;
        }
    }
    return false;
}

int xTRClasf::Count() const
{
    return Size() - LongArray::Count(0);
}

int16_t xTRClasf::HasComponent(int component, bool receiver) const
{
    if (component == 4)
        return static_cast<int16_t>(At(kFirstOrientationCode));
    if (component < 1 || component > 3) {
        PostWarning(receiver ? "xTRClasf::HasRxComponent()  Unknown component."
                             : "xTRClasf::HasTxComponent()  Unknown component.");
        return 0;
    }
    for (int other = 1; other <= 3; ++other)
        if (IsSet(receiver ? CodeFromComponents(other, component) : CodeFromComponents(component, other)))
            return 1;
    return 0;
}

bool xTRClasf::Contains(int code) const
{
    return static_cast<int16_t>(At(code)) != 0;
}

int xTRClasf::OtherSet(int code) const
{
    for (int other = kFirstReal; other <= kLastOrientationCode; ++other)
        if (other != code && IsSet(other))
            return other;
    return kFirstOrientationCode;
}

int xTRClasf::Ordinal(int code) const
{
    if (!IsSet(code))
        return -1;
    int below = 0;
    for (int other = kFirstReal; other < code; ++other)
        if (IsSet(other))
            ++below;
    return below;
}

std::vector<std::string> xTRClasf::SetNames() const
{
    std::vector<std::string> names;
    for (int code = kFirstReal; code <= kLastOrientationCode; ++code)
        if (IsSet(code))
            names.push_back(OrientationNames()[code - kFirstOrientationCode]);
    return names;
}

void xTRClasf::WriteAll(std::ostream& out) const
{
    out.write(NamesLine().data(), static_cast<std::streamsize>(NamesLine().size()));
    WriteCounts(out, *this, kFirstOrientationCode);
}

void xTRClasf::ReadAll(std::istream& in)
{
    ReadCounts(in, *this, kFirstOrientationCode);
}

std::ostream& operator<<(std::ostream& out, const xTRClasf& clasf)
{
    out.write(NamesLine().data(), static_cast<std::streamsize>(NamesLine().size()));
    WriteCounts(out, clasf, kFirstReal);
    return out;
}

std::istream& operator>>(std::istream& in, xTRClasf& clasf)
{
    ReadCounts(in, clasf, kFirstReal);
    return in;
}
