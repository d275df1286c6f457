#ifndef TOLVAD_TESTS_NUMERIC_NUMERICTESTKIT_H
#define TOLVAD_TESTS_NUMERIC_NUMERICTESTKIT_H

#include "gui/xRecordingPlatform.h"

#include <initializer_list>
#include <sstream>
#include <string>

// The text of the fatal message that the action ends in, or "(no fatal)".
// Needs a recording platform in place.
template <class Action>
std::string FatalText(Action action)
{
    try {
        action();
    } catch (const xFatalExitError& fatal) {
        return fatal.what();
    }
    return "(no fatal)";
}

// An array of the given values whose first index is lower.
template <class Array, class T>
Array MakeArray(int lower, std::initializer_list<T> values)
{
    Array array(lower, lower + static_cast<int>(values.size()) - 1);
    int i = lower;
    for (T v : values)
        array[i++] = v;
    return array;
}

// Writes the table in binary with its bounds and reads it into a default one;
// byteCount receives how many bytes were written.
template <class Table>
Table BinaryRoundTrip(const Table& table, size_t& byteCount)
{
    std::stringstream bytes;
    table.WriteBinary(bytes, true);
    byteCount = bytes.str().size();
    Table back;
    back.ReadBinary(bytes, true);
    return back;
}

#endif
