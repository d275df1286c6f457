#include "cards/xEMFSample.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <fstream>
#include <istream>
#include <streambuf>

namespace {

// The head of a file as a stream: it ends after a number of bytes, as if the
// file ended there.
class HeadBuf : public std::streambuf {
public:
    HeadBuf(std::streambuf& source, std::streamsize limit) : source(source), left(limit) {}

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
    char chunk[1 << 16];
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

// One line of at most kLineShown characters; the rest of a longer one is
// read and dropped. Returns what xDoc::ReadLine does: 0 at the end.
int ReadShownLine(std::istream& in, std::string& line)
{
    typedef std::char_traits<char> Traits;
    line.clear();
    std::streambuf* buffer = in.rdbuf();
    for (;;) {
        const Traits::int_type c = buffer->sbumpc();
        if (Traits::eq_int_type(c, Traits::eof()))
            return 0;
        if (c == '\n')
            return 2;
        if (c == '\r') {
            if (buffer->sgetc() == '\n') {
                buffer->sbumpc();
                return 1;
            }
            return 3;
        }
        if (line.size() < xEMFSample::kLineShown)
            line.push_back(Traits::to_char_type(c));
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
    std::istream in(&head);
    std::string line;
    while (static_cast<int>(lines.size()) < kHeadLines) {
        const int end = ReadShownLine(in, line);
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
