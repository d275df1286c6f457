#include "model/xEMDesc.h"

#include "gui/xPlatform.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <cctype>
#include <istream>
#include <ostream>
#include <string>

namespace {

const char kSeparator[] = "_________________________________________________________";
const char kBannerBorder[] = "                         ++++++++";

// Case-blind search for a word anywhere in a text.
bool ContainsBlind(const std::string& text, const std::string& word)
{
    auto lower = [](unsigned char c) { return std::tolower(c); };
    auto found = std::search(text.begin(), text.end(), word.begin(), word.end(),
                             [&](char a, char b) { return lower(a) == lower(b); });
    return found != text.end();
}

// Puts a caller's stream in place of the document's for the time of one read
// or write, also when a fatal error unwinds through it.
template <typename Stream>
class StreamSwap {
public:
    StreamSwap(Stream*& slot, Stream& stream) : slot(slot), saved(slot) { slot = &stream; }
    ~StreamSwap() { slot = saved; }
    StreamSwap(const StreamSwap&) = delete;
    StreamSwap& operator=(const StreamSwap&) = delete;

private:
    Stream*& slot;
    Stream* saved;
};

// The first set code of a table in ascending order; 100 when none is set.
int32_t FirstSet(xTRClasf clasf)
{
    int code = 100;
    clasf.Rewind();
    clasf.NextSet(code);
    return code;
}

// Whether a first line begins with the label of a descriptor, after blanks.
bool IsVersionLabel(const std::string& line)
{
    static const std::string label = "FILE FORMAT VERSION";
    const size_t start = line.find_first_not_of(" \t");
    return start != std::string::npos && line.compare(start, label.size(), label) == 0;
}

// Whether nothing but the end is left to read; the stream's state stays as it was.
bool AtEndOfInput(std::istream& in)
{
    const std::ios::iostate state = in.rdstate();
    const bool atEnd = in.peek() == std::char_traits<char>::eof();
    in.clear(state);
    return atEnd;
}

} // namespace

xEMDesc::xEMDesc(xCommandTarget* boss, long id)
    : xDoc(boss, id), header(std::make_unique<xEMSHeader>()), format(std::make_unique<xEMFDesc>(1))
{
    MakeScratch();
    current = 109;
    auto item = std::make_unique<xEMDescItem>(*scratchSystem, *scratchGeometry, 109);
    item->system.SetHeader(header.get());
    xEMDescItem& entered = *(items[CodeName(109)] = std::move(item));
    DropScratch();
    PointInto(entered);
    SetFileName("untitled.DSC");
    SetFileType("DSC");
    fileKind = 0;
}

xEMDesc::~xEMDesc()
{
    system = nullptr;
    geometry = nullptr;
}

xEMDesc& xEMDesc::operator=(const xEMDesc& other)
{
    if (this == &other)
        return *this;
    *header = *other.header;
    *format = *other.format;
    if (geometry && other.geometry)
        *geometry = *other.geometry;
    if (system && other.system) {
        *system = *other.system;
        // The copy came with the other descriptor's header; ours is the one to ask.
        system->SetHeader(header.get());
    }
    systemKind = other.systemKind;
    return *this;
}

bool xEMDesc::PointsIntoItem() const
{
    if (!system)
        return false;
    for (const auto& entry : items)
        if (&entry.second->system == system)
            return true;
    return false;
}

void xEMDesc::ClearItems()
{
    if (PointsIntoItem()) {
        system = nullptr;
        geometry = nullptr;
    }
    items.clear();
}

void xEMDesc::MakeScratch()
{
    scratchGeometry = std::make_unique<xEMGDesc>();
    scratchSystem = std::make_unique<xEMSDesc>();
    scratchSystem->SetHeader(header.get());
    geometry = scratchGeometry.get();
    system = scratchSystem.get();
}

void xEMDesc::DropScratch()
{
    if (system == scratchSystem.get())
        system = nullptr;
    if (geometry == scratchGeometry.get())
        geometry = nullptr;
    scratchSystem.reset();
    scratchGeometry.reset();
}

void xEMDesc::PointInto(xEMDescItem& item)
{
    system = &item.system;
    geometry = &item.geometry;
    current = item.code;
}

bool xEMDesc::SetCurrent(int32_t code)
{
    if (code == current && PointsIntoItem())
        return true;
    // Only orientation codes have names; any other would find the item of a
    // banner that named none.
    if (code < kFirstOrientationCode || code > kLastOrientationCode)
        return false;
    auto found = items.find(CodeName(code));
    if (found == items.end())
        return false;
    PointInto(*found->second);
    current = code;
    return true;
}

void xEMDesc::SelectFirst(const xTRClasf& clasf)
{
    if (SetCurrent(FirstSet(clasf)))
        return;
    // No item under that name: the lowest code wins, and on equal codes the
    // smaller key, which is the first of them in the map's order.
    xEMDescItem* lowest = nullptr;
    for (auto& entry : items)
        if (!lowest || entry.second->code < lowest->code)
            lowest = entry.second.get();
    if (lowest)
        PointInto(*lowest);
}

void xEMDesc::DetectSystemKind(const std::string& name)
{
    systemKind = 0;
    if (ContainsBlind(name, "geotem"))
        systemKind = 1;
    if (ContainsBlind(name, "spectrem"))
        systemKind = 2;
    if (ContainsBlind(name, "questem"))
        systemKind = 3;
}

// --- Reading ---

void xEMDesc::ReadFrom(std::istream& in)
{
    StreamSwap<std::istream> swap(inStream, in);
    Read();
}

void xEMDesc::WriteTo(std::ostream& out)
{
    StreamSwap<std::ostream> swap(outStream, out);
    Write();
}

void xEMDesc::Read()
{
    if (!inStream)
        return;
    std::istream& in = *inStream;
    ClearItems();
    current = 100;
    MakeScratch();

    versionLabel = IsVersionLabel(GetLine(in));
    int32_t version = 0;
    versionNumber = xExtract::Int(in, version);
    GetLine(in);
    fileVersion = version;
    geometry->version = version;

    switch (version) {
    case 5:
        ReadVersion5(5);
        break;
    case 6:
        ReadVersion6();
        break;
    case 7:
        ReadVersion7();
        break;
    case 8:
    case 9:
        ReadVersion8(version);
        break;
    default:
        PostNote("Unknown version of EM descriptor (version %d). Conversion to version 8 is not "
                 "guaranteed.",
                 version);
        ReadVersion5(version);
        break;
    }
}

void xEMDesc::ReadVersion5(int version)
{
    std::istream& in = *inStream;
    system->SetVersion(version);
    format->version = version;
    in >> *header;
    in >> *system;
    in >> *geometry;
    format->ResizeChannels(system->Channels());
    format->frequencyDomain = header->IsFrequencyDomain();
    in >> *format;
    format->MarkDefinedOrientations();

    // One record serves every orientation the positions name; each item keeps
    // only its own components of the geometry.
    xTRClasf clasf = format->clasf;
    clasf.Rewind();
    int code = 100;
    while (clasf.NextSet(code)) {
        xEMGDesc reduced(*geometry);
        format->SetOrientationChannels(system->Channels(), code);
        reduced.KeepComponent(code);
        auto item = std::make_unique<xEMDescItem>(*system, reduced, code);
        items[CodeName(code)] = std::move(item);
    }
    DropScratch();
    SelectFirst(format->clasf);
}

void xEMDesc::ReadVersion6()
{
    PostNote("Currently unsupported version of EM descriptor (version 6)");
}

void xEMDesc::ReadVersion7()
{
    std::istream& in = *inStream;
    GetLine(in);
    int32_t blocks = 0;
    xExtract::Int(in, blocks);
    GetLine(in);

    for (int32_t block = 0; block < blocks; ++block) {
        // The format record forgives a failed stream, so a count larger than
        // the blocks in the file would go on reading the same nothing past its
        // end; one such block shows what all of them would give.
        const bool pastEnd = AtEndOfInput(in);
        xEMSHeader localHeader;
        in >> localHeader;
        if (block == 0) {
            *header = localHeader;
            DetectSystemKind(header->systemName);
        }
        xEMSDesc localSystem;
        localSystem.SetVersion(7);
        localSystem.SetHeader(header.get());
        in >> localSystem;
        // The geometry keeps its default version here, so the receiver position
        // is taken as it stands in the file.
        xEMGDesc localGeometry;
        in >> localGeometry;
        const xEMGDesc asRead(localGeometry);
        xEMFDesc localFormat(1);
        localFormat.version = 7;
        localFormat.ResizeChannels(localSystem.Channels());
        localFormat.frequencyDomain = header->IsFrequencyDomain();
        in >> localFormat;
        if (in.fail())
            PostFatalExit("xEMDesc::Read()  Error reading format descriptor.");

        localFormat.MarkDefinedOrientations();
        if (block == 0)
            *format = localFormat;
        else
            format->CopyPositions(localFormat);

        xTRClasf clasf = localFormat.clasf;
        clasf.Rewind();
        int code = 100;
        while (clasf.NextSet(code)) {
            format->SetOrientationChannels(localSystem.Channels(), code);
            localGeometry.KeepComponent(code);
            items[CodeName(code)] = std::make_unique<xEMDescItem>(localSystem, localGeometry, code);
            localGeometry = asRead;
        }
        if (pastEnd)
            break;
    }
    DropScratch();
    SelectFirst(format->clasf);
}

void xEMDesc::ReadVersion8(int version)
{
    std::istream& in = *inStream;
    in >> *header;
    DetectSystemKind(header->systemName);

    GetLine(in);
    xTRClasf clasf;
    in >> clasf;
    const int blocks = clasf.Count();
    GetLine(in);

    for (int block = 0; block < blocks; ++block) {
        GetLine(in);
        const std::string name = FindCodeName(GetLine(in));
        GetLine(in);
        auto item = std::make_unique<xEMDescItem>();
        item->system.SetHeader(header.get());
        item->system.SetVersion(kFileVersion);
        item->code = NameToCode(name);
        in >> item->system;
        item->geometry.version = version;
        in >> item->geometry;
        clasf[item->code] = item->system.Channels();
        items[name] = std::move(item);
    }

    format->version = kFileVersion;
    // Cleared while still small and then widened: all of it is zero either
    // way, and the wide tables' pages stay untouched until positions are read.
    format->ClearPositions(100);
    format->ResizeChannels(MaxChannels(100));
    format->frequencyDomain = header->IsFrequencyDomain();
    format->SetClasf(clasf);
    in >> *format;
    if (in.fail())
        PostFatalExit("xEMDesc::Read()  Error reading EM system descriptor.");

    DropScratch();
    SelectFirst(clasf);
}

// --- Writing ---

void xEMDesc::Write()
{
    if (!outStream)
        return;
    std::ostream& out = *outStream;
    xTRClasf clasf = format->clasf;

    // Text of its own, not the stream's number format, which a locale could change.
    out << "FILE FORMAT VERSION\n" << std::to_string(kFileVersion) << '\n';
    out << *header;
    out << kSeparator << '\n';
    out << clasf;
    out << kSeparator << '\n';

    clasf.Rewind();
    int code = 100;
    while (clasf.NextSet(code)) {
        // The table's text form has no count for the undefined orientation, so
        // a block of it would not read back.
        if (code == 100)
            continue;
        WriteBlock(out, code);
    }
    out << *format;
    if (out.fail())
        PostFatalExit("xEMDesc::Write()  Error writing EM system descriptor.");
}

void xEMDesc::WriteBlock(std::ostream& out, int32_t code)
{
    if (!sharedMode)
        SetCurrent(code);
    else if (geometry)
        geometry->SelectOrientation(code);

    out << kBannerBorder << '\n';
    out << "                         + " << CodeName(code) << " +\n";
    out << kBannerBorder << '\n';
    if (items.empty() || !system || !geometry) {
        // Nothing to write from: the records of a new descriptor stand in.
        xEMSDesc newSystem;
        newSystem.SetHeader(header.get());
        xEMGDesc newGeometry;
        out << newSystem << newGeometry;
        return;
    }
    out << *system << *geometry;
}

// --- Queries per orientation ---

int32_t xEMDesc::Channels(int32_t code)
{
    return SetCurrent(code) ? system->Channels() : 0;
}

int32_t xEMDesc::ZAslPosition() const
{
    return format->ZAslPosition();
}

xEMGDesc* xEMDesc::Geometry(int32_t code)
{
    return SetCurrent(code) ? geometry : nullptr;
}

double xEMDesc::HorizontalSeparation(int32_t code)
{
    return SetCurrent(code) ? geometry->HorizontalSeparation() : 0.0;
}

double xEMDesc::VerticalSeparation(int32_t code)
{
    return SetCurrent(code) ? geometry->VerticalSeparation() : 0.0;
}

double xEMDesc::RxOffsetX(int32_t code)
{
    return SetCurrent(code) ? geometry->SeparationX() : 0.0;
}

double xEMDesc::RxOffsetY(int32_t code)
{
    return SetCurrent(code) ? geometry->SeparationY() : 0.0;
}

double xEMDesc::RxOffsetZ(int32_t code)
{
    return SetCurrent(code) ? geometry->SeparationZ() : 0.0;
}

bool xEMDesc::RxPosition(float out[3], int32_t code)
{
    if (!SetCurrent(code))
        return false;
    out[0] = geometry->rx.x;
    out[1] = geometry->rx.y;
    out[2] = geometry->rx.z;
    return true;
}

bool xEMDesc::TxPosition(float out[3], int32_t code)
{
    if (!SetCurrent(code))
        return false;
    out[0] = geometry->tx.x;
    out[1] = geometry->tx.y;
    out[2] = geometry->tx.z;
    return true;
}

bool xEMDesc::ChannelPositions(FloatMatrix& matrix, int32_t code)
{
    if (!SetCurrent(code))
        return false;
    matrix = format->channelPos;
    return true;
}

bool xEMDesc::QuadraturePositions(FloatMatrix& matrix, int32_t code)
{
    if (!SetCurrent(code))
        return false;
    matrix = format->quadraturePos;
    return true;
}

bool xEMDesc::InPhasePositions(FloatMatrix& matrix, int32_t code)
{
    if (!SetCurrent(code))
        return false;
    matrix = format->inPhasePos;
    return true;
}

bool xEMDesc::Frequencies(FloatArray& array, int32_t code)
{
    return SetCurrent(code) && system->GetFrequencies(array);
}

bool xEMDesc::FrequencyTable(FloatMatrix& matrix, int32_t code)
{
    return SetCurrent(code) && system->GetFrequencyTable(matrix);
}

bool xEMDesc::SamplingWindows(FloatMatrix& matrix, int32_t code)
{
    return SetCurrent(code) && system->GetWindows(matrix);
}

bool xEMDesc::TxWaveform(FloatMatrix& matrix, int32_t code)
{
    return SetCurrent(code) && system->GetTxWaveform(matrix);
}

bool xEMDesc::RxWaveform(FloatMatrix& matrix, int32_t code)
{
    return SetCurrent(code) && system->GetRxField(matrix);
}

bool xEMDesc::Weights(FloatArray& array, int32_t code)
{
    if (!SetCurrent(code))
        return false;
    array = system->weights;
    return true;
}

bool xEMDesc::ScaledSamplingWindows(FloatMatrix& matrix, int32_t code)
{
    if (!SetCurrent(code))
        return false;
    system->GetWindowsInSeconds(matrix, static_cast<float>(header->TimeFactor()));
    return true;
}

bool xEMDesc::TxFieldAt(int32_t code, float x, float y, float z, FloatArray& out)
{
    if (!SetCurrent(code))
        return false;
    return geometry->TxFieldAt(TxComponent(code), x, y, z, out);
}

// --- Queries over the whole descriptor ---

xTRClasf xEMDesc::GetClasf() const
{
    return format->clasf;
}

xTRClasf xEMDesc::ChannelClasf()
{
    xTRClasf clasf;
    clasf = 0;
    const int factor = header->IsFrequencyDomain() ? 2 : 1;
    for (int32_t code = 101; code <= 109; ++code)
        if (SetCurrent(code))
            clasf[code] = system->Channels() * factor;
    return clasf;
}

xTRClasf xEMDesc::ItemClasf() const
{
    xTRClasf clasf;
    clasf = 0;
    for (const auto& entry : items)
        clasf[entry.second->code] = entry.second->system.Channels();
    return clasf;
}

int32_t xEMDesc::MaxChannels(int32_t exceptCode) const
{
    int32_t most = 0;
    for (const auto& entry : items)
        if (entry.second->code != exceptCode)
            most = std::max(most, entry.second->system.Channels());
    return most;
}

void xEMDesc::UserItemLabels(std::vector<std::string>& list) const
{
    // The two lists are public and may differ in length: a position without
    // a label gets an empty one, so that this list stays in step with
    // UserItemPositions.
    for (size_t i = 0; i < format->userPositions.size(); ++i)
        if (format->userPositions[i] > 0)
            list.push_back(i < format->userLabels.size() ? format->userLabels[i] : std::string());
}

void xEMDesc::UserItemPositions(std::vector<int32_t>& list) const
{
    for (int32_t position : format->userPositions)
        if (position > 0)
            list.push_back(position);
}

void xEMDesc::AverageSeparation(int txComponent, float& horizontal, int& zero, float& vertical)
{
    float sumHorizontal = 0.0f;
    float sumVertical = 0.0f;
    int count = 0;
    for (int32_t code = 101; code <= 109; ++code) {
        if (TxComponent(code) != txComponent || !SetCurrent(code))
            continue;
        sumHorizontal += static_cast<float>(geometry->HorizontalSeparation());
        sumVertical += static_cast<float>(geometry->VerticalSeparation());
        ++count;
    }
    // With no matching orientation this is 0/0, and the caller gets NaN.
    horizontal = sumHorizontal / static_cast<float>(count);
    vertical = sumVertical / static_cast<float>(count);
    zero = 0;
}

float xEMDesc::CouplingSign(int32_t code) const
{
    switch (code) {
    case 101: case 102: case 104: case 105: case 107: case 108:
        return 1.0f;
    case 103: case 106:
        return -1.0f;
    case 109: {
        // A loop's field at its centre points against the dipole's.
        auto found = items.find(CodeName(109));
        return found != items.end() && found->second->geometry.tx.IsLargeLoop() ? -1.0f : 1.0f;
    }
    default:
        return 0.0f;
    }
}
