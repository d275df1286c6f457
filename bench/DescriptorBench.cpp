// Reading and writing a large descriptor (nine time-domain orientations with
// 2250 windows and two waveforms of 1500 rows each) against a plain baseline
// that converts the same count of numbers with strtof and snprintf. The
// counter "x_baseline" is the ratio of a descriptor benchmark's time to its
// baseline's, measured in the same run.

#include "model/xEMDesc.h"
#include "model/xTROrientation.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <streambuf>
#include <string>
#include <time.h>
#include <vector>

namespace {

constexpr int kWindows = 2250;
constexpr int kWaveformRows = 1500;

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

std::unique_ptr<xEMDesc> MakeLargeDescriptor()
{
    auto desc = std::make_unique<xEMDesc>();
    desc->header->systemName = "benchmark system";
    desc->header->timeUnit = "mSec";
    // What a reader leaves there, so that the text reads and writes back unchanged.
    desc->header->halfPeriod = desc->header->realHalfPeriod;
    xEMDescItem& model = *desc->items.begin()->second;
    FillTable(model.system.windows, kWindows, 2, 0.0021f);
    model.system.SetChannels(kWindows);
    for (int i = 1; i <= kWindows; ++i)
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
        desc->format->SetOrientationChannels(kWindows, code);
    }
    desc->format->ResizeToClasf();
    for (int code = 101; code <= 109; ++code)
        for (int i = 1; i <= kWindows; ++i)
            *desc->format->channelPos.Element(code, i) =
                static_cast<float>(6 + (code - 101) * kWindows + i);
    return desc;
}

struct Fixture {
    std::string text;          // the descriptor as written
    std::vector<float> numbers;  // every number the text holds
    std::string numberText;    // those numbers alone, as the baseline prints them
};

const Fixture& Data()
{
    static const Fixture fixture = [] {
        Fixture f;
        auto desc = MakeLargeDescriptor();
        SinkBuf sink;
        std::ostream out(&sink);
        desc->WriteTo(out);
        f.text = sink.Text();
        // Every blank-separated token that is a whole number counts.
        const char* p = f.text.c_str();
        while (*p) {
            while (*p == ' ' || *p == '\n')
                ++p;
            const char* start = p;
            while (*p && *p != ' ' && *p != '\n')
                ++p;
            std::string token(start, p);
            char* end = nullptr;
            float value = std::strtof(token.c_str(), &end);
            if (!token.empty() && *end == '\0')
                f.numbers.push_back(value);
        }
        char cell[32];
        for (float v : f.numbers) {
            int n = std::snprintf(cell, sizeof cell, "%12.6g\n", static_cast<double>(v));
            f.numberText.append(cell, static_cast<size_t>(n));
        }
        return f;
    }();
    return fixture;
}

double baselineParseSeconds = 0.0;
double baselinePrintSeconds = 0.0;

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

void Report(benchmark::State& state, double seconds, double baseline)
{
    const Fixture& f = Data();
    state.counters["numbers"] = static_cast<double>(f.numbers.size());
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(f.text.size()));
    if (baseline > 0.0)
        state.counters["x_baseline"] = seconds / baseline;
}

void BM_BaselineParse(benchmark::State& state)
{
    const Fixture& f = Data();
    baselineParseSeconds = Timed(state, [&] {
        const char* p = f.numberText.c_str();
        float sum = 0.0f;
        for (size_t i = 0; i < f.numbers.size(); ++i) {
            char* end = nullptr;
            sum += std::strtof(p, &end);
            p = end;
        }
        benchmark::DoNotOptimize(sum);
    });
    Report(state, baselineParseSeconds, 0.0);
}

void BM_BaselinePrint(benchmark::State& state)
{
    const Fixture& f = Data();
    std::string out;
    out.reserve(f.numberText.size());
    baselinePrintSeconds = Timed(state, [&] {
        out.clear();
        char cell[32];
        for (float v : f.numbers) {
            int n = std::snprintf(cell, sizeof cell, "%12.6g\n", static_cast<double>(v));
            out.append(cell, static_cast<size_t>(n));
        }
        benchmark::DoNotOptimize(out.data());
    });
    Report(state, baselinePrintSeconds, 0.0);
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
    Report(state, seconds, baselineParseSeconds);
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
    Report(state, seconds, baselinePrintSeconds);
}

} // namespace

// The baselines run first, so the ratios can use them.
BENCHMARK(BM_BaselineParse)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BaselinePrint)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadDescriptor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteDescriptor)->Unit(benchmark::kMillisecond);
