// Dragging the receiver on the geometry card (offscreen): one step of a drag,
// the mouse move to the icon with everything it repaints (the icon, the
// cursor and offset labels), against moving a bare widget of the icon's size
// over a bare white frame of the drawing's size. Goal: a step under 1 ms, far
// below a frame of 16 ms, and at most 10 times the bare move. Both are
// measured in the same run; the ratio is printed at the end.
#include "cards/xEMGCard.h"
#include "cards/xSensorIcon.h"
#include "frame/xDescWin.h"
#include "frame/xEMWinDesc.h"
#include "gui/xHeadlessPlatform.h"
#include "xRatioReporter.h"

#include <QApplication>
#include <QFrame>
#include <QMouseEvent>

#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace {

const std::string kExample = std::string(TOLVAD_EXAMPLES_DIR) + "/survey-time-domain.DSC";

// Back and forth over 40 units, so the drag never leaves the drawing.
QPoint Swing(int step)
{
    int at = step % 80;
    return QPoint(at < 40 ? at : 80 - at, 0);
}

void Send(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void BM_MoveBareWidgetBaseline(benchmark::State& state)
{
    QFrame paper;
    paper.setAutoFillBackground(true);
    paper.setPalette(QPalette(Qt::white));
    paper.resize(330, 270);
    auto* square = new QWidget(&paper);
    square->setAutoFillBackground(true);
    square->setGeometry(20, 150, xSensorIcon::kSize, xSensorIcon::kSize);
    paper.show();
    QApplication::processEvents();
    int step = 0;
    for (auto _ : state) {
        square->move(QPoint(20, 150) + Swing(++step));
        QApplication::processEvents();
    }
}
BENCHMARK(BM_MoveBareWidgetBaseline)->Unit(benchmark::kMicrosecond);

void BM_DragReceiverStep(benchmark::State& state)
{
    xEMWinDesc doc;
    doc.SetFilePath(kExample);
    doc.Load();
    doc.BuildWindow();
    auto* card = static_cast<xEMGCard*>(doc.DescWindow()->FindCard("System Geometry"));
    doc.DescWindow()->SelectCardOf(card);
    QApplication::processEvents();
    xSensorIcon* icon = card->Icon(true);
    const QPoint grip(xSensorIcon::kSize / 2, xSensorIcon::kSize / 2);
    const QPoint start = icon->Centre();
    Send(icon, QEvent::MouseButtonPress, grip, Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        Send(icon, QEvent::MouseMove, icon->mapFromParent(start + Swing(++step)), Qt::LeftButton);
        QApplication::processEvents();
    }
    Send(icon, QEvent::MouseButtonRelease, grip, Qt::NoButton);
}
BENCHMARK(BM_DragReceiverStep)->Unit(benchmark::kMicrosecond);

}   // namespace

int main(int argc, char** argv)
{
    if (!std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication qt(argc, argv);
    std::ostringstream quiet;
    xHeadlessPlatform platform(quiet);
    SetPlatform(&platform);
    benchmark::Initialize(&argc, argv);
    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    double base = reporter.nanoseconds["BM_MoveBareWidgetBaseline"];
    double drag = reporter.nanoseconds["BM_DragReceiverStep"];
    if (base > 0)
        std::printf("BM_DragReceiverStep / BM_MoveBareWidgetBaseline: %.2f\n", drag / base);
    // The reporter keeps each time in its benchmark's unit, microseconds here.
    std::printf("BM_DragReceiverStep: %.3f ms a step\n", drag / 1e3);
    benchmark::Shutdown();
    SetPlatform(nullptr);
    return 0;
}
