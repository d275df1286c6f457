#include "numeric/FloatArray.h"

#include <cmath>
#include <iostream>

template class xArrayBase<FloatArray, float>;

FloatArray::FloatArray() = default;

FloatArray::FloatArray(int size) : xArrayBase(size) {}

FloatArray::FloatArray(int lower, int upper) : xArrayBase(Empty{}, lower)
{
    if (upper >= lower)
        Allocate(lower, upper, kConstructorOutOfMemory);
}

FloatArray::FloatArray(float* data, int size)
    : xArrayBase(data, 0, static_cast<int64_t>(size) - 1)
{
}

FloatArray::FloatArray(float* data, int lower, int upper)
    : xArrayBase(data, static_cast<int64_t>(lower), static_cast<int64_t>(upper))
{
}

void FloatArray::Resize(int newSize)
{
    ResizeBlock(0, static_cast<int64_t>(newSize) - 1);
}

void FloatArray::Resize(int newLower, int newUpper)
{
    ResizeBlock(newLower, newUpper);
}

void FloatArray::SetLower(int newLower)
{
    lower = newLower;
    upper = static_cast<int32_t>(int64_t(size) + newLower - 1);
}

float FloatArray::Norm() const
{
    float squares = 0;
    for (int32_t i = 0; i < size; ++i)
        squares += data[i] * data[i];
    return std::pow(squares, 0.5f);
}

int FloatArray::Nearest(float x) const
{
    if (size < 1)
        return lower;
    if (size == 1)
        return 0;   // the only element; no direction to read
    bool descending = data[1] <= data[0];
    int i = 0;
    while (i < size && (descending ? !(data[i] <= x) : !(data[i] >= x)))
        ++i;
    if (i == size || i == 0)
        return 0;
    float before = std::fabs(x - data[i - 1]);
    float at = std::fabs(data[i] - x);
    return at >= before ? i - 1 : i;
}

void FloatArray::Print(std::ostream& out) const
{
    for (int32_t i = 0; i < size; ++i)
        out << std::setw(14) << data[i];
    out << '\n';
}

void FloatArray::Dump(int precision, int width) const
{
    std::cout << std::setprecision(precision) << std::fixed;
    for (int32_t i = 0; i < size; ++i)
        std::cout << std::setw(width) << data[i];
    std::cout << '\n';
}

bool FloatArray::ElementsEqual(float a, float b)
{
    float difference = std::fabs(a - b);
    float sum = std::fabs(a + b);
    return difference <= 5e-10 * static_cast<double>(sum);
}

float FloatArray::Apply(Op op, float a, float b)
{
    double x = a, y = b;
    switch (op) {
    case Op::kAdd: return static_cast<float>(x + y);
    case Op::kSubtract: return static_cast<float>(x - y);
    case Op::kMultiply: return static_cast<float>(x * y);
    case Op::kDivide: break;
    }
    return static_cast<float>(x / y);
}

std::ostream& operator<<(std::ostream& out, const FloatArray& array)
{
    out << std::setw(10) << array.Lower() << std::setw(10) << array.Upper() << '\n';
    for (int32_t i = 0; i < array.Size(); ++i)
        out << std::setw(20) << array.Data()[i];
    return out << '\n';
}

std::istream& operator>>(std::istream& in, FloatArray& array)
{
    int32_t lower = 0, upper = 0;
    if (!xExtract::Int(in, lower) || !xExtract::Int(in, upper))
        return in;   // no bounds: the array stays as it was
    array.Resize(lower, upper);
    for (int32_t i = 0; i < array.Size(); ++i)
        xExtract::Float(in, array.Data()[i]);
    return in;
}
