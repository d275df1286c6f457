#ifndef TOLVAD_CARDS_XEMFSAMPLE_H
#define TOLVAD_CARDS_XEMFSAMPLE_H

#include <ios>
#include <string>
#include <vector>

class FloatMatrix;

// A sample of a survey's ASCII data: the lines at the head of the file that
// the user looks at, and its first two records read as a stream of numbers.
// Only the head of a file is ever read: a file of millions of lines, or one
// that is no text at all and has no line ends, costs no more than its first
// few megabytes.
class xEMFSample {
public:
    // Lines shown from the head of the file.
    static constexpr int kHeadLines = 50;
    // A shown line longer than this is cut; the rest of it is skipped.
    static constexpr size_t kLineShown = 65536;
    // Bytes read at most for the lines shown, and for a parse (the comment
    // lines and two records).
    static constexpr std::streamsize kHeadBytes = std::streamsize(4) << 20;
    static constexpr std::streamsize kParseBytes = std::streamsize(64) << 20;

    // Up to 50 lines of the file's head, fewer at its end, as they can be
    // shown: control characters other than the tab stand as '.'. False, with
    // no lines, when the file can't be opened.
    static bool ReadHead(const std::string& path, std::vector<std::string>& lines);

    // records becomes 2 rows by items columns (bounds from 0), all zero. The
    // first commentLines lines are dropped (fewer at the end of the file),
    // then numbers are read into row 0, then row 1, whatever the line ends:
    // the first field that is no number ends the reading and leaves the rest
    // as it is. False when the file can't be opened.
    static bool Parse(const std::string& path, int commentLines, int items, FloatMatrix& records);
};

#endif
