#ifndef TOLVAD_WIDGETS_XCLIPBOARDEXCHANGE_H
#define TOLVAD_WIDGETS_XCLIPBOARDEXCHANGE_H

#include <string>
#include <vector>

class FloatArray;
class FloatMatrix;

// Tables to and from other programs through the clipboard, as text: each
// number a blank and "%10.7e", each row ended by a newline. Reading takes any
// run of blanks, tabs and line ends as one separator, refuses every token that
// is no number, and takes at most 4500 numbers. Cards carry these operations.
class xClipboardExchange {
public:
    static constexpr int kMaxItems = 4500;

    virtual ~xClipboardExchange() = default;

    // True with the text when the clipboard holds text.
    bool GetClipboardText(std::string& text);
    bool PutClipboardText(const std::string& text);
    // Stores the numbers of the text from the array's lower bound on, at most
    // 4500 and no more than the array holds; returns the count, 0 after an
    // illegal token.
    int ParseClipboardNumbers(const std::string& text, FloatArray& numbers);
    // Fills the matrix from the clipboard, row by row, keeping its lower row
    // bound and its columns; the column count decides how the numbers are cut
    // into rows. False, with the matrix unchanged, when nothing fits.
    bool PasteTable(FloatMatrix& matrix);
    bool CopyTable(const FloatMatrix& matrix);

    // The clipboard text of a table.
    static std::string TableText(const FloatMatrix& matrix);
    // The lines of a text, split at newlines, as the clipboard viewer shows them.
    static std::vector<std::string> Lines(const std::string& text);
};

#endif
