// Reading and writing a large descriptor (nine time-domain orientations with
// 2250 windows and two waveforms of 1500 rows each) against the floor of the
// standard library's fastest conversions: std::from_chars and std::to_chars
// over the same numbers, split into lines and at blanks as the text stands
// (xNumberFloor.h). The counter "x_floor" is a descriptor benchmark's time over
// its floor's, measured in the same run.
//
// Then whole processes on a larger descriptor file: "tolvad-dsc upgrade"
// against a tiny program that reads and rewrites the same numbers
// (FloorUpgrade.cpp). Times are the children's processor time; the peak
// memory is the child's maximum resident set as getrusage reports it, and
// "peak_x_file" is that over the file's size.

#include "model/xEMDesc.h"
#include "model/xTROrientation.h"
#include "xNumberFloor.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <streambuf>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

constexpr int kWindows = 2250;
constexpr int kWaveformRows = 1500;
// The file of the whole-process runs: about 50 MB.
constexpr int kProcessWindows = 120000;

// Reads a string in place, without copying it into a stream.
class MemoryBuf : public std::streambuf {
public:
    explicit MemoryBuf(const std::string& text)
    {
        char* begin = const_cast<char*>(text.data());
        setg(begin, begin, begin + text.size());
    }
};

// Collects what is written in a string that keeps its capacity between runs.
class SinkBuf : public std::streambuf {
public:
    void Clear() { text.clear(); }
    const std::string& Text() const { return text; }

protected:
    int_type overflow(int_type c) override
    {
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            text.push_back(traits_type::to_char_type(c));
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(const char* s, std::streamsize n) override
    {
        text.append(s, static_cast<size_t>(n));
        return n;
    }

private:
    std::string text;
};

void FillTable(FloatMatrix& table, int rows, int cols, float scale)
{
    table.Resize(1, rows, 0, cols - 1);
    for (int r = 1; r <= rows; ++r)
        for (int c = 0; c < cols; ++c)
            *table.Element(r, c) = scale * (static_cast<float>(r) + 0.37f * static_cast<float>(c)) +
                                   std::sin(static_cast<float>(r * (c + 1))) * 0.01f;
}

std::unique_ptr<xEMDesc> MakeLargeDescriptor(int windows)
{
    auto desc = std::make_unique<xEMDesc>();
    desc->header->systemName = "benchmark system";
    desc->header->timeUnit = "mSec";
    // What a reader leaves there, so that the text reads and writes back unchanged.
    desc->header->halfPeriod = desc->header->realHalfPeriod;
    xEMDescItem& model = *desc->items.begin()->second;
    FillTable(model.system.windows, windows, 2, 0.0021f);
    model.system.SetChannels(windows);
    for (int i = 1; i <= windows; ++i)
        model.system.weights[i] = 1.0f + 0.001f * static_cast<float>(i % 17);
    for (xEMWaveform* waveform : {&model.system.txWaveform, &model.system.rxField}) {
        waveform->kind = "nominal";
        FillTable(waveform->table, kWaveformRows, 3, 0.0037f);
    }
    for (int code = 101; code <= 109; ++code) {
        if (code != model.code) {
            xEMGDesc geometry(model.geometry);
            geometry.KeepComponent(code);
            desc->items[CodeName(code)] =
                std::make_unique<xEMDescItem>(model.system, geometry, code);
        }
        desc->format->SetOrientationChannels(windows, code);
    }
    desc->format->ResizeToClasf();
    for (int code = 101; code <= 109; ++code)
        for (int i = 1; i <= windows; ++i)
            *desc->format->channelPos.Element(code, i) =
                static_cast<float>(6 + (code - 101) * windows + i);
    return desc;
}

// A text split for the floor writer: the pieces between numbers, the numbers
// with their fields, and the line ends, in order.
struct Piece {
    const char* text;   // null for a number
    uint32_t length;
    float value;
    int width;
    bool integer;
};

struct Fixture {
    std::string text;            // the descriptor as written
    std::vector<Piece> pieces;   // the text for the floor writer
    size_t numbers = 0;
};

const Fixture& Data()
{
    static const Fixture fixture = [] {
        Fixture f;
        auto desc = MakeLargeDescriptor(kWindows);
        SinkBuf sink;
        std::ostream out(&sink);
        desc->WriteTo(out);
        f.text = sink.Text();
        const char* const begin = f.text.data();
        xNumberFloor::SplitText(
            begin, begin + f.text.size(),
            [&](const char* from, const char* to) {
                if (to > from)
                    f.pieces.push_back({from, static_cast<uint32_t>(to - from), 0.0f, 0, false});
            },
            [&](float value, int width, bool integer) {
                f.pieces.push_back({nullptr, 0, value, width, integer});
                ++f.numbers;
            },
            [&] { f.pieces.push_back({"\n", 1, 0.0f, 0, false}); });
        return f;
    }();
    return fixture;
}

double floorReadSeconds = 0.0;
double floorWriteSeconds = 0.0;

double CpuSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Runs body once per iteration and gives the mean processor time of one, in
// seconds (the machine is shared, so wall time would count the others' work).
template <typename Body>
double Timed(benchmark::State& state, Body body)
{
    const double start = CpuSeconds();
    for (auto _ : state)
        body();
    return (CpuSeconds() - start) / static_cast<double>(state.iterations());
}

void Report(benchmark::State& state, size_t bytes, double seconds, double floor)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
    if (floor > 0.0)
        state.counters["x_floor"] = seconds / floor;
}

void BM_FloorRead(benchmark::State& state)
{
    const Fixture& f = Data();
    std::vector<float> numbers;
    numbers.reserve(f.numbers);
    floorReadSeconds = Timed(state, [&] {
        numbers.clear();
        xNumberFloor::SplitText(
            f.text.data(), f.text.data() + f.text.size(), [](const char*, const char*) {},
            [&](float value, int, bool) { numbers.push_back(value); }, [] {});
        benchmark::DoNotOptimize(numbers.data());
    });
    state.counters["numbers"] = static_cast<double>(numbers.size());
    Report(state, f.text.size(), floorReadSeconds, 0.0);
}

void BM_FloorWrite(benchmark::State& state)
{
    const Fixture& f = Data();
    std::string out;
    out.reserve(f.text.size());
    floorWriteSeconds = Timed(state, [&] {
        out.clear();
        for (const Piece& piece : f.pieces) {
            if (piece.text)
                out.append(piece.text, piece.length);
            else
                xNumberFloor::AppendNumber(out, piece.value, piece.width, piece.integer);
        }
        benchmark::DoNotOptimize(out.data());
    });
    if (out != f.text)
        state.SkipWithError("the floor did not write the text back as it was");
    Report(state, f.text.size(), floorWriteSeconds, 0.0);
}

void BM_ReadDescriptor(benchmark::State& state)
{
    const Fixture& f = Data();
    double seconds = Timed(state, [&] {
        MemoryBuf buffer(f.text);
        std::istream in(&buffer);
        xEMDesc desc;
        desc.ReadFrom(in);
        benchmark::DoNotOptimize(desc.items.size());
    });
    Report(state, f.text.size(), seconds, floorReadSeconds);
}

void BM_WriteDescriptor(benchmark::State& state)
{
    const Fixture& f = Data();
    MemoryBuf buffer(f.text);
    std::istream in(&buffer);
    xEMDesc desc;
    desc.ReadFrom(in);
    SinkBuf sink;
    std::ostream out(&sink);
    double seconds = Timed(state, [&] {
        sink.Clear();
        desc.WriteTo(out);
        benchmark::DoNotOptimize(sink.Text().data());
    });
    if (sink.Text() != f.text)
        state.SkipWithError("the descriptor did not write back as it was read");
    Report(state, f.text.size(), seconds, floorWriteSeconds);
}

// --- Whole processes ---

// A directory of its own with the large descriptor in it; removed at the end.
class ProcessFiles {
public:
    ProcessFiles()
    {
        char pattern[] = "/tmp/tolvadbenchXXXXXX";
        if (!mkdtemp(pattern))
            return;
        directory = pattern;
        input = directory + "/large.DSC";
        output = directory + "/out.DSC";
        auto desc = MakeLargeDescriptor(kProcessWindows);
        std::ofstream file(input, std::ios::binary);
        desc->WriteTo(file);
        file.close();
        struct stat st;
        if (::stat(input.c_str(), &st) == 0)
            bytes = static_cast<double>(st.st_size);
    }
    ~ProcessFiles()
    {
        std::remove(input.c_str());
        std::remove(output.c_str());
        std::remove((directory + "/report").c_str());
        ::rmdir(directory.c_str());
    }
    std::string directory, input, output;
    double bytes = 0.0;
};

const ProcessFiles& Files()
{
    static const ProcessFiles files;
    return files;
}

struct ChildUse {
    bool ok = false;
    double seconds = 0.0;   // user and system processor time
    double peakBytes = 0.0;
};

// Runs the program through the measuring one and reads its report.
ChildUse RunChild(const std::vector<std::string>& program)
{
    ChildUse use;
    const std::string report = Files().directory + "/report";
    std::vector<std::string> args = {TOLVAD_MEASURE_EXE, report};
    args.insert(args.end(), program.begin(), program.end());
    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0)
        return use;
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return use;
    std::ifstream in(report);
    int exitStatus = -1;
    in >> exitStatus >> use.seconds >> use.peakBytes;
    use.ok = in && exitStatus == 0;
    return use;
}

double floorProcessSeconds = 0.0;

// Runs the command once per iteration; the mean processor time and the
// largest peak of its runs.
ChildUse RunProcesses(benchmark::State& state, const std::vector<std::string>& args)
{
    ChildUse total;
    total.ok = true;
    for (auto _ : state) {
        ChildUse use = RunChild(args);
        if (!use.ok) {
            state.SkipWithError(("failed: " + args[0]).c_str());
            total.ok = false;
            break;
        }
        total.seconds += use.seconds;
        total.peakBytes = std::max(total.peakBytes, use.peakBytes);
    }
    if (state.iterations() > 0)
        total.seconds /= static_cast<double>(state.iterations());
    return total;
}

void ReportProcess(benchmark::State& state, const ChildUse& use, double floor)
{
    const ProcessFiles& files = Files();
    state.counters["cpu_ms"] = 1e3 * use.seconds;
    state.counters["peak_MB"] = use.peakBytes / 1048576.0;
    state.counters["peak_x_file"] = use.peakBytes / files.bytes;
    state.counters["file_MB"] = files.bytes / 1048576.0;
    if (floor > 0.0)
        state.counters["x_floor"] = use.seconds / floor;
}

void BM_FloorUpgradeProcess(benchmark::State& state)
{
    const ProcessFiles& files = Files();
    ChildUse use = RunProcesses(state, {TOLVAD_FLOOR_UPGRADE_EXE, files.input, files.output});
    floorProcessSeconds = use.seconds;
    ReportProcess(state, use, 0.0);
}

void BM_UpgradeProcess(benchmark::State& state)
{
    const ProcessFiles& files = Files();
    ChildUse use = RunProcesses(state, {TOLVAD_DSC_EXE, "upgrade", files.input, files.output});
    std::ifstream in(files.input, std::ios::binary), out(files.output, std::ios::binary);
    if (std::string(std::istreambuf_iterator<char>(in), {}) !=
        std::string(std::istreambuf_iterator<char>(out), {}))
        state.SkipWithError("the upgraded file is not the descriptor that was read");
    ReportProcess(state, use, floorProcessSeconds);
    // What the tool costs before it reads anything.
    ChildUse idle = RunChild({TOLVAD_DSC_EXE, "--version"});
    state.counters["idle_peak_MB"] = idle.peakBytes / 1048576.0;
}

} // namespace

// The floors run first, so the ratios can use them.
BENCHMARK(BM_FloorRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadDescriptor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteDescriptor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorUpgradeProcess)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_UpgradeProcess)->Unit(benchmark::kMillisecond)->Iterations(3);
