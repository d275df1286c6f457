#ifndef TOLVAD_FRAME_XSTREAMFORMAT_H
#define TOLVAD_FRAME_XSTREAMFORMAT_H

#include <iosfwd>
#include <string>

// Sets width, precision and notation of an output stream from a short format
// text: "<w>e<p>" scientific, "<w>f<p>" fixed, "<w>i", "<w>l", "<w>s" width and
// precision w; right-justified. When several forms occur, the later in that
// list wins. A text with none of them changes nothing. Always true.
bool SetStreamFormat(std::ostream& stream, const std::string& format);

#endif
