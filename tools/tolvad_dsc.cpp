// tolvad-dsc: descriptors without a screen, for scripts and batch work on
// archives of old files. Messages of the model go to standard error, one line
// each; a fatal one ends the program with status 2 and leaves no half-written
// file behind. A file that is no descriptor is never written over: in a batch
// over an archive, a stray text file must not turn into a blank descriptor.

#include "app/xEdit2App.h"
#include "frame/xFileReplacer.h"
#include "gui/xHeadlessPlatform.h"
#include "model/xEMDesc.h"
#include "model/xTRClasf.h"
#include "numeric/FloatArray.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

const char kProgram[] = "tolvad-dsc";

const char kUsage[] =
    "usage: tolvad-dsc COMMAND ARGUMENTS\n"
    "\n"
    "  upgrade IN OUT            read IN (file version 5, 7, 8 or 9) and write it to OUT\n"
    "                            as version 9\n"
    "  new OUT                   write a new descriptor (one orientation, TzRz) to OUT\n"
    "  info IN                   summarise IN: version, system, domain, orientations\n"
    "  field IN ORIENTATION X Y Z\n"
    "                            the primary field of the transmitter of ORIENTATION\n"
    "                            (TxRx ... TzRz) at the point X Y Z in metres\n"
    "  --help                    this text\n"
    "  --version                 program and file format versions\n"
    "\n"
    "Messages of the descriptor go to standard error as \"note:\", \"warning:\",\n"
    "\"error:\" or \"fatal:\" lines. Exit status: 0 done, 1 a file could not be read or\n"
    "written or the command line is wrong, 2 IN is no descriptor that can be read\n"
    "(its first line is not \"FILE FORMAT VERSION\", no version number follows, or\n"
    "it is version 6), a fatal error in the descriptor or an unsupported\n"
    "transmitter. OUT is written only with status 0; otherwise it stays as it was.\n";

int Usage()
{
    std::cerr << kUsage;
    return 1;
}

int Fail(const std::string& text)
{
    std::cerr << kProgram << ": " << text << '\n';
    return 1;
}

// Opens IN for reading; false (with the reason) when it is missing or unreadable.
bool OpenInput(const std::string& path, std::ifstream& in, std::string& reason)
{
    struct stat st;
    if (::stat(path.c_str(), &st) != 0) {
        reason = std::strerror(errno);
        return false;
    }
    if (!S_ISREG(st.st_mode)) {
        reason = "not a regular file";
        return false;
    }
    in.open(path, std::ios::in | std::ios::binary);
    if (!in.is_open()) {
        reason = std::strerror(errno);
        return false;
    }
    return true;
}

// Why the descriptor just read from path is none the tool may take as one;
// empty when it is. The reader has gone on and shown its own messages.
std::string Refusal(const xEMDesc& desc, const std::string& path)
{
    if (!desc.HasVersionLabel())
        return path + " is not a descriptor: its first line is not \"FILE FORMAT VERSION\"";
    if (!desc.HasVersionNumber())
        return path + " is not a descriptor: no version number follows \"FILE FORMAT VERSION\"";
    if (desc.FileVersion() == 6)
        return path + " is a descriptor of version 6, which is not supported";
    return std::string();
}

// Reads IN into the descriptor. Status 1 after a plain message when it can't
// be opened, 2 after an error when it is no descriptor, else 0.
int ReadDescriptor(const std::string& path, xEMDesc& desc)
{
    std::ifstream in;
    std::string reason;
    if (!OpenInput(path, in, reason))
        return Fail("cannot read " + path + ": " + reason);
    desc.ReadFrom(in);
    if (in.bad())
        return Fail("cannot read " + path + ": read error");
    const std::string refusal = Refusal(desc, path);
    if (!refusal.empty()) {
        PostError("%s", refusal.c_str());
        return 2;
    }
    return 0;
}

// Replaces OUT whole with the descriptor, so that OUT is either the complete
// new file or untouched; a link OUT is written through, and mode, owner and
// group stay.
int WriteDescriptor(xHeadlessPlatform& platform, xEMDesc& desc, const std::string& path)
{
    xFileReplacer replacer(path);
    if (!replacer.Begin())
        return Fail("cannot write " + path + ": " + replacer.Reason());
    platform.SetFatalHook([&replacer] { replacer.Abandon(); });
    desc.WriteTo(replacer.Stream());
    platform.SetFatalHook(nullptr);
    if (!replacer.Commit())
        return Fail("cannot write " + path + ": " + replacer.Reason());
    return 0;
}

std::string SensorText(const xEMSensorType& sensor)
{
    return sensor.motion + " " + sensor.kind;
}

int Info(const std::string& path)
{
    xEMDesc desc;
    if (int status = ReadDescriptor(path, desc))
        return status;
    const bool frequencyDomain = desc.header->IsFrequencyDomain();
    std::cout << "File:          " << path << '\n'
              << "Version read:  " << desc.FileVersion() << '\n'
              << "System name:   " << desc.header->systemName << '\n'
              << "Domain:        " << (frequencyDomain ? "frequency" : "time") << '\n'
              << "Time unit:     " << desc.header->timeUnit << '\n'
              << "Orientations:  " << desc.items.size() << '\n';
    // Ascending code order, as the file holds them.
    std::vector<const xEMDescItem*> ordered;
    for (const auto& entry : desc.items)
        ordered.push_back(entry.second.get());
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const xEMDescItem* a, const xEMDescItem* b) { return a->code < b->code; });
    for (const xEMDescItem* item : ordered) {
        char line[64];
        std::snprintf(line, sizeof line, "  %-4s %5d %-12s", CodeName(item->code).c_str(),
                      static_cast<int>(item->system.Channels()),
                      frequencyDomain ? "frequencies" : "channels");
        std::cout << line << "  Tx " << SensorText(item->geometry.tx) << ", Rx "
                  << SensorText(item->geometry.rx) << '\n';
    }
    return 0;
}

bool ParseFloat(const char* text, float& value)
{
    char* end = nullptr;
    errno = 0;
    value = std::strtof(text, &end);
    return end != text && *end == '\0' && errno == 0;
}

int Field(const std::string& path, const std::string& orientation, const char* const coords[3])
{
    float point[3];
    for (int i = 0; i < 3; ++i)
        if (!ParseFloat(coords[i], point[i]))
            return Fail(std::string("not a number: ") + coords[i]);
    const int32_t code = NameToCode(orientation);
    if (code == 100)
        return Fail("unknown orientation " + orientation + " (TxRx ... TzRz)");
    xEMDesc desc;
    if (int status = ReadDescriptor(path, desc))
        return status;
    if (!desc.SetCurrent(code))
        return Fail(path + " has no orientation " + orientation);
    FloatArray field(3);
    if (!desc.TxFieldAt(code, point[0], point[1], point[2], field))
        return 2;
    std::printf("%.7g %.7g %.7g\n", field[field.Lower()], field[field.Lower() + 1],
                field[field.Lower() + 2]);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    xHeadlessPlatform platform;
    SetPlatform(&platform);
    // Interrupted while writing: the temporary file beside OUT goes too.
    xFileReplacer::RemoveTemporariesOnSignals();
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty())
        return Usage();
    const std::string& command = args[0];

    if (command == "--help" || command == "-h") {
        std::cout << kUsage;
        return 0;
    }
    if (command == "--version") {
        std::cout << kProgram << ": " << xEdit2App::AboutText() << '\n';
        return 0;
    }
    if (command == "upgrade" && args.size() == 3) {
        xEMDesc desc;
        if (int status = ReadDescriptor(args[1], desc))
            return status;
        return WriteDescriptor(platform, desc, args[2]);
    }
    if (command == "new" && args.size() == 2) {
        xEMDesc desc;
        return WriteDescriptor(platform, desc, args[1]);
    }
    if (command == "info" && args.size() == 2)
        return Info(args[1]);
    if (command == "field" && args.size() == 6) {
        const char* coords[3] = {argv[4], argv[5], argv[6]};
        return Field(args[1], args[2], coords);
    }
    return Usage();
}
