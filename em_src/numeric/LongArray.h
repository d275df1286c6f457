#ifndef TOLVAD_NUMERIC_LONGARRAY_H
#define TOLVAD_NUMERIC_LONGARRAY_H

#include "numeric/xArrayBase.h"

#include <memory>
#include <ostream>

// A fixed-size array of 32-bit signed integers with free integer bounds; the
// sibling of FloatArray. Element access makes no bounds test. Integer
// arithmetic wraps at 32 bits.
class LongArray : public xArrayBase<LongArray, int32_t> {
public:
    static constexpr const char* kName = "LongArray";
    static constexpr int kAsciiWidth = 14;
    static constexpr const char* kAsciiEnd = "\r\n";
    static constexpr bool kCheckedAsciiRead = false;

    // One element, bounds 0 to 0.
    LongArray();
    explicit LongArray(int size);
    // Upper below lower is fatal; a single element (upper equal to lower) is fine.
    LongArray(int lower, int upper);
    LongArray(int32_t* data, int size);
    LongArray(int32_t* data, int lower, int upper);

    using xArrayBase::operator=;

    // A new copy on the heap.
    virtual std::unique_ptr<LongArray> Clone() const;

    void Resize(int size);
    // Upper must lie strictly above lower, so one element is refused here
    // although the constructor takes it.
    void Resize(int lower, int upper);

    // The square root of the sum of squares, truncated.
    int32_t Norm() const;

    void Print(std::ostream& out) const;
    // To the console, followed by a banner.
    void Dump() const;

    static bool ElementsEqual(int32_t a, int32_t b) { return a == b; }
    static int32_t Apply(Op op, int32_t a, int32_t b);
};

// Instantiated once, in LongArray.cpp.
extern template class xArrayBase<LongArray, int32_t>;

#endif
