// Arbitrary bytes as a descriptor file: reading must end in a model or in a
// message, never in a crash, a leak or a read out of bounds. What was read is
// written back, so the writer sees every state a reader can leave behind.

#include "gui/xRecordingPlatform.h"
#include "model/xEMDesc.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace {

// Takes whatever the writer produces and keeps none of it: a file may declare
// millions of channels, and their text need not be held to be exercised.
class DiscardBuffer : public std::streambuf {
protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static xRecordingPlatform platform;
    platform.Clear();
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    xEMDesc desc;
    try {
        desc.ReadFrom(in);
        DiscardBuffer sink;
        std::ostream out(&sink);
        desc.WriteTo(out);
    } catch (const xFatalExitError&) {
        // A fatal message ends the program; here it just ends this input.
    }
    return 0;
}
