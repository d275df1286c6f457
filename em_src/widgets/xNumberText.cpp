#include "widgets/xNumberText.h"

#include "numeric/xCNumber.h"

#include <cctype>
#include <cmath>
#include <limits>

namespace {

enum class Conversion { None, Integer, Floating };

// Finds the one conversion of a printf format and rewrites it so that it can
// be handed the value safely: integers with "l", floats without a length.
Conversion Inspect(const std::string& format, std::string& safe, char* letter = nullptr)
{
    safe.clear();
    Conversion found = Conversion::None;
    for (size_t i = 0; i < format.size(); ++i) {
        char c = format[i];
        if (c != '%') {
            safe += c;
            continue;
        }
        if (i + 1 < format.size() && format[i + 1] == '%') {
            safe += "%%";
            ++i;
            continue;
        }
        if (found != Conversion::None)
            return Conversion::None;   // a second conversion: not ours
        std::string spec = "%";
        size_t j = i + 1;
        while (j < format.size() && std::string("-+ #0").find(format[j]) != std::string::npos)
            spec += format[j++];
        while (j < format.size() && std::isdigit(static_cast<unsigned char>(format[j])))
            spec += format[j++];
        if (j < format.size() && format[j] == '.') {
            spec += format[j++];
            while (j < format.size() && std::isdigit(static_cast<unsigned char>(format[j])))
                spec += format[j++];
        }
        while (j < format.size() && (format[j] == 'l' || format[j] == 'h' || format[j] == 'L'))
            ++j;
        if (j >= format.size())
            return Conversion::None;
        char kind = format[j];
        if (std::string("diuxXo").find(kind) != std::string::npos) {
            found = Conversion::Integer;
            spec += 'l';
        } else if (std::string("eEfFgG").find(kind) != std::string::npos) {
            found = Conversion::Floating;
        } else {
            return Conversion::None;
        }
        spec += kind;
        safe += spec;
        if (letter)
            *letter = kind;
        i = j;
    }
    return found;
}

std::string Printf(const std::string& format, Conversion kind, double value)
{
    if (kind != Conversion::Integer)
        return xCNumber::Printf(format.c_str(), value);
    long asLong = 0;
    if (std::isnan(value))
        asLong = 0;
    else if (value >= static_cast<double>(std::numeric_limits<long>::max()))
        asLong = std::numeric_limits<long>::max();
    else if (value <= static_cast<double>(std::numeric_limits<long>::min()))
        asLong = std::numeric_limits<long>::min();
    else
        asLong = static_cast<long>(value);
    return xCNumber::Printf(format.c_str(), asLong);
}

} // namespace

const char* const xNumberText::kBeyondFloatNote = "Value can't be converted to float.";

int32_t xNumberText::Atol(const std::string& text)
{
    return xCNumber::ReadLong(text.c_str());
}

float xNumberText::Atof(const std::string& text)
{
    float value = 0.0f;
    xCNumber::ReadFloat(text.c_str(), value);
    return value;
}

bool xNumberText::ReadFloat(const std::string& text, float& value)
{
    return xCNumber::ReadFloat(text.c_str(), value) != xCNumber::kBeyondFloat;
}

std::string xNumberText::Format(const std::string& format, double value)
{
    std::string safe;
    Conversion kind = Inspect(format, safe);
    if (kind == Conversion::None)
        return Printf("%g", Conversion::Floating, value);
    return Printf(safe, kind, value);
}

std::string xNumberText::FormatLong(const std::string& format, long value)
{
    std::string safe;
    Conversion kind = Inspect(format, safe);
    if (kind == Conversion::None)
        return Printf("%ld", Conversion::Integer, static_cast<double>(value));
    return Printf(safe, kind, static_cast<double>(value));
}

std::string xNumberText::WidestText(const std::string& format)
{
    std::string safe;
    char letter = 'g';
    Conversion kind = Inspect(format, safe, &letter);
    if (kind == Conversion::Integer)
        return FormatLong(format, std::numeric_limits<int32_t>::min());
    if (kind == Conversion::None) {
        safe = "%g";
        letter = 'g';
    }
    if (letter == 'f' || letter == 'F')
        return Printf(safe, Conversion::Floating, -8888888.8888888);
    std::string large = Printf(safe, Conversion::Floating, -8.8888888888e+38);
    std::string small = Printf(safe, Conversion::Floating, -8.8888888888e-38);
    return large.size() >= small.size() ? large : small;
}

std::string xNumberText::Strip(const std::string& text)
{
    size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return std::string();
    size_t last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}
