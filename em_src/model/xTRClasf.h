#ifndef TOLVAD_MODEL_XTRCLASF_H
#define TOLVAD_MODEL_XTRCLASF_H

#include "numeric/LongArray.h"

#include <cstdint>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

// Which transmitter/receiver orientations a descriptor holds: a table indexed
// by orientation code, 100 to 109, whose value is the channel count of that
// orientation, 0 for an absent one. Element 100 (the undefined orientation)
// exists and is walked, but the file forms leave it out.
class xTRClasf : public LongArray {
public:
    // Names "TzRz" only.
    xTRClasf();
    // Takes the values of any array; one that is not ten long is warned about
    // and its leading values (at most ten) are taken from code 100 on.
    explicit xTRClasf(const LongArray& values);
    xTRClasf(const xTRClasf& other);
    xTRClasf& operator=(const xTRClasf& other);
    // Sets all ten elements.
    xTRClasf& operator=(int32_t value);

    using LongArray::Count;

    // The walk over the set orientations: Rewind, then NextSet until it
    // returns false. The walk does not rewind itself.
    void Rewind() { cursor = Lower(); }
    bool NextSet(int& code);

    // Number of non-zero elements, element 100 included.
    int Count() const;
    // 1 if an orientation with that receiver (transmitter) component is set;
    // component 4 gives the low 16 bits of element 100 as they are.
    int16_t HasRxComponent(int component) const { return HasComponent(component, true); }
    int16_t HasTxComponent(int component) const { return HasComponent(component, false); }
    // The low 16 bits of the count at a code, as a truth value. Only Contains
    // and the walk built on it truncate; every other query counts an
    // orientation as set when its count is non-zero, as Count does.
    bool Contains(int code) const;
    // The lowest set code in 101 to 109 other than code; 100 if none.
    int OtherSet(int code) const;
    // -1 if code is not set; else the number of set codes in 101 to 109 below it.
    int Ordinal(int code) const;
    // The names of the set codes 101 to 109, ascending.
    std::vector<std::string> SetNames() const;

    // Member form: the names line, then all ten counts from element 100 on.
    // It does not read the stream operators' form, nor they its.
    void WriteAll(std::ostream& out) const;
    void ReadAll(std::istream& in);

    int32_t cursor;

private:
    int32_t At(int code) const;
    bool IsSet(int code) const;
    int16_t HasComponent(int component, bool receiver) const;
};

// File form: the names line and the nine counts of 101 to 109.
std::ostream& operator<<(std::ostream& out, const xTRClasf& clasf);
std::istream& operator>>(std::istream& in, xTRClasf& clasf);

#endif
