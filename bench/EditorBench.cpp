// The editor's speed on screen (offscreen): a process from its main to the
// first painted card window on the largest example, against a process that
// shows an empty QMainWindow (goal: at most 2.5 times); the same inside a
// running process; and switching between two cards, against switching the
// pages of a bare QStackedWidget (goal: under a frame, 16 ms); and one step of
// dragging the receiver on the geometry card, with all it repaints, against
// moving a bare widget of the icon's size over a bare frame of the drawing's
// size (goal: a step under 1 ms, and at most 10 times the bare move). Both
// sides of a ratio are measured in the same run; the ratios are printed at the
// end. The processes are this program again, started with "--child editor" or
// "--child empty".
#include "app/xEditorApp.h"
#include "cards/xEMGCard.h"
#include "cards/xSensorIcon.h"
#include "frame/xCard.h"
#include "frame/xDescWin.h"
#include "frame/xEMWinDesc.h"
#include "gui/xHeadlessPlatform.h"
#include "xRatioReporter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFrame>
#include <QMouseEvent>
#include <QProcess>
#include <QLabel>
#include <QMainWindow>
#include <QStackedWidget>

#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace {

const std::string kLargest = std::string(TOLVAD_EXAMPLES_DIR) + "/survey-time-domain.DSC";

// Watches the whole application for the first paint of a widget of a kind,
// so that a paint while the window is being made counts too.
template <typename Widget>
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }
    ~PaintWatch() override { qApp->removeEventFilter(this); }
    void Wait()
    {
        QElapsedTimer waited;
        waited.start();
        while (!painted && waited.elapsed() < 5000)
            QApplication::processEvents();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && dynamic_cast<Widget*>(watched))
            painted = true;
        return false;
    }

private:
    bool painted = false;
};

// The editor as its main starts it, up to the first paint of a card.
void OpenLikeMain(const std::string& path)
{
    PaintWatch<xCard> watch;
    xEditorApp app;
    app.SetStartupFiles({path});
    app.StartUp();
    watch.Wait();
}

void ShowEmptyWindow()
{
    PaintWatch<QMainWindow> watch;
    QMainWindow window;
    window.setCentralWidget(new QWidget(&window));
    window.show();
    watch.Wait();
}

void RunChild(benchmark::State& state, const char* what)
{
    for (auto _ : state) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--child"), QString::fromUtf8(what)});
        if (!child.waitForFinished(30000) || child.exitCode() != 0)
            state.SkipWithError("the child process failed");
    }
}

void BM_EmptyWindowProcessBaseline(benchmark::State& state)
{
    RunChild(state, "empty");
}
BENCHMARK(BM_EmptyWindowProcessBaseline)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_EditorProcessToFirstCard(benchmark::State& state)
{
    RunChild(state, "editor");
}
BENCHMARK(BM_EditorProcessToFirstCard)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_EmptyMainWindowBaseline(benchmark::State& state)
{
    for (auto _ : state)
        ShowEmptyWindow();
}
BENCHMARK(BM_EmptyMainWindowBaseline)->Unit(benchmark::kMicrosecond);

void BM_OpenLargestExample(benchmark::State& state)
{
    for (auto _ : state)
        OpenLikeMain(kLargest);
}
BENCHMARK(BM_OpenLargestExample)->Unit(benchmark::kMicrosecond);

void BM_StackedPagesBaseline(benchmark::State& state)
{
    QStackedWidget pages;
    pages.addWidget(new QLabel(QStringLiteral("first")));
    pages.addWidget(new QLabel(QStringLiteral("second")));
    pages.resize(640, 400);
    pages.show();
    QApplication::processEvents();
    int next = 1;
    for (auto _ : state) {
        pages.setCurrentIndex(next);
        QApplication::processEvents();
        next = 1 - next;
    }
}
BENCHMARK(BM_StackedPagesBaseline)->Unit(benchmark::kMicrosecond);

void BM_SwitchCards(benchmark::State& state)
{
    xEMWinDesc doc;
    doc.SetFilePath(kLargest);
    doc.Load();
    doc.BuildWindow();
    xDescWin* window = doc.DescWindow();
    window->CreateNewCard("Second card");
    QApplication::processEvents();
    int next = 1;
    for (auto _ : state) {
        window->SelectCard(next);
        QApplication::processEvents();
        next = 1 - next;
    }
}
BENCHMARK(BM_SwitchCards)->Unit(benchmark::kMicrosecond);

// Back and forth over 40 units, so that a drag stays on the drawing.
QPoint Swing(int step)
{
    int at = step % 80;
    return QPoint(at < 40 ? at : 80 - at, 0);
}

void SendMouse(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
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
    doc.SetFilePath(kLargest);
    doc.Load();
    doc.BuildWindow();
    auto* card = static_cast<xEMGCard*>(doc.DescWindow()->FindCard(xEMEditDesc::kGeometryCard));
    doc.DescWindow()->SelectCardOf(card);
    QApplication::processEvents();
    xSensorIcon* icon = card->Icon(true);
    const QPoint grip(xSensorIcon::kSize / 2, xSensorIcon::kSize / 2);
    const QPoint start = icon->Centre();
    SendMouse(icon, QEvent::MouseButtonPress, grip, Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        SendMouse(icon, QEvent::MouseMove, icon->mapFromParent(start + Swing(++step)), Qt::LeftButton);
        QApplication::processEvents();
    }
    SendMouse(icon, QEvent::MouseButtonRelease, grip, Qt::NoButton);
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
    if (argc == 3 && std::string(argv[1]) == "--child") {
        if (std::string(argv[2]) == "editor")
            OpenLikeMain(kLargest);
        else
            ShowEmptyWindow();
        SetPlatform(nullptr);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    xRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const std::pair<const char*, const char*> ratios[] = {
        {"BM_EditorProcessToFirstCard/real_time", "BM_EmptyWindowProcessBaseline/real_time"},
        {"BM_OpenLargestExample", "BM_EmptyMainWindowBaseline"},
        {"BM_SwitchCards", "BM_StackedPagesBaseline"},
        {"BM_DragReceiverStep", "BM_MoveBareWidgetBaseline"}};
    for (const auto& ratio : ratios) {
        double base = reporter.nanoseconds[ratio.second];
        if (base > 0)
            std::printf("%s / %s: %.2f\n", ratio.first, ratio.second, reporter.nanoseconds[ratio.first] / base);
    }
    // The reporter keeps each time in its benchmark's unit, microseconds here.
    std::printf("BM_SwitchCards: %.3f ms a switch\n", reporter.nanoseconds["BM_SwitchCards"] / 1e3);
    std::printf("BM_DragReceiverStep: %.3f ms a step\n", reporter.nanoseconds["BM_DragReceiverStep"] / 1e3);
    benchmark::Shutdown();
    SetPlatform(nullptr);
    return 0;
}
