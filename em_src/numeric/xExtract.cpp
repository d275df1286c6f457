#include "numeric/xExtract.h"

#include "numeric/xCNumber.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <streambuf>
#include <string>

// The extraction reads the stream's buffer directly instead of going through
// the library's formatted input, which costs several times more per number. It
// accepts exactly what that input accepts in the classic locale: white space
// first, an optional sign, digits, for floats an optional point and an exponent
// with optional sign; it stops in front of the first character that can't go
// on, and a text that isn't a whole number fails.

namespace {

typedef std::char_traits<char> Traits;

bool IsSpace(int c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(int c)
{
    return c >= '0' && c <= '9';
}

// The characters of one number. Short numbers stay on the stack.
class NumberText {
public:
    void Add(char c)
    {
        if (length < sizeof(small)) {
            small[length++] = c;
            return;
        }
        if (large.empty())
            large.assign(small, length);
        large.push_back(c);
        ++length;
    }
    const char* Begin() const { return large.empty() ? small : large.data(); }
    const char* End() const { return Begin() + length; }
    size_t Length() const { return length; }
    // A nul-terminated copy for the C library.
    std::string Text() const { return std::string(Begin(), length); }

private:
    char small[64];
    size_t length = 0;
    std::string large;
};

// The get area of any stream buffer. Its pointers are protected members;
// pointers to them taken through a derived class may be applied to any buffer.
struct xGetArea : std::streambuf {
    static const char* Next(std::streambuf* buffer) { return (buffer->*(&xGetArea::gptr))(); }
    static const char* End(std::streambuf* buffer) { return (buffer->*(&xGetArea::egptr))(); }
    static void Skip(std::streambuf* buffer, const char* to)
    {
        (buffer->*(&xGetArea::gbump))(static_cast<int>(to - Next(buffer)));
    }
};

// Stands for the sentry of formatted input: a stream that isn't good fails;
// white space is skipped; the end of the input fails with eof.
std::streambuf* Start(std::istream& in)
{
    std::streambuf* buffer = in.rdbuf();
    if (!in.good() || !buffer) {
        in.setstate(std::ios::failbit);
        return nullptr;
    }
    const char* p = xGetArea::Next(buffer);
    const char* end = xGetArea::End(buffer);
    while (p != end && IsSpace(static_cast<unsigned char>(*p)))
        ++p;
    if (p != xGetArea::Next(buffer))
        xGetArea::Skip(buffer, p);
    for (;;) {
        Traits::int_type c = buffer->sgetc();
        if (Traits::eq_int_type(c, Traits::eof())) {
            in.setstate(std::ios::eofbit | std::ios::failbit);
            return nullptr;
        }
        if (!IsSpace(c))
            return buffer;
        buffer->sbumpc();
    }
}

// Takes the current character into text and moves on; false at the end of the
// input, which is then marked on the stream.
bool Take(std::istream& in, std::streambuf* buffer, NumberText& text, Traits::int_type& c)
{
    text.Add(Traits::to_char_type(c));
    c = buffer->snextc();
    if (Traits::eq_int_type(c, Traits::eof())) {
        in.setstate(std::ios::eofbit);
        return false;
    }
    return true;
}

bool ExtractWide(std::istream& in, long long& value)
{
    std::streambuf* buffer = Start(in);
    if (!buffer)
        return false;
    NumberText text;
    Traits::int_type c = buffer->sgetc();
    bool more = true;
    bool negative = false;
    if (c == '+' || c == '-') {
        negative = c == '-';
        c = buffer->snextc();
        if (Traits::eq_int_type(c, Traits::eof())) {
            in.setstate(std::ios::eofbit);
            more = false;
        }
    }
    while (more && IsDigit(c))
        more = Take(in, buffer, text, c);
    if (text.Length() == 0) {
        in.setstate(std::ios::failbit);
        return false;
    }
    unsigned long long magnitude = 0;
    auto result = std::from_chars(text.Begin(), text.End(), magnitude);
    const unsigned long long limit =
        static_cast<unsigned long long>(std::numeric_limits<long long>::max()) + (negative ? 1 : 0);
    if (result.ec != std::errc() || magnitude > limit) {
        in.setstate(std::ios::failbit);
        return false;
    }
    value = negative ? static_cast<long long>(0 - magnitude) : static_cast<long long>(magnitude);
    return true;
}

template <typename Narrow>
bool ExtractInteger(std::istream& in, Narrow& value)
{
    long long wide = 0;
    if (!ExtractWide(in, wide))
        return false;
    if (wide < std::numeric_limits<Narrow>::min() || wide > std::numeric_limits<Narrow>::max()) {
        in.setstate(std::ios::failbit);
        return false;
    }
    value = static_cast<Narrow>(wide);
    return true;
}

// The C library's conversion in the classic locale, whatever the process's
// locale is: for the rare text the fast conversion reports out of range.
double ClassicStrto(const std::string& text, double)
{
    return strtod_l(text.c_str(), nullptr, xCNumber::CLocale());
}

float ClassicStrto(const std::string& text, float)
{
    return strtof_l(text.c_str(), nullptr, xCNumber::CLocale());
}

// One floating-point number, converted straight to Real: a value beyond
// Real's range fails as it does in the library's own extraction, and no
// rounding through a wider type comes between.
template <typename Real>
bool ConvertReal(std::istream& in, const char* begin, const char* end, Real& value);

template <typename Real>
bool ExtractReal(std::istream& in, Real& value)
{
    // Most numbers stand whole in the buffer, behind a few blanks: they are
    // found and converted where they are, in one pass.
    std::streambuf* buffer = in.rdbuf();
    if (in.good() && buffer) {
        const char* first = xGetArea::Next(buffer);
        const char* end = xGetArea::End(buffer);
        while (first != end && IsSpace(static_cast<unsigned char>(*first)))
            ++first;
        const char* digits = first != end && *first == '+' ? first + 1 : first;
        const char* start = digits != end && *digits == '-' && first == digits ? digits + 1 : digits;
        if (start != end && (IsDigit(*start) || *start == '.')) {
            Real read = 0;
            auto result = std::from_chars(digits, end, read);
            // Taken as it stands when the number ends inside the buffer and
            // not on an exponent mark that the conversion left behind (as in
            // "1e+"); anything else goes the careful way below.
            if (result.ec == std::errc() && result.ptr != end && *result.ptr != 'e' && *result.ptr != 'E') {
                xGetArea::Skip(buffer, result.ptr);
                value = read;
                return true;
            }
        }
        if (first != xGetArea::Next(buffer))
            xGetArea::Skip(buffer, first);
    }
    buffer = Start(in);
    if (!buffer)
        return false;
    NumberText text;
    Traits::int_type c = buffer->sgetc();
    bool more = true;
    if (c == '+' || c == '-')
        more = Take(in, buffer, text, c);
    bool mantissa = false;
    bool point = false;
    while (more) {
        if (IsDigit(c)) {
            mantissa = true;
        } else if (c == '.' && !point) {
            point = true;
        } else if ((c == 'e' || c == 'E') && mantissa) {
            more = Take(in, buffer, text, c);
            if (more && (c == '+' || c == '-'))
                more = Take(in, buffer, text, c);
            while (more && IsDigit(c))
                more = Take(in, buffer, text, c);
            break;
        } else {
            break;
        }
        more = Take(in, buffer, text, c);
    }

    return ConvertReal(in, text.Begin(), text.End(), value);
}

template <typename Real>
bool ConvertReal(std::istream& in, const char* begin, const char* end, Real& value)
{
    bool negative = false;
    if (begin != end && (*begin == '+' || *begin == '-')) {
        negative = *begin == '-';
        ++begin;
    }
    Real read = 0;
    auto result = std::from_chars(begin, end, read);
    if (result.ec == std::errc::result_out_of_range && result.ptr == end) {
        // Too large fails; too small reads as the nearest value, as the library does.
        read = ClassicStrto(std::string(begin, end), Real());
        if (read == std::numeric_limits<Real>::infinity()) {
            in.setstate(std::ios::failbit);
            return false;
        }
    } else if (result.ec != std::errc() || result.ptr != end) {
        in.setstate(std::ios::failbit);
        return false;
    }
    value = negative ? -read : read;
    return true;
}

} // namespace

bool xExtract::Int(std::istream& in, int32_t& value)
{
    return ExtractInteger(in, value);
}

bool xExtract::Short(std::istream& in, int16_t& value)
{
    return ExtractInteger(in, value);
}

bool xExtract::Double(std::istream& in, double& value)
{
    return ExtractReal(in, value);
}

bool xExtract::Float(std::istream& in, float& value)
{
    return ExtractReal(in, value);
}
