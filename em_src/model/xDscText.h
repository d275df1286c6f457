#ifndef TOLVAD_MODEL_XDSCTEXT_H
#define TOLVAD_MODEL_XDSCTEXT_H

#include <cstdint>
#include <iosfwd>
#include <string>

class FloatMatrix;

// What the record readers and writers of the .DSC text share: numbers as the
// stream's default format prints them (a float with six significant digits,
// "%.6g"; an integer in plain decimal), right-aligned and padded with blanks to
// a field width, a number longer than its field written whole; the count that
// heads a table; and the rows of a table. Writers build their text in a string
// and hand it to the stream in pieces, which keeps large tables quick to save
// without holding their text whole.
//
// Numbers are text of the C locale whatever the process's locale says, and a
// float that is no finite number is written as one that reads back: NaN as 0,
// an infinity as the largest float of its sign.
class xDscText {
public:
    static void AppendFloat(std::string& line, float value, int width = 0);
    static void AppendInt(std::string& line, long value, int width = 0);
    // An integer in a right-justified column of width, as the orientation
    // counts and the position tables have: one whose text fills or passes the
    // width gets a blank before it, so that neighbours never run together.
    static void AppendColumnInt(std::string& line, long value, int width);
    // Values each in a field of width, separator between them, LF at the end.
    static void AppendRow(std::string& line, const float* values, int count, int width,
                          const char* separator);

    // Puts text out to the stream and empties it; FlushFull only once it
    // holds a piece's worth, so that a writer can call it after every row.
    static void Flush(std::ostream& out, std::string& text);
    static void FlushFull(std::ostream& out, std::string& text);
    // What a writer reserves for its text.
    static constexpr size_t kWriteChunk = size_t(1) << 16;

    // The count of a table of cols columns, read as an integer with the rest
    // of its line skipped, and checked by CheckTableRows. A failed read gives
    // 0; a negative count gives 0, an empty table.
    static int32_t ReadCount(std::istream& in, int cols);

    // Checks a row count read from the file before its table is allocated. A
    // table too large for memory is left to the container, which refuses it
    // with its own message. Otherwise, where the stream can tell how much is
    // left, a count of many rows that the rest of the file can't hold, at two
    // bytes a row at least, ends the read at once, as a truncated table would
    // at its end: no memory or time is spent on rows that aren't there.
    static void CheckTableRows(std::istream& in, int64_t rows, int cols);

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

    // The first count cells of row r of table, from its first column; 0
    // where the table has fewer columns.
    static void RowCells(const FloatMatrix& table, int r, float* values, int count);

private:
    static void AppendField(std::string& line, const char* text, int length, int width);
    // The text of a float in buffer (at least 32 characters); its length.
    static int FloatText(char* buffer, float value);
    static bool Failed(const std::istream& in);
    static void SkipLine(std::istream& in);
    // Bytes between the read position and the end; -1 when the stream can't tell.
    static int64_t BytesLeft(std::istream& in);
};

#endif
