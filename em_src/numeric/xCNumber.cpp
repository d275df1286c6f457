#include "numeric/xCNumber.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

// Switches the calling thread to the C locale for the life of the object, so
// that the C library's printf family writes "." without touching the locale
// the rest of the process uses.
class CLocaleScope {
public:
    CLocaleScope() : previous(uselocale(xCNumber::CLocale())) {}
    ~CLocaleScope()
    {
        if (previous)
            uselocale(previous);
    }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    locale_t previous;
};

} // namespace

locale_t xCNumber::CLocale()
{
    static locale_t classic = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
    return classic;
}

std::string xCNumber::VPrintf(const char* format, va_list args)
{
    CLocaleScope scope;
    char small[128];
    va_list copy;
    va_copy(copy, args);
    int length = std::vsnprintf(small, sizeof small, format, copy);
    va_end(copy);
    if (length < 0)
        return std::string();
    if (static_cast<size_t>(length) < sizeof small)
        return std::string(small, static_cast<size_t>(length));
    std::vector<char> big(static_cast<size_t>(length) + 1);
    std::vsnprintf(big.data(), big.size(), format, args);
    return std::string(big.data(), static_cast<size_t>(length));
}

std::string xCNumber::Printf(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VPrintf(format, args);
    va_end(args);
    return text;
}

xCNumber::Reading xCNumber::ReadFloat(const char* text, float& value, const char** stop)
{
    char* end = nullptr;
    // Read in float, so that what only a double could hold comes out infinite.
    float read = strtof_l(text, &end, CLocale());
    if (stop)
        *stop = end;
    if (end == text) {
        value = 0.0f;
        return kNoNumber;
    }
    if (!std::isfinite(read))
        return kBeyondFloat;
    value = read;
    return kNumber;
}

float xCNumber::Finite(float value)
{
    if (std::isnan(value))
        return 0.0f;
    if (std::isinf(value))
        return value > 0 ? std::numeric_limits<float>::max() : -std::numeric_limits<float>::max();
    return value;
}

int32_t xCNumber::ReadLong(const char* text)
{
    long long value = strtoll_l(text, nullptr, 10, CLocale());
    if (value > std::numeric_limits<int32_t>::max())
        return std::numeric_limits<int32_t>::max();
    if (value < std::numeric_limits<int32_t>::min())
        return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}
