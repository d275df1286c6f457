#ifndef TOLVAD_MODEL_XDSCTEXT_H
#define TOLVAD_MODEL_XDSCTEXT_H

#include <cstdint>
#include <iosfwd>
#include <string>

class FloatArray;

// What the record readers and writers of the .DSC text share: numbers as the
// stream's default format prints them (a float with six significant digits,
// "%.6g"; an integer in plain decimal), right-aligned and padded with blanks to
// a field width, a number longer than its field written whole; the count that
// heads a table; and the rows of a table. Writers build their text in a string
// and put it out at once, which keeps large tables quick to save.
class xDscText {
public:
    static void AppendFloat(std::string& line, float value, int width = 0);
    static void AppendInt(std::string& line, long value, int width = 0);
    // Values each in a field of width, separator between them, LF at the end.
    static void AppendRow(std::string& line, const float* values, int count, int width,
                          const char* separator);

    // The count of a table, read as an integer with the rest of its line
    // skipped. A failed read keeps fallback; a negative count gives 0, an
    // empty table. Counts too large for memory are the containers' to refuse.
    static int32_t ReadCount(std::istream& in, int32_t fallback = 0);

    // Calls readRow(offset) for offsets 0 to count - 1, then skips the rest of
    // the last row's line. Reading stops once the stream has failed: every
    // further read would fail and leave its target alone anyway. An empty
    // table has no row whose line could be skipped, so nothing is, and a table
    // saved empty reads back.
    template <class ReadRow>
    static void ReadRows(std::istream& in, int32_t count, ReadRow readRow)
    {
        for (int32_t offset = 0; offset < count && !Failed(in); ++offset)
            readRow(offset);
        if (count > 0)
            SkipLine(in);
    }

    // Column c of a row, counted from the row's first column; 0 where the row
    // is too short.
    static float Cell(const FloatArray& row, int c);

private:
    static void AppendField(std::string& line, const char* text, int length, int width);
    static bool Failed(const std::istream& in);
    static void SkipLine(std::istream& in);
};

#endif
