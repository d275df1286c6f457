#ifndef TOLVAD_TESTS_MODEL_XSTREAMTEXT_H
#define TOLVAD_TESTS_MODEL_XSTREAMTEXT_H

#include <istream>
#include <iterator>
#include <sstream>
#include <streambuf>
#include <string>

// Reads a string as a stream that can't seek, as a pipe can't.
class StringBuf : public std::streambuf {
public:
    explicit StringBuf(const std::string& text)
    {
        char* begin = const_cast<char*>(text.data());
        setg(begin, begin, begin + text.size());
    }
};

// What a reader left unread.
inline std::string RestOfStream(std::istream& in)
{
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The text a record's stream operator writes.
template <class Record>
std::string Written(const Record& record)
{
    std::ostringstream out;
    out << record;
    return out.str();
}

// The text with every occurrence of one piece replaced.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

#endif
