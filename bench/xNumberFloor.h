#ifndef TOLVAD_BENCH_XNUMBERFLOOR_H
#define TOLVAD_BENCH_XNUMBERFLOOR_H

// The floor a descriptor reader and writer are measured against: the fastest
// conversions the standard library has (std::from_chars, std::to_chars) over
// the numbers of a text, split into lines and at blanks as the text stands,
// with nothing else done. A piece of a line that from_chars takes whole is a
// number; its field is the number and the blanks before it. Written back
// with the same fields (an integer as an integer, any other number in general
// format with six digits, as the descriptor is), a text comes out as it was.

#include <charconv>
#include <cstring>
#include <string>

namespace xNumberFloor {

inline bool IsInteger(const char* begin, const char* end)
{
    for (const char* p = begin; p < end; ++p)
        if (*p == '.' || *p == 'e' || *p == 'E')
            return false;
    return true;
}

// Calls onText(begin, end) for the text between numbers and
// onNumber(value, width, integer) for each number of the line [begin, end).
template <class OnText, class OnNumber>
void SplitLine(const char* begin, const char* end, OnText onText, OnNumber onNumber)
{
    const char* p = begin;
    const char* text = begin;
    while (p < end) {
        const char* blanks = p;
        while (p < end && *p == ' ')
            ++p;
        const char* token = p;
        while (p < end && *p != ' ')
            ++p;
        if (token == p)
            break;
        float value = 0.0f;
        const std::from_chars_result read = std::from_chars(token, p, value);
        if (read.ec == std::errc() && read.ptr == p) {
            onText(text, blanks);
            onNumber(value, static_cast<int>(p - blanks), IsInteger(token, p));
            text = p;
        }
    }
    onText(text, end);
}

// Calls SplitLine for every line of [begin, end), and onLineEnd() behind each
// line that ends with LF.
template <class OnText, class OnNumber, class OnLineEnd>
void SplitText(const char* begin, const char* end, OnText onText, OnNumber onNumber,
               OnLineEnd onLineEnd)
{
    while (begin < end) {
        const char* lineEnd = static_cast<const char*>(std::memchr(begin, '\n', static_cast<size_t>(end - begin)));
        if (!lineEnd)
            lineEnd = end;
        SplitLine(begin, lineEnd, onText, onNumber);
        if (lineEnd == end)
            break;
        onLineEnd();
        begin = lineEnd + 1;
    }
}

inline void AppendNumber(std::string& out, float value, int width, bool integer)
{
    char digits[32];
    const std::to_chars_result written =
        integer ? std::to_chars(digits, digits + sizeof digits, static_cast<long>(value))
                : std::to_chars(digits, digits + sizeof digits, static_cast<double>(value),
                                std::chars_format::general, 6);
    const int length = static_cast<int>(written.ptr - digits);
    if (width > length)
        out.append(static_cast<size_t>(width - length), ' ');
    out.append(digits, static_cast<size_t>(length));
}

} // namespace xNumberFloor

#endif
