// Copy and assignment of the numeric containers against std::vector doing the
// same job, on tables of the clipboard's capacity (4500 numbers). Both copy
// with one block move, so the ratios should stay near 1. They are printed at
// the end.

#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "xRatioReporter.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <vector>

namespace {

constexpr int kCount = 4500;
constexpr int kCols = 3;

void BM_VectorCopy(benchmark::State& state)
{
    std::vector<float> source(kCount, 1.5f);
    for (auto _ : state) {
        std::vector<float> copy(source);
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(BM_VectorCopy);

void BM_FloatArrayCopy(benchmark::State& state)
{
    FloatArray source(1, kCount);
    source = 1.5f;
    for (auto _ : state) {
        FloatArray copy(source);
        benchmark::DoNotOptimize(copy.Data());
    }
}
BENCHMARK(BM_FloatArrayCopy);

void BM_VectorAssign(benchmark::State& state)
{
    std::vector<float> source(kCount, 1.5f), target(kCount);
    for (auto _ : state) {
        target = source;
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(BM_VectorAssign);

void BM_FloatArrayAssign(benchmark::State& state)
{
    FloatArray source(1, kCount), target(1, kCount);
    source = 1.5f;
    for (auto _ : state) {
        target = source;
        benchmark::DoNotOptimize(target.Data());
    }
}
BENCHMARK(BM_FloatArrayAssign);

// A matrix keeps no view per row: it copies as one block, like the array.
void BM_FloatMatrixCopy(benchmark::State& state)
{
    FloatMatrix source(1, kCount / kCols, 1, kCols);
    float value = 1.5f;
    source.Fill(&value);
    for (auto _ : state) {
        FloatMatrix copy(source);
        benchmark::DoNotOptimize(copy.Data());
    }
}
BENCHMARK(BM_FloatMatrixCopy);

void BM_FloatMatrixAssign(benchmark::State& state)
{
    FloatMatrix source(1, kCount / kCols, 1, kCols), target(1, kCount / kCols, 1, kCols);
    float value = 1.5f;
    source.Fill(&value);
    for (auto _ : state) {
        target = source;
        benchmark::DoNotOptimize(target.Data());
    }
}
BENCHMARK(BM_FloatMatrixAssign);

}   // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    // Each container's time over the vector doing the same job.
    const char* const pairs[][2] = {{"BM_FloatArrayCopy", "BM_VectorCopy"},
                                    {"BM_FloatArrayAssign", "BM_VectorAssign"},
                                    {"BM_FloatMatrixCopy", "BM_VectorCopy"},
                                    {"BM_FloatMatrixAssign", "BM_VectorAssign"}};
    for (const auto& pair : pairs) {
        double base = reporter.nanoseconds[pair[1]];
        if (base > 0)
            std::printf("%s / %s: %.2f\n", pair[0], pair[1], reporter.nanoseconds[pair[0]] / base);
    }
    benchmark::Shutdown();
    return 0;
}
