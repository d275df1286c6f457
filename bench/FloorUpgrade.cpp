// The floor of a whole-process upgrade: a tiny program that reads IN, takes
// every number of it with std::from_chars line by line, and writes the text
// back to OUT with the numbers made again by std::to_chars. It knows nothing
// of descriptors, reads and writes in blocks and holds no more than a block
// of text; the benchmark runs it beside tolvad-dsc on the same file.

#include "xNumberFloor.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s IN OUT\n", argv[0]);
        return 1;
    }
    std::FILE* in = std::fopen(argv[1], "rb");
    std::FILE* out = std::fopen(argv[2], "wb");
    if (!in || !out)
        return 1;
    constexpr size_t kBlock = 1 << 16;
    std::vector<char> block(2 * kBlock);
    std::string text;
    text.reserve(2 * kBlock);
    auto onText = [&](const char* begin, const char* end) {
        text.append(begin, static_cast<size_t>(end - begin));
    };
    auto onNumber = [&](float value, int width, bool integer) {
        xNumberFloor::AppendNumber(text, value, width, integer);
    };
    auto onLineEnd = [&] { text += '\n'; };
    size_t kept = 0;
    for (;;) {
        const size_t read = std::fread(block.data() + kept, 1, kBlock, in);
        const size_t held = kept + read;
        // Whole lines now; the part of a line behind the last LF waits for
        // the next block, unless the file has ended.
        const char* begin = block.data();
        const char* lastEnd = static_cast<const char*>(::memrchr(begin, '\n', held));
        const char* end = read == 0 ? begin + held : lastEnd ? lastEnd + 1 : begin;
        xNumberFloor::SplitText(begin, end, onText, onNumber, onLineEnd);
        std::fwrite(text.data(), 1, text.size(), out);
        text.clear();
        kept = static_cast<size_t>(begin + held - end);
        std::memmove(block.data(), end, kept);
        if (read == 0)
            break;
        if (kept > kBlock)
            block.resize(kept + kBlock);
    }
    std::fclose(in);
    return std::fclose(out) == 0 ? 0 : 1;
}
