#include "numeric/LongArray.h"

#include <cmath>
#include <iostream>

namespace {
const char* const kBoundsOutOfOrder = "Specified LongArray bounds out of order.";
}

template class xArrayBase<LongArray, int32_t>;

LongArray::LongArray() = default;

LongArray::LongArray(int size) : xArrayBase(size) {}

LongArray::LongArray(int lower, int upper) : xArrayBase(Empty{}, lower)
{
    if (upper < lower)
        PostFatalExit("%s", kBoundsOutOfOrder);
    Allocate(lower, upper, kConstructorOutOfMemory);
}

LongArray::LongArray(int32_t* data, int size)
    : xArrayBase(data, 0, static_cast<int64_t>(size) - 1)
{
}

LongArray::LongArray(int32_t* data, int lower, int upper)
    : xArrayBase(data, static_cast<int64_t>(lower), static_cast<int64_t>(upper))
{
}

std::unique_ptr<LongArray> LongArray::Clone() const
{
    return std::make_unique<LongArray>(*this);
}

void LongArray::Resize(int newSize)
{
    ResizeBlock(0, static_cast<int64_t>(newSize) - 1);
}

void LongArray::Resize(int newLower, int newUpper)
{
    if (newUpper <= newLower)
        PostFatalExit("%s", kBoundsOutOfOrder);
    ResizeBlock(newLower, newUpper);
}

int32_t LongArray::Norm() const
{
    // Summed wide so that no square overflows; the root of any sum that fits
    // a table fits 32 bits.
    double squares = 0;
    for (int32_t i = 0; i < size; ++i)
        squares += static_cast<double>(data[i]) * data[i];
    double root = std::sqrt(squares);
    return root >= 2147483647.0 ? INT32_MAX : static_cast<int32_t>(root);
}

void LongArray::Print(std::ostream& out) const
{
    for (int32_t i = 0; i < size; ++i)
        out << ' ' << data[i];
    out << "\r\n";
}

void LongArray::Dump() const
{
    for (int32_t i = 0; i < size; ++i)
        std::cout << std::setw(14) << data[i];
    std::cout << "\r\n"
              << "-------------------------LongArray-------------------------"
              << "\r\n";
}

int32_t LongArray::Apply(Op op, int32_t a, int32_t b)
{
    switch (op) {
    case Op::kAdd: return Add(a, b);
    case Op::kSubtract: return Subtract(a, b);
    case Op::kMultiply: return Multiply(a, b);
    case Op::kDivide: break;
    }
    // The machine would trap here; the program ends with a message instead.
    if (b == 0)
        PostFatalExit("LongArray : Attempt to divide by zero.");
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<int64_t>(a) / b));
}
