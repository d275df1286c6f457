#ifndef TOLVAD_NUMERIC_XCNUMBER_H
#define TOLVAD_NUMERIC_XCNUMBER_H

#include <cstdarg>
#include <cstdint>
#include <locale.h>
#include <string>

// Numbers as text in the C locale, whatever language the desktop speaks: the
// decimal point is always ".", so that what one user saves or copies another
// one reads back. Fields, grids, the clipboard, the settings file and the
// messages convert through here, never through the process's own locale.
class xCNumber {
public:
    // What reading a typed number found.
    enum Reading {
        kNumber,        // a number that fits a float
        kNoNumber,      // no number at the start: reads 0, as atof does
        kBeyondFloat    // a number no float holds ("1e39", "inf", "nan")
    };

    // printf in the C locale.
    static std::string Printf(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static std::string VPrintf(const char* format, va_list args);

    // Reads as atof does: blanks first, then as much of a number as there is;
    // stop, when given, is where the reading ended. A number beyond a float
    // leaves value as it was.
    static Reading ReadFloat(const char* text, float& value, const char** stop = nullptr);
    // As atol does, saturating at the 32-bit limits; a text with no number reads 0.
    static int32_t ReadLong(const char* text);

    // What a writer puts down for a value: no file or clipboard gets "inf" or
    // "nan", which nothing reads back; an infinity becomes the largest float
    // of its sign and a NaN 0.
    static float Finite(float value);

    // The C locale as an object, for the C library's *_l functions.
    static locale_t CLocale();
};

#endif
