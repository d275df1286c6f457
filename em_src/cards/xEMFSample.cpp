#include "cards/xEMFSample.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <istream>
#include <streambuf>

namespace {

// The head of a file as a stream: it ends after a number of bytes, as if the
// file ended there.
class HeadBuf : public std::streambuf {
public:
    HeadBuf(std::streambuf& source, std::streamsize limit) : source(source), left(limit) {}

    // One line of at most kLineShown characters, taken a piece of the buffer
    // at a time; the rest of a longer one is read and dropped. Returns what
    // xDoc::ReadLine does: 0 at the end, else the kind of line end.
    int ReadShownLine(std::string& line)
    {
        line.clear();
        for (;;) {
            if (gptr() == egptr() && traits_type::eq_int_type(underflow(), traits_type::eof()))
                return 0;
            const char* from = gptr();
            const size_t size = static_cast<size_t>(egptr() - from);
            const char* newline = static_cast<const char*>(std::memchr(from, '\n', size));
            const char* end = newline ? newline : egptr();
            if (const void* cr = std::memchr(from, '\r', static_cast<size_t>(end - from)))
                end = static_cast<const char*>(cr);
            const size_t room = xEMFSample::kLineShown - std::min(line.size(), xEMFSample::kLineShown);
            line.append(from, std::min(static_cast<size_t>(end - from), room));
            setg(eback(), const_cast<char*>(end), egptr());
            if (end == egptr())
                continue;
            const char c = *end;
            gbump(1);
            if (c == '\n')
                return 2;
            if (sgetc() == '\n') {
                gbump(1);
                return 1;
            }
            return 3;
        }
    }

protected:
    int_type underflow() override
    {
        if (gptr() < egptr())
            return traits_type::to_int_type(*gptr());
        if (left <= 0)
            return traits_type::eof();
        const std::streamsize got = source.sgetn(chunk, std::min<std::streamsize>(left, sizeof chunk));
        if (got <= 0)
            return traits_type::eof();
        left -= got;
        setg(chunk, chunk, chunk + got);
        return traits_type::to_int_type(*gptr());
    }

private:
    std::streambuf& source;
    std::streamsize left;
    char chunk[1 << 13];
};

// What a line shows: no control characters but the tab.
void MakeShowable(std::string& line)
{
    for (char& c : line) {
        const unsigned char u = static_cast<unsigned char>(c);
        if ((u < 0x20 && c != '\t') || u == 0x7F)
            c = '.';
    }
}

// Only a plain file is read: a pipe or a device would never end.
bool Open(const std::string& path, std::filebuf& file)
{
    xFileStatus status;
    if (!Platform().StatFile(path, status) || !status.regular)
        return false;
    return file.open(path, std::ios::in | std::ios::binary) != nullptr;
}

} // namespace

bool xEMFSample::ReadHead(const std::string& path, std::vector<std::string>& lines)
{
    lines.clear();
    std::filebuf file;
    if (!Open(path, file))
        return false;
    HeadBuf head(file, kHeadBytes);
    std::string line;
    while (static_cast<int>(lines.size()) < kHeadLines) {
        const int end = head.ReadShownLine(line);
        // The end of the file after a line end begins no further line.
        if (end == 0 && line.empty())
            break;
        MakeShowable(line);
        lines.push_back(line);
        if (end == 0)
            break;
    }
    return true;
}

bool xEMFSample::Parse(const std::string& path, int commentLines, int items, FloatMatrix& records)
{
    const int columns = std::max(items, 0);
    records.Resize(2, columns);
    records.Fill(nullptr);
    std::filebuf file;
    if (!Open(path, file))
        return false;
    HeadBuf head(file, kParseBytes);
    std::istream in(&head);
    for (int i = 0; i < commentLines; ++i)
        if (xDoc::ReadLine(in, nullptr) == 0)
            break;
    float* values = records.Data();
    for (int k = 0; k < 2 * columns; ++k)
        if (!xExtract::Float(in, values[k]))
            break;
    return true;
}
