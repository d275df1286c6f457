// Arbitrary bytes as a descriptor file: reading must end in a model or in a
// message, never in a crash, a leak or a read out of bounds. What was read is
// written back, so the writer sees every state a reader can leave behind.

#include "gui/xRecordingPlatform.h"
#include "model/xEMDesc.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static xRecordingPlatform platform;
    platform.Clear();
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    xEMDesc desc;
    try {
        desc.ReadFrom(in);
        std::ostringstream out;
        desc.WriteTo(out);
    } catch (const xFatalExitError&) {
        // A fatal message ends the program; here it just ends this input.
    }
    return 0;
}
