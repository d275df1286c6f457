// The sample of the Data Format card: reading the fifty lines it shows and
// parsing its first two records cost the same whatever text follows in the
// file. Each is measured on a file of 52 lines, one of 100,000 lines and one
// of 32 MiB without a line end (a binary file), against the standard library
// reading the fifty lines and the two records of the short file with getline
// and >>, in the same run; the ratios are printed at the end. Goal: about 1
// to 2 for the text files, short or long. A file without line ends is read
// only up to the limits (4 MiB for the lines shown; for the comment lines of
// a parse, 64 MiB, so here the whole 32 MiB): tens of milliseconds, not the
// size of the file.
#include "cards/xEMFSample.h"
#include "numeric/FloatMatrix.h"
#include "xRatioReporter.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kItems = 37;
constexpr int kCommentLines = 2;

std::string folder;

std::string Path(const char* name)
{
    return folder + "/" + name;
}

std::string Record(int row)
{
    std::string line = "10010 " + std::to_string(1200 + row);
    for (int k = 2; k < kItems; ++k)
        line += " " + std::to_string(512340.25 + k * 17.5 + row);
    return line + "\n";
}

void WriteSamples()
{
    char pattern[] = "/tmp/tolvadbenchXXXXXX";
    folder = mkdtemp(pattern) ? pattern : "/tmp";
    const std::string head = "/ survey line 10010\n/ line fid east north ...\n";
    std::ofstream shortFile(Path("short.xyz"), std::ios::binary);
    std::ofstream longFile(Path("long.xyz"), std::ios::binary);
    shortFile << head;
    longFile << head;
    for (int row = 0; row < 100000; ++row) {
        const std::string record = Record(row);
        if (row < 50)
            shortFile << record;
        longFile << record;
    }
    std::ofstream binary(Path("binary.bin"), std::ios::binary);
    const std::string block(1 << 20, '\x01');
    for (int mib = 0; mib < 32; ++mib)
        binary << block;
}

void RemoveSamples()
{
    for (const char* name : {"short.xyz", "long.xyz", "binary.bin"})
        std::remove(Path(name).c_str());
    rmdir(folder.c_str());
}

void BM_PlainHeadBaseline(benchmark::State& state)
{
    std::vector<std::string> lines;
    for (auto _ : state) {
        lines.clear();
        std::ifstream in(Path("short.xyz"), std::ios::binary);
        std::string line;
        while (lines.size() < xEMFSample::kHeadLines && std::getline(in, line))
            lines.push_back(line);
        benchmark::DoNotOptimize(lines.data());
    }
}
BENCHMARK(BM_PlainHeadBaseline);

void ReadHead(benchmark::State& state, const char* name)
{
    std::vector<std::string> lines;
    for (auto _ : state) {
        xEMFSample::ReadHead(Path(name), lines);
        benchmark::DoNotOptimize(lines.data());
    }
}
void BM_ReadHeadShort(benchmark::State& state) { ReadHead(state, "short.xyz"); }
void BM_ReadHeadLong(benchmark::State& state) { ReadHead(state, "long.xyz"); }
void BM_ReadHeadBinary(benchmark::State& state) { ReadHead(state, "binary.bin"); }
BENCHMARK(BM_ReadHeadShort);
BENCHMARK(BM_ReadHeadLong);
BENCHMARK(BM_ReadHeadBinary);

void BM_PlainParseBaseline(benchmark::State& state)
{
    std::vector<float> numbers(2 * kItems);
    for (auto _ : state) {
        std::ifstream in(Path("short.xyz"), std::ios::binary);
        std::string line;
        for (int i = 0; i < kCommentLines; ++i)
            std::getline(in, line);
        for (float& number : numbers)
            in >> number;
        benchmark::DoNotOptimize(numbers.data());
    }
}
BENCHMARK(BM_PlainParseBaseline);

void Parse(benchmark::State& state, const char* name)
{
    FloatMatrix records;
    for (auto _ : state) {
        xEMFSample::Parse(Path(name), kCommentLines, kItems, records);
        benchmark::DoNotOptimize(records.Data());
    }
}
void BM_ParseLong(benchmark::State& state) { Parse(state, "long.xyz"); }
void BM_ParseBinary(benchmark::State& state) { Parse(state, "binary.bin"); }
BENCHMARK(BM_ParseLong);
BENCHMARK(BM_ParseBinary);

}   // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    WriteSamples();
    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    RemoveSamples();
    const char* const pairs[][2] = {{"BM_ReadHeadShort", "BM_PlainHeadBaseline"},
                                    {"BM_ReadHeadLong", "BM_PlainHeadBaseline"},
                                    {"BM_ReadHeadBinary", "BM_PlainHeadBaseline"},
                                    {"BM_ParseLong", "BM_PlainParseBaseline"},
                                    {"BM_ParseBinary", "BM_PlainParseBaseline"}};
    for (const auto& pair : pairs) {
        const double base = reporter.nanoseconds[pair[1]];
        if (base > 0)
            std::printf("%s / %s: %.2f\n", pair[0], pair[1], reporter.nanoseconds[pair[0]] / base);
    }
    benchmark::Shutdown();
    return 0;
}
