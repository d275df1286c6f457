#include "tools/xDscTool.h"

#include "frame/xFileReplacer.h"
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
#include <sys/stat.h>
#include <vector>

namespace {

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

std::string SensorText(const xEMSensorType& sensor)
{
    return sensor.motion + " " + sensor.kind;
}

bool ParseFloat(const std::string& text, float& value)
{
    char* end = nullptr;
    errno = 0;
    value = std::strtof(text.c_str(), &end);
    return end != text.c_str() && *end == '\0' && errno == 0;
}

// The rank of a status among the others: the higher, the worse.
int Rank(int status)
{
    switch (status) {
    case xDscTool::kDone: return 0;
    case xDscTool::kIncomplete: return 1;
    case xDscTool::kFailed: return 2;
    default: return 3;
    }
}

} // namespace

const char xDscTool::kProgram[] = "tolvad-dsc";

xDscTool::xDscTool() : messages(std::cerr.rdbuf()), messageStream(&messages), platform(messageStream)
{
    SetPlatform(&platform);
    // A fatal message unwinds the work on its file; what that work made (a
    // temporary file, the descriptor) goes with it.
    platform.SetFatalHook([] { throw FatalInFile(); });
}

xDscTool::~xDscTool()
{
    SetPlatform(nullptr);
}

int xDscTool::Worse(int a, int b)
{
    return Rank(b) > Rank(a) ? b : a;
}

int xDscTool::Fail(const std::string& text)
{
    std::cerr << kProgram << ": " << text << '\n';
    return kFailed;
}

int xDscTool::OnFile(const std::string& prefix, const std::function<int()>& work, bool* fatal)
{
    messages.SetPrefix(prefix);
    int status = kDone;
    bool ended = false;
    try {
        status = work();
    } catch (const FatalInFile&) {
        status = kFatal;
        ended = true;
    }
    messages.SetPrefix(std::string());
    if (fatal)
        *fatal = ended;
    return status;
}

int xDscTool::ReadDescriptor(const std::string& path, xEMDesc& desc)
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
        return kFatal;
    }
    return kDone;
}

int xDscTool::WriteDescriptor(xEMDesc& desc, const std::string& path)
{
    // A fatal message while writing unwinds through the replacer, which then
    // removes its temporary file and leaves OUT as it was.
    xFileReplacer replacer(path);
    if (!replacer.Begin())
        return Fail("cannot write " + path + ": " + replacer.Reason());
    desc.WriteTo(replacer.Stream());
    if (!replacer.Commit())
        return Fail("cannot write " + path + ": " + replacer.Reason());
    return kDone;
}

int xDscTool::Upgrade(const std::string& in, const std::string& out, bool* refused)
{
    xEMDesc desc;
    const int status = ReadDescriptor(in, desc);
    if (refused)
        *refused = status == kFatal;
    if (status)
        return status;
    return WriteDescriptor(desc, out);
}

int xDscTool::New(const std::string& out)
{
    xEMDesc desc;
    return WriteDescriptor(desc, out);
}

int xDscTool::Info(const std::string& path)
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
    return kDone;
}

int xDscTool::Field(const std::string& path, const std::string& orientation, const std::string coords[3])
{
    float point[3];
    for (int i = 0; i < 3; ++i)
        if (!ParseFloat(coords[i], point[i]))
            return Fail("not a number: " + coords[i]);
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
        return kFatal;
    std::printf("%.7g %.7g %.7g\n", field[field.Lower()], field[field.Lower() + 1], field[field.Lower() + 2]);
    return kDone;
}
