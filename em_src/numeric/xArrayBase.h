#ifndef TOLVAD_NUMERIC_XARRAYBASE_H
#define TOLVAD_NUMERIC_XARRAYBASE_H

#include "gui/xPlatform.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iomanip>
#include <istream>
#include <ostream>
#include <type_traits>

// What FloatArray and LongArray have in common: a contiguous block of elements
// with free integer bounds, owned or borrowed, and the operations that read and
// write it the same way in both. Derived is the concrete class (its name
// prefixes the messages, its Resize rules apply, it is what SubArray returns);
// T is the element type. Derived supplies:
//   kName                    "FloatArray" or "LongArray"
//   kAsciiWidth, kAsciiEnd   field width and line end of WriteAscii
//   kCheckedAsciiRead        whether a failed ASCII read is fatal
//   ElementsEqual(a, b)      the comparison of SameValues
//   Apply(op, a, b)          one step of the element and scalar arithmetic
//   Resize(lower, upper)     with the class's own test of the bounds
template <class Derived, class T>
class xArrayBase {
public:
    enum class Op { kAdd, kSubtract, kMultiply, kDivide };

    // Larger tables count as failed allocations: no file of the system means them.
    static constexpr int64_t kMaxElements = int64_t(1) << 26;

    virtual ~xArrayBase() { Release(); }

    int32_t Size() const { return size; }
    int32_t Lower() const { return lower; }
    int32_t Upper() const { return upper; }
    bool Owns() const { return owns; }
    T* Data() { return data; }
    const T* Data() const { return data; }
    bool InRange(int i) const { return lower <= i && i <= upper; }

    // No bounds test: callers that need one ask InRange.
    T& operator[](int i) { return data[static_cast<int64_t>(i) - lower]; }
    const T& operator[](int i) const { return data[static_cast<int64_t>(i) - lower]; }

    xArrayBase& operator=(const xArrayBase& other)
    {
        if (this == &other)
            return *this;
        if (lower != other.lower || upper != other.upper)
            Self().Resize(other.lower, other.upper);
        CopyElements(data, other.data, std::min(size, other.size));
        return *this;
    }

    // Fill.
    Derived& operator=(T value)
    {
        std::fill(data, data + size, value);
        return Self();
    }

    bool SameSize(const Derived& other) const { return size == other.size; }
    bool SameBounds(const Derived& other) const
    {
        return lower == other.lower && upper == other.upper;
    }
    bool SameValues(const Derived& other) const
    {
        if (size != other.size)
            return false;
        for (int32_t i = 0; i < size; ++i)
            if (!Derived::ElementsEqual(data[i], other.data[i]))
                return false;
        return true;
    }
    bool operator==(const Derived& other) const { return SameBounds(other) && SameValues(other); }
    bool operator!=(const Derived& other) const { return !(*this == other); }

    T Min(const T* ignore = nullptr) const { return Extreme(false, ignore); }
    T Max(const T* ignore = nullptr) const { return Extreme(true, ignore); }
    T Range(const T* ignore = nullptr) const { return Subtract(Max(ignore), Min(ignore)); }

    T Sum() const { return Sum(lower, upper); }
    // from and to are indices within the bounds, both included; what lies
    // outside the bounds is left out.
    T Sum(int from, int to) const
    {
        T sum = 0;
        for (int64_t i = Offset(std::max(from, lower)); i <= Offset(std::min(to, upper)); ++i)
            sum = Add(sum, data[i]);
        return sum;
    }
    T SumAbs(int from, int to) const
    {
        T sum = 0;
        for (int64_t i = Offset(std::max(from, lower)); i <= Offset(std::min(to, upper)); ++i)
            sum = Add(sum, data[i] < 0 ? Subtract(0, data[i]) : data[i]);
        return sum;
    }

    // The index of the first equal element; 0 when there is none, even where 0
    // is itself a valid index.
    int IndexOf(T value) const
    {
        for (int32_t i = 0; i < size; ++i)
            if (data[i] == value)
                return lower + i;
        return 0;
    }
    int Count(T value) const
    {
        return static_cast<int>(std::count(data, data + size, value));
    }

    Derived SubArray(int from, int to) const
    {
        Derived part(from, to);
        for (int32_t i = 0; i < part.Size(); ++i) {
            int64_t index = static_cast<int64_t>(from) + i;
            if (index >= lower && index <= upper)
                part.data[i] = data[Offset(static_cast<int>(index))];
        }
        return part;
    }

    // Both indices are made offsets with this array's lower bound, the source
    // index too: a convenience for arrays of equal bounds. Only what lies
    // within both arrays is copied.
    void CopyBlock(const Derived& source, int sourceIndex, int destIndex, int count)
    {
        int64_t from = Offset(sourceIndex);
        int64_t to = Offset(destIndex);
        if (from < 0 || to < 0 || count <= 0)
            return;
        int64_t n = std::min<int64_t>({count, source.size - from, size - to});
        if (n > 0)
            std::memmove(data + to, source.data + from, static_cast<size_t>(n) * sizeof(T));
    }

    Derived& operator+=(const Derived& other) { return Combine(other, Op::kAdd, "sum"); }
    Derived& operator-=(const Derived& other) { return Combine(other, Op::kSubtract, "subtract"); }
    Derived& operator*=(const Derived& other) { return Combine(other, Op::kMultiply, "multiply"); }
    Derived& operator/=(const Derived& other) { return Combine(other, Op::kDivide, "divide"); }
    Derived& operator+=(T value) { return Scale(value, Op::kAdd); }
    Derived& operator-=(T value) { return Scale(value, Op::kSubtract); }
    Derived& operator*=(T value) { return Scale(value, Op::kMultiply); }
    Derived& operator/=(T value) { return Scale(value, Op::kDivide); }

    // Dot product.
    T operator*(const Derived& other) const
    {
        CheckBounds(other, "multiply");
        T sum = 0;
        for (int32_t i = 0; i < size; ++i)
            sum = Add(sum, Multiply(data[i], other.data[i]));
        return sum;
    }

    void ReadAscii(std::istream& in)
    {
        for (int32_t i = 0; i < size; ++i) {
            Extract(in, data[i]);
            if (Derived::kCheckedAsciiRead && in.fail())
                PostFatalExit("Error reading %s from ASCII filestream.", Derived::kName);
        }
    }
    void WriteAscii(std::ostream& out) const
    {
        for (int32_t i = 0; i < size; ++i) {
            out << std::setw(Derived::kAsciiWidth) << data[i];
            if (out.fail())
                PostFatalExit("Error writing %s to ASCII filestream.", Derived::kName);
        }
        out << Derived::kAsciiEnd;
    }

    // Bounds as two 4-byte integers, then the raw elements in machine order.
    void WriteBinary(std::ostream& out, bool withBounds) const
    {
        if (withBounds) {
            out.write(reinterpret_cast<const char*>(&lower), sizeof lower);
            out.write(reinterpret_cast<const char*>(&upper), sizeof upper);
        }
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size) * sizeof(T));
    }
    void ReadBinary(std::istream& in, bool withBounds)
    {
        if (withBounds) {
            int32_t newLower = lower, newUpper = upper;
            in.read(reinterpret_cast<char*>(&newLower), sizeof newLower);
            in.read(reinterpret_cast<char*>(&newUpper), sizeof newUpper);
            if (!in)
                return;   // nothing readable: the array stays as it was
            Self().Resize(newLower, newUpper);
        }
        in.read(reinterpret_cast<char*>(data), static_cast<std::streamsize>(size) * sizeof(T));
    }
    int32_t BinarySize(bool withBounds) const
    {
        return static_cast<int32_t>(sizeof(T)) * size + (withBounds ? 8 : 0);
    }

    // The minimum or maximum of count values reached through at(i), with the
    // ignored value skipped. The skip stops at lastIndex at the latest even if
    // more values follow; arrays pass their upper bound there, which is the
    // last offset only for a lower bound of 0, and this is kept.
    template <class At>
    static T Extreme(At at, int64_t count, int64_t lastIndex, bool wantMax, const T* ignore)
    {
        if (count <= 0)
            return ignore ? *ignore : T(0);
        int64_t i = 0;
        if (ignore)
            while (at(i) == *ignore && i < lastIndex && i < count - 1)
                ++i;
        T result = at(i);
        for (++i; i < count; ++i) {
            T value = at(i);
            if (ignore && value == *ignore)
                continue;
            if (wantMax ? value > result : value < result)
                result = value;
        }
        return result;
    }

    // One block of count elements, zeroed unless the caller fills it whole;
    // null when it can't or mustn't be had. A zeroed block comes from calloc,
    // which knows fresh pages are zero already: a large table that is never
    // written (the frequency-domain positions of a time-domain system) costs
    // no memory. FreeBlock gives a block back.
    static T* NewBlock(int64_t count, bool zeroed = true)
    {
        static_assert(std::is_trivial_v<T>, "blocks hold plain numbers");
        if (count < 0 || count > kMaxElements)
            return nullptr;
        const size_t elements = count > 0 ? static_cast<size_t>(count) : 1;
        return static_cast<T*>(zeroed ? std::calloc(elements, sizeof(T))
                                      : std::malloc(elements * sizeof(T)));
    }
    static void FreeBlock(T* block) { std::free(block); }

protected:
    xArrayBase() : xArrayBase(0, 0) {}
    explicit xArrayBase(int count) : xArrayBase(0, static_cast<int64_t>(count) - 1) {}
    xArrayBase(int64_t first, int64_t last) : lower(static_cast<int32_t>(first))
    {
        Allocate(first, last, kConstructorOutOfMemory);
    }
    // Wraps foreign data; the array never frees it.
    xArrayBase(T* foreign, int64_t first, int64_t last)
        : owns(false), data(foreign)
    {
        MakeEmpty(static_cast<int32_t>(first));
        if (last >= first) {
            size = static_cast<int32_t>(last - first + 1);
            upper = static_cast<int32_t>(last);
        }
    }
    // The copy fills the whole block, so it is not zeroed first.
    xArrayBase(const xArrayBase& other) : lower(other.lower)
    {
        Allocate(other.lower, other.upper, kConstructorOutOfMemory, false);
        CopyElements(data, other.data, size);
    }
    static constexpr const char* kConstructorOutOfMemory = "xArray: Out of memory!";

    // Takes over the block (owned or borrowed) and leaves other empty, so that
    // views can live in containers without being copied.
    xArrayBase(xArrayBase&& other) noexcept
        : size(other.size), lower(other.lower), upper(other.upper), owns(other.owns), data(other.data)
    {
        other.data = nullptr;
        other.owns = true;
        other.MakeEmpty(other.lower);
    }

    // An empty array at lower; the constructors with bounds start from it.
    struct Empty {};
    xArrayBase(Empty, int first) { MakeEmpty(first); }

    // No elements, starting at first where the bounds can say so.
    void MakeEmpty(int32_t first)
    {
        size = 0;
        lower = first > INT32_MIN ? first : 0;
        upper = lower - 1;
    }

    // Frees the block and allocates a new, zeroed one. Borrowed data is let go,
    // never freed; the new block belongs to the array.
    void ResizeBlock(int64_t first, int64_t last)
    {
        Release();
        std::string text = std::string("Out of memory, ") + Derived::kName + " allocation.";
        Allocate(first, last, text.c_str());
    }

    // Leaves the array empty at lower, so that it stays sound if the fatal
    // message unwinds instead of ending the process.
    void Allocate(int64_t first, int64_t last, const char* outOfMemory, bool zeroed = true)
    {
        int64_t count = last - first + 1;
        T* block = NewBlock(count, zeroed);
        lower = static_cast<int32_t>(first);
        if (!block) {
            MakeEmpty(lower);
            PostFatalExit("%s", outOfMemory);
        }
        data = block;
        owns = true;
        size = static_cast<int32_t>(count);
        upper = static_cast<int32_t>(last);
    }

    int64_t Offset(int i) const { return static_cast<int64_t>(i) - lower; }

    void CheckBounds(const Derived& other, const char* verb) const
    {
        if (!SameBounds(other))
            PostFatalExit("%s : Attempt to %s arrays of unequal size.", Derived::kName, verb);
    }

    static T Add(T a, T b) { return Wrap(static_cast<Wide>(a) + static_cast<Wide>(b)); }
    static T Subtract(T a, T b) { return Wrap(static_cast<Wide>(a) - static_cast<Wide>(b)); }
    static T Multiply(T a, T b) { return Wrap(static_cast<Wide>(a) * static_cast<Wide>(b)); }

    int32_t size = 0;
    int32_t lower = 0;
    int32_t upper = -1;
    bool owns = true;
    T* data = nullptr;

private:
    // Integers add like the 32-bit machine (wrapping, never undefined); floats
    // stay in float.
    using Wide = std::conditional_t<std::is_integral_v<T>, int64_t, T>;
    static T Wrap(Wide value)
    {
        if constexpr (std::is_integral_v<T>)
            return static_cast<T>(static_cast<uint32_t>(static_cast<uint64_t>(value)));
        else
            return value;
    }

    static void Extract(std::istream& in, float& value) { xExtract::Float(in, value); }
    static void Extract(std::istream& in, int32_t& value) { xExtract::Int(in, value); }

    static void CopyElements(T* to, const T* from, int32_t count)
    {
        if (count > 0)
            std::memcpy(to, from, static_cast<size_t>(count) * sizeof(T));
    }

    Derived& Self() { return static_cast<Derived&>(*this); }

    void Release()
    {
        if (owns)
            FreeBlock(data);
        data = nullptr;
        MakeEmpty(lower);
    }

    T Extreme(bool wantMax, const T* ignore) const
    {
        const T* values = data;
        return Extreme([values](int64_t i) { return values[i]; }, size, upper, wantMax, ignore);
    }

    Derived& Combine(const Derived& other, Op op, const char* verb)
    {
        CheckBounds(other, verb);
        for (int32_t i = 0; i < size; ++i)
            data[i] = Derived::Apply(op, data[i], other.data[i]);
        return Self();
    }
    Derived& Scale(T value, Op op)
    {
        for (int32_t i = 0; i < size; ++i)
            data[i] = Derived::Apply(op, data[i], value);
        return Self();
    }
};

#endif
