#ifndef TOLVAD_NUMERIC_XEXTRACT_H
#define TOLVAD_NUMERIC_XEXTRACT_H

#include <cstdint>
#include <istream>

// Formatted extraction of one number from a text stream, as every reader of the
// system does it: white space (line ends included) is skipped, the number is
// taken, the stream stops behind it. Unlike the library's operator>>, a failed
// read leaves the target as it was; the stream is then failed and every later
// extraction fails too. Integers outside their type's range fail the stream.
// Both exponent forms ("1e+05", "1e+005") read alike.
class xExtract {
public:
    static bool Int(std::istream& in, int32_t& value);
    static bool Short(std::istream& in, int16_t& value);
    static bool Float(std::istream& in, float& value);
    static bool Double(std::istream& in, double& value);
};

#endif
