// Recomputing a plotted series of 1500 points (the waveform grid's capacity)
// against a plain loop doing the same job on bare arrays, and the redraw of
// that series from its pixel cache. The ratios are printed at the end.

#include "numeric/FloatMatrix.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPlot.h"
#include "xRatioReporter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int kPoints = 1500;
constexpr int kWidth = 600;
constexpr int kHeight = 300;

float TimeAt(int i) { return 0.01f * float(i); }
float AmplitudeAt(int i) { return std::sin(0.013f * float(i)) * std::exp(-0.001f * float(i)); }

FloatMatrix Waveform()
{
    FloatMatrix table(1, kPoints, 1, 3);
    for (int r = 1; r <= kPoints; ++r) {
        *table.Element(r, 1) = TimeAt(r);
        *table.Element(r, 2) = AmplitudeAt(r);
    }
    return table;
}

// The same work on bare arrays: take both columns, find the ranges with the
// margin, map every point to 16-bit pixels.
void BM_PlainLoopBaseline(benchmark::State& state)
{
    std::vector<float> rows(static_cast<size_t>(kPoints) * 3);
    for (int i = 0; i < kPoints; ++i) {
        rows[3 * i] = TimeAt(i + 1);
        rows[3 * i + 1] = AmplitudeAt(i + 1);
    }
    struct Pair { int16_t v, h; };
    for (auto _ : state) {
        std::vector<float> x(kPoints), y(kPoints);
        for (int i = 0; i < kPoints; ++i) {
            x[i] = rows[3 * i];
            y[i] = rows[3 * i + 1];
        }
        const auto [xLow, xHigh] = std::minmax_element(x.begin(), x.end());
        const auto [yLow, yHigh] = std::minmax_element(y.begin(), y.end());
        const float d = (*yHigh - *yLow) * 0.2f;
        const float y0 = *yLow - d;
        const float scaleX = (*xHigh - *xLow) / kWidth, scaleY = (*yHigh + d - y0) / kHeight;
        std::vector<Pair> pixels(kPoints);
        for (int i = 0; i < kPoints; ++i) {
            const float h = (x[i] - *xLow) / scaleX, v = kHeight - (y[i] - y0) / scaleY;
            pixels[i].h = static_cast<int16_t>(std::clamp(h, -32768.0f, 32767.0f));
            pixels[i].v = static_cast<int16_t>(std::clamp(v, -32768.0f, 32767.0f));
        }
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_PlainLoopBaseline);

// What a grid does when its table changes: the series takes the table, which
// sets the port's ranges, and recomputes its pixels.
void BM_SeriesRecompute(benchmark::State& state)
{
    x2DGPlot port(nullptr, x2DGRect{0, 0, kWidth, kHeight}, 0, 0);
    auto* wave = new x2DGLine(&port);
    const FloatMatrix table = Waveform();
    wave->UpdateFromTable(table);
    for (auto _ : state) {
        wave->SetData(table);
        wave->ComputePixels();
        benchmark::DoNotOptimize(wave->pixels.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_SeriesRecompute);

// A surface that only takes the calls, so that what is measured is the
// series' own part of a redraw.
class CountingSurface : public x2DGSurface {
public:
    void SetClip(const x2DGRect*) override { ++calls; }
    void SetPen(const x2DGPen&) override { ++calls; }
    void DrawPolyline(const x2DGPixel* points, int count) override
    {
        ++polylines;
        benchmark::DoNotOptimize(points);
        benchmark::DoNotOptimize(count);
    }
    void DrawOval(const x2DGRect&) override { ++calls; }
    void DrawSetPos(int, int) override { ++calls; }
    void DrawLine(int, int) override { ++calls; }
    int64_t calls = 0;
    int64_t polylines = 0;
};

void BM_SeriesRedrawFromCache(benchmark::State& state)
{
    x2DGPlot port(nullptr, x2DGRect{0, 0, kWidth, kHeight}, 0, 0);
    auto* wave = new x2DGLine(&port);
    wave->UpdateFromTable(Waveform());
    CountingSurface surface;
    for (auto _ : state)
        wave->Draw(surface);
    state.counters["polylines_per_redraw"] =
        double(surface.polylines) / double(std::max<int64_t>(1, state.iterations()));
    state.counters["points_per_polyline"] = wave->PixelCount();
}
BENCHMARK(BM_SeriesRedrawFromCache);

}   // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const double base = reporter.nanoseconds["BM_PlainLoopBaseline"];
    if (base > 0) {
        std::printf("recompute / plain loop: %.2f\n",
                    reporter.nanoseconds["BM_SeriesRecompute"] / base);
        std::printf("redraw from cache / plain loop: %.4f\n",
                    reporter.nanoseconds["BM_SeriesRedrawFromCache"] / base);
    }
    benchmark::Shutdown();
    return 0;
}
