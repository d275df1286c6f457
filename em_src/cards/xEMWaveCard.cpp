#include "cards/xEMWaveCard.h"

#include "cards/xTROrientationSelector.h"
#include "frame/xDWin.h"
#include "frame/xEMWinDesc.h"
#include "model/xEMSDesc.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "widgets/xEditBox.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace {

using Logic = xEMWaveCardLogic;

constexpr int kMargin = 12;
constexpr int kGap = 10;
constexpr int kPlotWidth = 420;
// The waveform in red, the windows in blue, wide enough to read on any screen.
const x2DGPen kCurvePen{0xff0000, 2};
const x2DGPen kBarPen{0x0000ff, 3};

} // namespace

xCard* xEMWaveCard::MakeTx(xEMWinDesc& document, xDWin& window)
{
    return Make(document, window, xEMEditDesc::kTxWaveCard);
}

xCard* xEMWaveCard::MakeRx(xEMWinDesc& document, xDWin& window)
{
    return Make(document, window, xEMEditDesc::kRxWaveCard);
}

xCard* xEMWaveCard::Make(xEMWinDesc& document, xDWin& window, const char* title)
{
    auto* card = new xEMWaveCard(document, title, &window, window.CardFrame());
    card->AddOrientationSelector(document.format->clasf);
    card->Selector()->SetCode(document.current);
    card->EnableSelector(!document.sharedMode);
    if (const xEMWaveform* block = card->logic.Block()) {
        card->SetWaveform(&block->table, false);
        card->SetWindows(&document.system->windows, false);
        // A card that never came on top still applies its units at Save.
        card->PlotUnits()->SetText(block->amplitudeUnit);
    }
    return card;
}

xEMWaveCard::xEMWaveCard(xEMDesc& document, const std::string& title, xDWin* window, const QRect& frame)
    : xEMTableCard(window, frame), logic(document, title, this)
{
    SetTitle(title);
    Build();
}

void xEMWaveCard::Build()
{
    const int line = LineHeight();
    const int rowHeight = std::max(xEditBox::kFieldHeight, line + 6);
    const QSize selector = SelectorSize();
    // The waveform's title and two-line column labels stand above its grid,
    // the selector and the windows' title above the other.
    const int gridTop =
        std::max(kMargin + line + 4 + 2 * line + 4, kMargin + selector.height() + kGap + line + 4);
    const int columnTop = gridTop - 2 * line - 6;

    auto label = [this](const char* text, const QRect& place, Qt::Alignment alignment) {
        auto* view = new QLabel(QString::fromUtf8(text), this);
        view->setAlignment(alignment);
        view->setGeometry(place);
        return view;
    };
    // A grid may grow to hold its numbers: what stands beside and below it
    // follows the place it took.
    xGridEdView* waveform =
        AddGrid(Logic::kWaveformGrid, QRect(kMargin, gridTop, GridWidth(3), GridHeight(Logic::kVisibleRows)),
                Logic::kVisibleRows, 3, Logic::kWaveformRows, 3, "WForm");
    label("WAVEFORM", QRect(kMargin, columnTop - line - 4, waveform->width(), line + 2), Qt::AlignLeft | Qt::AlignVCenter);
    const char* const columns[] = {"nominal\ntime", "nominal\namplitude", "error"};
    for (int c = 0; c < 3; ++c) {
        const QRect cell = waveform->Grid()->Cell(0, c)->geometry();
        label(columns[c], QRect(kMargin + cell.x(), columnTop, cell.width(), 2 * line + 4),
              Qt::AlignHCenter | Qt::AlignBottom);
    }
    const int windowsLeft = waveform->geometry().right() + 1 + 2 * kGap;
    xGridEdView* windows =
        AddGrid(Logic::kWindowsGrid, QRect(windowsLeft, gridTop, GridWidth(2), GridHeight(Logic::kVisibleRows)),
                Logic::kVisibleRows, 2, Logic::kWindowRows, 2, "windows");
    label("WINDOWS", QRect(windowsLeft, gridTop - line - 4, windows->width(), line + 2), Qt::AlignLeft | Qt::AlignVCenter);
    SetSelectorPlace(QPoint(windowsLeft, kMargin));
    const int gridBottom = std::max(waveform->geometry().bottom(), windows->geometry().bottom()) + 1;
    const int plotLeft = windowsLeft + std::max(windows->width(), selector.width()) + 2 * kGap;

    // The plot: the waveform first, so that it sets the ranges the bars share.
    plot = new x2DGPort(this, QRect(plotLeft, kMargin, kPlotWidth, gridBottom - rowHeight - kGap - kMargin));
    curve = new x2DGLine(plot);
    curve->SetPen(kCurvePen);
    bars = new x2DGBars(plot);
    bars->SetPen(kBarPen);
    waveform->SetDependentPort(curve);
    windows->SetDependentPort(bars);

    const int unitsLabel = TextWidth("PLOT UNITS") + 12;
    auto* units = new xEditBox(this, QRect(plotLeft, gridBottom - rowHeight, kPlotWidth, rowHeight),
                               kPlotWidth - unitsLabel, std::string(), "PLOT UNITS");
    units->SetId(Logic::kPlotUnits);
    AddView(Logic::kPlotUnits, units);

    int y = std::max(gridBottom, units->geometry().bottom() + 1) + kGap;
    const int buttonHeight = ButtonHeight();
    int x = kMargin;
    const std::pair<long, const char*> buttons[] = {
        {Logic::kScaleButton, "EDIT WAVEFORM AMPLITUDE SCALE"}, {Logic::kWeightsButton, "EDIT WINDOW AMPLITUDE FACTORS"}};
    const long commands[] = {Logic::kEditScale, Logic::kEditWeights};
    for (int i = 0; i < 2; ++i) {
        QPushButton* button = AddButton(buttons[i].first, buttons[i].second, commands[i]);
        const int width = std::max(button->sizeHint().width(), TextWidth(buttons[i].second) + 24);
        button->setGeometry(x, y, width, buttonHeight);
        x += width + kGap;
    }
    y += buttonHeight + kGap;
    QCheckBox* common = AddCommonBox(" waveform/geometry common to all TR orientations.");
    common->setGeometry(QRect(QPoint(kMargin, y), common->sizeHint()));

    AddPromptItem(waveform->geometry(), Logic::kWaveformPrompt);
    AddPromptItem(windows->geometry(), Logic::kWindowsPrompt);
}

xEditBox* xEMWaveCard::PlotUnits() const
{
    return dynamic_cast<xEditBox*>(View(Logic::kPlotUnits));
}

void xEMWaveCard::SetWaveform(const FloatMatrix* table, bool redraw)
{
    Grid(Logic::kWaveformGrid)->SetTable(table, redraw);
}

void xEMWaveCard::SetWindows(const FloatMatrix* table, bool redraw)
{
    Grid(Logic::kWindowsGrid)->SetTable(table, redraw);
}

void xEMWaveCard::GetWaveform(FloatMatrix& table) const
{
    Grid(Logic::kWaveformGrid)->GetTable(table);
}

void xEMWaveCard::GetWindows(FloatMatrix& table) const
{
    Grid(Logic::kWindowsGrid)->GetTable(table);
}

int xEMWaveCard::GetWindowCount() const
{
    return Grid(Logic::kWindowsGrid)->RowsInUse(0);
}

void xEMWaveCard::Load()
{
    const xEMSDesc* record = logic.Record();
    const xEMWaveform* block = logic.Block();
    SetWindows(record ? &record->windows : nullptr, false);
    SetWaveform(block ? &block->table : nullptr, true);
    PlotUnits()->SetText(block ? block->amplitudeUnit : std::string());
}

xEMWaveCardLogic::Values xEMWaveCard::Values() const
{
    xEMWaveCardLogic::Values values;
    GetWindows(values.windows);
    GetWaveform(values.waveform);
    PlotUnits()->GetText(values.plotUnits);
    return values;
}

bool xEMWaveCard::Apply(std::string& message)
{
    StoreTypedCells();
    const xEMSDesc* record = logic.Record();
    const FloatMatrix before = record ? record->windows : FloatMatrix();
    const bool complete = logic.Apply(Values(), message);
    if (record && record->windows != before)
        ShareWindows();
    return complete;
}

void xEMWaveCard::ShareWindows()
{
    if (!Window())
        return;
    const char* other = logic.Transmitter() ? xEMEditDesc::kRxWaveCard : xEMEditDesc::kTxWaveCard;
    auto* sibling = dynamic_cast<xEMWaveCard*>(Window()->FindCard(other));
    if (sibling && sibling->logic.Record() == logic.Record())
        sibling->SetWindows(&logic.Record()->windows, false);
}
