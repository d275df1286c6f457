#ifndef TOLVAD_WIDGETS_XNUMBERTEXT_H
#define TOLVAD_WIDGETS_XNUMBERTEXT_H

#include <cstdint>
#include <string>

// The conversions between typed text and numbers that every field and grid
// shares. Typed numbers go through atol/atof rules: leading blanks are skipped,
// reading stops at the first character that doesn't fit, and a text that is no
// number reads 0. Long conversions saturate at the 32-bit limits.
class xNumberText {
public:
    static int32_t Atol(const std::string& text);
    static float Atof(const std::string& text);

    // Formats one number with a printf format that holds one conversion. An
    // integer conversion (d, i, u, x, with or without l) gets the value as a
    // long, a floating one (e, f, g and capitals) as a double; a format with no
    // usable conversion is taken for "%g".
    static std::string Format(const std::string& format, double value);
    static std::string FormatLong(const std::string& format, long value);

    // Without the blanks at both ends.
    static std::string Strip(const std::string& text);
};

#endif
