// The editing grid with its 2250-row capacity (the windows table): loading a
// table of 4500 numbers, scrolling it through from top to bottom, and pasting
// 4500 numbers from clipboard text, each against a plain loop doing the bare
// part of the job in the same run. The ratios are printed at the end.

#include "gui/xRecordingPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPlot.h"
#include "widgets/xClipboardExchange.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "xRatioReporter.h"

#include <QApplication>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 2250;
constexpr int kColumns = 2;
constexpr int kVisibleRows = 13;

FloatMatrix Windows()
{
    FloatMatrix table(1, kRows, 1, kColumns);
    for (int r = 1; r <= kRows; ++r) {
        *table.Element(r, 1) = 1e-5f * float(r);
        *table.Element(r, 2) = 1e-5f * float(r) + 5e-6f;
    }
    return table;
}

// Copying the numbers into a block and formatting the 26 visible texts: the
// least a load can do.
void BM_PlainLoadBaseline(benchmark::State& state)
{
    const FloatMatrix table = Windows();
    std::vector<float> block(static_cast<size_t>(kRows) * kColumns);
    char text[32];
    for (auto _ : state) {
        std::memcpy(block.data(), table.Data(), block.size() * sizeof(float));
        for (int i = 0; i < kVisibleRows * kColumns; ++i) {
            std::snprintf(text, sizeof text, "%5.2e", double(block[i]));
            benchmark::DoNotOptimize(text);
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_PlainLoadBaseline);

struct Screen {
    QWidget card;
    xGridEdView view{&card, QRect(0, 0, 300, 360), kVisibleRows, kColumns, kRows, kColumns};
};

void BM_GridLoad(benchmark::State& state)
{
    Screen screen;
    const FloatMatrix table = Windows();
    for (auto _ : state) {
        screen.view.SetTable(&table, true);
        benchmark::DoNotOptimize(screen.view.RowCount());
    }
    state.counters["cell_fields"] = double(screen.view.Grid()->VisibleRows() * screen.view.Grid()->VisibleColumns());
}
BENCHMARK(BM_GridLoad);

// The load with the windows' bars following the table, as on the waveform card.
void BM_GridLoadWithSeries(benchmark::State& state)
{
    Screen screen;
    x2DGPlot port(nullptr, x2DGRect{0, 0, 600, 300}, 0, 0);
    auto* bars = new x2DGLine(&port);
    screen.view.SetDependentPort(bars);
    const FloatMatrix table = Windows();
    for (auto _ : state)
        screen.view.SetTable(&table, true);
}
BENCHMARK(BM_GridLoadWithSeries);

// Formatting every visible cell of every origin: what a scroll from top to
// bottom has to write at the least.
void BM_PlainScrollBaseline(benchmark::State& state)
{
    const FloatMatrix table = Windows();
    char text[32];
    for (auto _ : state) {
        for (int origin = 0; origin <= kRows - kVisibleRows; ++origin)
            for (int r = 0; r < kVisibleRows; ++r)
                for (int c = 0; c < kColumns; ++c) {
                    std::snprintf(text, sizeof text, "%5.2e", double(table.Data()[(origin + r) * kColumns + c]));
                    benchmark::DoNotOptimize(text);
                }
    }
}
BENCHMARK(BM_PlainScrollBaseline);

void BM_GridScrollThrough(benchmark::State& state)
{
    Screen screen;
    const FloatMatrix table = Windows();
    screen.view.SetTable(&table, false);
    xFltGrd* grid = screen.view.Grid();
    for (auto _ : state) {
        grid->ScrollTo(QPoint(0, 0));
        for (int origin = 1; origin <= kRows - kVisibleRows; ++origin)
            grid->Scroll(Qt::Vertical, xTxtGrd::kLineForward);
        benchmark::DoNotOptimize(grid->ScrollOrigin());
    }
}
BENCHMARK(BM_GridScrollThrough);

std::string ClipboardText()
{
    return xClipboardExchange::TableText(Windows());
}

// Reading the numbers of the text with strtod, no checks.
void BM_PlainParseBaseline(benchmark::State& state)
{
    const std::string text = ClipboardText();
    std::vector<float> numbers(xClipboardExchange::kMaxItems);
    for (auto _ : state) {
        const char* at = text.c_str();
        char* end = nullptr;
        size_t n = 0;
        while (n < numbers.size()) {
            double v = std::strtod(at, &end);
            if (end == at)
                break;
            numbers[n++] = float(v);
            at = end;
        }
        benchmark::DoNotOptimize(numbers.data());
    }
}
BENCHMARK(BM_PlainParseBaseline);

void BM_PasteIntoGrid(benchmark::State& state)
{
    Screen screen;
    xRecordingPlatform platform;
    platform.clipboard = ClipboardText();
    platform.hasClipboard = true;
    xClipboardExchange card;
    for (auto _ : state) {
        FloatMatrix matrix(1, 2, 1, kColumns);
        card.PasteTable(matrix);
        screen.view.SetTable(&matrix, true);
    }
}
BENCHMARK(BM_PasteIntoGrid);

}   // namespace

int main(int argc, char** argv)
{
    if (!std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto& ns = reporter.nanoseconds;
    auto ratio = [&ns](const char* name, const char* base) {
        if (ns[base] > 0)
            std::printf("%s / %s: %.2f\n", name, base, ns[name] / ns[base]);
    };
    ratio("BM_GridLoad", "BM_PlainLoadBaseline");
    ratio("BM_GridLoadWithSeries", "BM_PlainLoadBaseline");
    ratio("BM_GridScrollThrough", "BM_PlainScrollBaseline");
    ratio("BM_PasteIntoGrid", "BM_PlainParseBaseline");
    benchmark::Shutdown();
    return 0;
}
