#ifndef TOLVAD_NUMERIC_FLOATARRAY_H
#define TOLVAD_NUMERIC_FLOATARRAY_H

#include "numeric/xArrayBase.h"

#include <istream>
#include <ostream>

// A fixed-size array of 32-bit floats with free integer bounds; new elements
// are zero. It may also wrap foreign data (the row views of a matrix) without
// owning it. Element access makes no bounds test.
class FloatArray : public xArrayBase<FloatArray, float> {
public:
    static constexpr const char* kName = "FloatArray";
    static constexpr int kAsciiWidth = 20;
    static constexpr const char* kAsciiEnd = "\n";
    static constexpr bool kCheckedAsciiRead = true;

    // One element, bounds 0 to 0.
    FloatArray();
    explicit FloatArray(int size);
    // Bounds out of order leave an empty array, with no message.
    FloatArray(int lower, int upper);
    FloatArray(float* data, int size);
    FloatArray(float* data, int lower, int upper);

    using xArrayBase::operator=;

    // Reallocates and zeroes; the bounds are taken as they come.
    void Resize(int size);
    void Resize(int lower, int upper);
    // Moves the bounds, keeping size and data.
    void SetLower(int lower);

    float Norm() const;
    // The offset (from the first element) of the element nearest to x in a
    // sorted array; a value beyond the end gives 0.
    int Nearest(float x) const;

    void Print(std::ostream& out) const;
    // To the console; the precision and fixed notation stay set.
    void Dump(int precision, int width) const;

    static bool ElementsEqual(float a, float b);
    static float Apply(Op op, float a, float b);
};

// Bounds in fields of width 10, then the values in fields of width 20.
std::ostream& operator<<(std::ostream& out, const FloatArray& array);
std::istream& operator>>(std::istream& in, FloatArray& array);

// Instantiated once, in FloatArray.cpp.
extern template class xArrayBase<FloatArray, float>;

#endif
