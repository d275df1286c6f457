// Pasting a waveform of 4500 numbers (1500 rows of three, what the clipboard
// can bring) into the "Rx Waveform" card through its Edit menu, with the plot
// that follows redrawn, against a plain strtod loop over the same text plus a
// bare antialiased QPainter::drawPolyline of the same points on a picture of
// the plot's size, in the same run. The ratio is printed at the end.

#include "cards/xEMWaveCard.h"
#include "frame/xDescWin.h"
#include "frame/xEMWinDesc.h"
#include "gui/xRecordingPlatform.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "xRatioReporter.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 1500;

// A spreadsheet's text: tab between the columns, CR LF after each row.
std::string PastedText()
{
    std::string text;
    char row[96];
    for (int r = 0; r < kRows; ++r) {
        const double time = 0.01 * r;
        std::snprintf(row, sizeof row, "%.6g\t%.6g\t0\r\n", time, std::sin(time) * std::exp(-0.1 * time));
        text += row;
    }
    return text;
}

struct Screen {
    xRecordingPlatform platform;
    std::unique_ptr<xEMWinDesc> document;
    xEMWaveCard* card = nullptr;
    std::string text = PastedText();
};

Screen* screen = nullptr;

// The numbers read from the text and the polyline drawn: the least the
// paste and the redraw can do.
void BM_PlainParseAndPolylineBaseline(benchmark::State& state)
{
    x2DGPort& plot = *screen->card->Plot();
    const x2DGLine& curve = *screen->card->Curve();
    std::vector<QPoint> points;
    for (const x2DGPixel& pixel : curve.pixels)
        points.emplace_back(pixel.h, pixel.v);
    QImage picture(plot.size(), QImage::Format_ARGB32_Premultiplied);
    std::vector<float> numbers(3 * kRows);
    for (auto _ : state) {
        const char* at = screen->text.c_str();
        char* end = nullptr;
        for (float& number : numbers) {
            number = static_cast<float>(std::strtod(at, &end));
            at = end;
        }
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(picture.rect(), Qt::white);
        painter.setPen(QPen(Qt::red, 2));
        painter.drawPolyline(points.data(), static_cast<int>(points.size()));
        painter.end();
        benchmark::DoNotOptimize(numbers.data());
        benchmark::DoNotOptimize(picture.constBits());
    }
}
BENCHMARK(BM_PlainParseAndPolylineBaseline);

// Edit, Waveform, Paste on the card, then the plot painted anew.
void BM_PasteAndReplot(benchmark::State& state)
{
    x2DGPort& plot = *screen->card->Plot();
    QImage picture(plot.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        screen->platform.PutClipboardText(screen->text);
        screen->card->DoMenuCommand(xEMWaveCardLogic::kWaveformPaste);
        plot.render(&picture);
        benchmark::DoNotOptimize(picture.constBits());
    }
    state.counters["points"] = screen->card->Curve()->PixelCount();
}
BENCHMARK(BM_PasteAndReplot);

}   // namespace

int main(int argc, char** argv)
{
    if (!std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Screen setup;
    setup.document = std::make_unique<xEMWinDesc>();
    setup.document->SetFilePath(TOLVAD_EXAMPLES_DIR "/survey-time-domain.DSC");
    setup.document->Load();
    setup.document->BuildWindow();
    setup.card = dynamic_cast<xEMWaveCard*>(setup.document->DescWindow()->FindCard("Rx Waveform"));
    if (!setup.card) {
        std::fprintf(stderr, "no Rx Waveform card\n");
        return 1;
    }
    setup.card->ShowCard();
    QApplication::processEvents();
    // The first paste fills the plot, so that the baseline draws the same points.
    setup.platform.PutClipboardText(setup.text);
    setup.card->DoMenuCommand(xEMWaveCardLogic::kWaveformPaste);
    screen = &setup;

    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const double base = reporter.nanoseconds["BM_PlainParseAndPolylineBaseline"];
    if (base > 0)
        std::printf("paste and replot / strtod and polyline: %.2f (goal 3 or less)\n",
                    reporter.nanoseconds["BM_PasteAndReplot"] / base);
    benchmark::Shutdown();
    screen = nullptr;
    return 0;
}
