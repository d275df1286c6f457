// tolvad-gallery: renders each family of the editor's widgets offscreen with
// realistic contents, one PNG each, so that they can be looked at at any
// scale. tools/screenshots.sh runs it at 1x and 2x.
//
//   tolvad-gallery OUT_DIR SUFFIX   writes OUT_DIR/NAME-SUFFIX.png

#include "gui/xRecordingPlatform.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "widgets/xChoiceEdWin.h"
#include "widgets/xCommandView.h"
#include "widgets/xEdGrid.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"
#include "widgets/xFlagEditBox.h"
#include "widgets/xFloatEdWin.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "widgets/xGridEdViewWin.h"
#include "widgets/xLongEdWin.h"
#include "widgets/xMtGridEdWin.h"
#include "widgets/xNoteWin.h"
#include "widgets/xPointEdWin.h"
#include "widgets/xPointFlagEdWin.h"
#include "widgets/xTableViewWin.h"
#include "widgets/xTextEdWin.h"
#include "widgets/xVectorEdWin.h"

#include <QApplication>
#include <QPixmap>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <string>

namespace {

std::string outDir;
std::string suffix;
int failures = 0;

void Save(QWidget& widget, const char* name)
{
    widget.show();
    QApplication::processEvents();
    const std::string path = outDir + "/" + name + "-" + suffix + ".png";
    if (!widget.grab().save(QString::fromStdString(path))) {
        std::fprintf(stderr, "tolvad-gallery: can't write %s\n", path.c_str());
        ++failures;
    }
    widget.hide();
}

// A transient waveform of a time-domain system: time in seconds, the
// transmitter current and the receiver's primary field, both normalised: a
// ramp on, a flat top, a steep ramp off and a long off time.
FloatMatrix Waveform()
{
    const int rows = 400;
    FloatMatrix table(1, rows, 1, 3);
    for (int r = 1; r <= rows; ++r) {
        const double t = (r - 1) * 2.5e-5;
        double current = 0.0;
        if (t < 5e-4)
            current = t / 5e-4;
        else if (t < 4e-3)
            current = 1.0;
        else if (t < 4.2e-3)
            current = 1.0 - (t - 4e-3) / 2e-4;
        *table.Element(r, 1) = static_cast<float>(t);
        *table.Element(r, 2) = static_cast<float>(current);
        *table.Element(r, 3) = static_cast<float>(current * 0.87);
    }
    return table;
}

// Sampling windows of the off time, widening on a logarithmic scale.
FloatMatrix Windows(int count)
{
    FloatMatrix table(1, count, 1, 2);
    double start = 4.25e-3;
    for (int r = 1; r <= count; ++r) {
        const double width = 2e-5 * std::pow(1.35, r - 1);
        *table.Element(r, 1) = static_cast<float>(start);
        *table.Element(r, 2) = static_cast<float>(start + width);
        start += width;
    }
    return table;
}

void WaveformGrid()
{
    xCommandView card(nullptr);
    card.resize(330, 380);
    const FloatMatrix table = Waveform();
    auto* view = new xGridEdView(&card, QRect(10, 10, 310, 360), 13, 3, 1500, 3, &table);
    card.show();
    QApplication::setActiveWindow(&card);
    view->EditField()->setFocus();
    QApplication::processEvents();
    // The middle of the table, the edit on a cell of the third row.
    view->Grid()->ScrollTo(QPoint(0, 155));
    view->Grid()->SetEditCell(2, 1, true);
    card.resize(view->geometry().right() + 11, view->geometry().bottom() + 11);
    Save(card, "waveform-grid");
}

void WindowsGrid()
{
    xCommandView card(nullptr);
    card.resize(260, 380);
    const FloatMatrix table = Windows(20);
    auto* view = new xGridEdView(&card, QRect(10, 10, 240, 360), 13, 2, 2250, 2, &table);
    view->SetId(5000);
    card.resize(view->geometry().right() + 11, view->geometry().bottom() + 11);
    Save(card, "windows-grid");
}

void LabelledGrid()
{
    xCommandView card(nullptr);
    card.resize(320, 300);
    const int rows = 12;
    FloatMatrix weights(1, rows, 1, 2);
    std::vector<std::string> labels;
    for (int r = 1; r <= rows; ++r) {
        *weights.Element(r, 1) = 1.0f / static_cast<float>(r);
        *weights.Element(r, 2) = r == 3 ? 2.5e6f : 100.0f * static_cast<float>(r);
        labels.push_back("Window " + std::to_string(r));
    }
    auto* grid = new xEdGrid(&card, QRect(10, 10, 300, 280), rows, 2, xEdGrid::kRowLabels | xEdGrid::kColumnLabels);
    grid->SetRowLabels(labels);
    grid->SetColumnLabels({"weight", "scale"});
    grid->SetTable(&weights);
    card.resize(grid->geometry().right() + 11, grid->geometry().bottom() + 11);
    Save(card, "labelled-grid");
}

void EditBoxes()
{
    xCommandView card(nullptr);
    card.resize(360, 200);
    new xEditBox(&card, QRect(10, 10, 340, 23), 90, 25.0f, "Scale factor", "%10.7e");
    new xEditBox(&card, QRect(10, 40, 340, 23), 90, 1024L, "No. of channels");
    new xEditBox(&card, QRect(10, 70, 340, 23), 180, std::string("Survey 2024"), "System name");
    auto* off = new xEditBox(&card, QRect(10, 100, 340, 23), 90, -1250.0f, "Disabled", "%10.7e");
    off->Enable(false);
    auto* flag = new xFlagEditBox(&card, QRect(10, 130, 340, 23), 90, 425.5f, "Checked", true, "%10.7e");
    flag->SetValueWhenCleared(0.0);
    auto* dead = new xFlagEditBox(&card, QRect(10, 160, 340, 23), 90, 7.25f, "Disabled for good", false, "%10.7e");
    dead->MakePermanentlyDisabled(true);
    int right = 0, bottom = 0;
    for (QWidget* child : card.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        right = std::max(right, child->geometry().right());
        bottom = std::max(bottom, child->geometry().bottom());
    }
    card.resize(right + 11, bottom + 11);
    Save(card, "edit-boxes");
}

void ModalEditors()
{
    float point[3] = {425.5f, -1250.0f, 0.125f};
    xPointEdWin pointWin(nullptr, "Receiver position");
    pointWin.SetUpUserItem(point);
    Save(pointWin, "point-editor");

    float flags[3] = {1.0f, 0.0f, 1.0f};
    xPointFlagEdWin flagWin(nullptr, "Components");
    flagWin.SetUpUserItem(flags);
    Save(flagWin, "point-flag-editor");

    FloatArray scales(1, 2);
    scales[1] = 73.606674f;
    scales[2] = 1.0f;
    xVectorEdWin vectorWin(nullptr, "Rx Waveform Amplitude Scaling", 340,
                           "Give the amplitudes the receiver waveform\nis scaled by.");
    vectorWin.SetUpUserItem(&scales, {"equivalent secondary amplitude", "nominal (primary) amplitude "});
    Save(vectorWin, "vector-editor");

    FloatMatrix weights(0, 7, 1, 1);
    for (int r = 0; r <= 7; ++r)
        *weights.Element(r, 1) = 1.0f - 0.1f * static_cast<float>(r);
    xGridEdViewWin gridWin(nullptr, "Edit Response Weights");
    gridWin.SetCapacity(8, 1);
    gridWin.SetVisibleSize(5, 1);
    gridWin.SetUpUserItem(&weights);
    Save(gridWin, "grid-editor");

    FloatMatrix matrix(1, 3, 1, 3);
    for (int r = 1; r <= 3; ++r)
        for (int c = 1; c <= 3; ++c)
            *matrix.Element(r, c) = r == c ? 1.0f : 0.05f * static_cast<float>(r + c);
    xMtGridEdWin matrixWin(nullptr, "Rotation", 300, 200, 3, 3);
    matrixWin.SetUpUserItem(&matrix, {"x", "y", "z"}, {"x'", "y'", "z'"});
    Save(matrixWin, "matrix-editor");

    float number = 25.0f;
    xFloatEdWin floatWin(nullptr, "Base frequency");
    floatWin.SetUpUserItem(&number, "Frequency [Hz]");
    Save(floatWin, "float-editor");

    long count = 2250;
    xLongEdWin longWin(nullptr, "Channels");
    longWin.SetUpUserItem(&count, "No. of windows");
    Save(longWin, "long-editor");

    std::string label = "z_new";
    xTextEdWin textWin(nullptr, "User Item");
    textWin.SetUpUserItem(&label, "Enter new user defined item label:");
    Save(textWin, "text-editor");

    int index = 1;
    xChoiceEdWin choiceWin(nullptr, "Remove User Item ", {"altimeter", "magnetometer", "z_new"});
    choiceWin.SetUpUserItem(&index, "Select the item to remove:");
    Save(choiceWin, "choice-editor");

    FloatArray table(1, 12);
    for (int i = 1; i <= 12; ++i)
        table[i] = -1.25e-3f * static_cast<float>(i * i);
    xTableViewWin tableWin(nullptr, "Weights");
    tableWin.SetUpUserItem(&table);
    Save(tableWin, "table-view");
}

void GraphPort(bool zoomed)
{
    xCommandView card(nullptr);
    card.resize(620, 320);
    auto* port = new x2DGPort(&card, QRect(10, 10, 600, 300));
    port->drawZeroLine = true;
    auto* wave = new x2DGLine(port);
    wave->SetPen({0xff0000, 1});
    auto* bars = new x2DGBars(port);
    bars->SetPen({0x0000ff, 1});
    // The card plots in the waveform's time unit, here milliseconds.
    FloatMatrix samples = Waveform();
    FloatMatrix curve(1, samples.Rows(), 1, 2);
    for (int r = 1; r <= samples.Rows(); ++r) {
        *curve.Element(r, 1) = 1000.0f * samples.Row(r)[1];
        *curve.Element(r, 2) = samples.Row(r)[2];
    }
    FloatMatrix windows = Windows(20);
    for (int r = 1; r <= windows.Rows(); ++r)
        for (int c = 1; c <= 2; ++c)
            *windows.Element(r, c) *= 1000.0f;
    wave->UpdateFromTable(curve);
    bars->UpdateFromTable(windows);
    port->SetEndLabels(1, 400, "FID ", "%.0f", true);
    if (zoomed) {
        // 20 centimetres a millisecond: the turn-off in the middle.
        const float scale = 20.0f;
        port->DoCommand(x2DGPlot::kHorizontalScale, const_cast<float*>(&scale));
        port->CentreOn(170.0f);
    }
    Save(card, zoomed ? "graph-port-zoomed" : "graph-port");
}

void Notes()
{
    QTimer::singleShot(0, [] {
        if (QWidget* note = QApplication::activeModalWidget()) {
            Save(*note, "note-ok");
            note->close();
        }
    });
    xNoteWin::ShowNote("The descriptor was saved as version 9.", 0, "OK");

    QTimer::singleShot(0, [] {
        if (QWidget* note = QApplication::activeModalWidget()) {
            Save(*note, "note-skip");
            note->close();
        }
    });
    bool skip = false;
    xNoteWin::ShowNoteWithSkip("Window 7 overlaps window 8. The later windows of this series may overlap as well.",
                               skip, "Continue", "Stop", "Help");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: tolvad-gallery OUT_DIR SUFFIX\n");
        return 64;
    }
    QApplication app(argc, argv);
    outDir = argv[1];
    suffix = argv[2];
    // Messages of the widgets would wait for a click: they are kept instead.
    xRecordingPlatform platform;
    WaveformGrid();
    WindowsGrid();
    LabelledGrid();
    EditBoxes();
    ModalEditors();
    GraphPort(false);
    GraphPort(true);
    Notes();
    return failures ? 1 : 0;
}
