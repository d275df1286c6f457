#ifndef TOLVAD_WIDGETS_XNUMBERTEXT_H
#define TOLVAD_WIDGETS_XNUMBERTEXT_H

#include <cstdint>
#include <string>

// The conversions between typed text and numbers that every field and grid
// shares, always with "." as the decimal point. Typed numbers go through
// atol/atof rules: leading blanks are skipped, reading stops at the first
// character that doesn't fit, and a text that is no number reads 0. Long
// conversions saturate at the 32-bit limits. A number no float can hold
// ("1e39", "inf", "nan") can't be read at all.
class xNumberText {
public:
    // What the user is told when a typed number can't be read.
    static const char* const kBeyondFloatNote;

    static int32_t Atol(const std::string& text);
    // 0 for a number beyond a float; callers that store use ReadFloat.
    static float Atof(const std::string& text);
    // False, with value untouched, for a number beyond a float.
    static bool ReadFloat(const std::string& text, float& value);

    // Formats one number with a printf format that holds one conversion. An
    // integer conversion (d, i, u, x, with or without l) gets the value as a
    // long, a floating one (e, f, g and capitals) as a double; a format with no
    // usable conversion is taken for "%g".
    static std::string Format(const std::string& format, double value);
    static std::string FormatLong(const std::string& format, long value);

    // The widest text a field with this format shows: the lowest long for an
    // integer conversion, a negative number with a two-digit exponent for e
    // and g, and one in the millions for f, which grows with the number.
    static std::string WidestText(const std::string& format);

    // Without the blanks at both ends.
    static std::string Strip(const std::string& text);
};

#endif
