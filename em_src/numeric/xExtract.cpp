#include "numeric/xExtract.h"

#include <limits>

namespace {

template <typename Narrow>
bool ExtractInteger(std::istream& in, Narrow& value)
{
    if (!in.good())
        return false;
    long long wide = 0;
    if (!(in >> wide))
        return false;
    if (wide < std::numeric_limits<Narrow>::min() || wide > std::numeric_limits<Narrow>::max()) {
        in.setstate(std::ios::failbit);
        return false;
    }
    value = static_cast<Narrow>(wide);
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
    if (!in.good())
        return false;
    double read = 0.0;
    if (!(in >> read))
        return false;
    value = read;
    return true;
}

bool xExtract::Float(std::istream& in, float& value)
{
    double read = 0.0;
    if (!Double(in, read))
        return false;
    value = static_cast<float>(read);
    return true;
}
