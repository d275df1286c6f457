#include "tools/xLinePrefixBuf.h"

xLinePrefixBuf::xLinePrefixBuf(std::streambuf* target) : target(target) {}

xLinePrefixBuf::int_type xLinePrefixBuf::overflow(int_type c)
{
    if (traits_type::eq_int_type(c, traits_type::eof()))
        return traits_type::not_eof(c);
    if (lineStart && !prefix.empty()) {
        const std::streamsize size = static_cast<std::streamsize>(prefix.size());
        if (target->sputn(prefix.data(), size) != size)
            return traits_type::eof();
    }
    lineStart = traits_type::to_char_type(c) == '\n';
    return target->sputc(traits_type::to_char_type(c));
}

int xLinePrefixBuf::sync()
{
    return target->pubsync();
}
