#ifndef TOLVAD_TOOLS_XLINEPREFIXBUF_H
#define TOLVAD_TOOLS_XLINEPREFIXBUF_H

#include <streambuf>
#include <string>

// Passes text on to another buffer and puts a prefix in front of every line,
// so that in a batch each message of the reader says which file it is about.
// With an empty prefix the text passes unchanged.
class xLinePrefixBuf : public std::streambuf {
public:
    explicit xLinePrefixBuf(std::streambuf* target);

    // Takes effect at the start of the next line.
    void SetPrefix(const std::string& text) { prefix = text; }

protected:
    int_type overflow(int_type c) override;
    int sync() override;

private:
    std::streambuf* target;
    std::string prefix;
    bool lineStart = true;
};

#endif
