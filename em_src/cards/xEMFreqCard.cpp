#include "cards/xEMFreqCard.h"

#include "cards/xTROrientationSelector.h"
#include "frame/xDWin.h"
#include "frame/xEMWinDesc.h"
#include "model/xEMSDesc.h"
#include "widgets/xGridEdView.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace {

using Logic = xEMFreqCardLogic;

constexpr int kMargin = 12;
constexpr int kGap = 10;

} // namespace

xCard* xEMFreqCard::Make(xEMWinDesc& document, xDWin& window)
{
    auto* card = new xEMFreqCard(document, &window, window.CardFrame());
    card->AddOrientationSelector(document.format->clasf);
    card->Selector()->SetCode(document.current);
    card->EnableSelector(!document.sharedMode);
    if (document.system)
        card->SetFrequencies(&document.system->frequencies, false);
    return card;
}

xEMFreqCard::xEMFreqCard(xEMDesc& document, xDWin* window, const QRect& frame)
    : xEMTableCard(window, frame), logic(document, this)
{
    SetTitle(xEMEditDesc::kFrequencyCard);
    Build();
}

void xEMFreqCard::Build()
{
    const int line = LineHeight();
    const int gridTop = kMargin + line + 4;
    xGridEdView* grid =
        AddGrid(Logic::kFrequencyGrid, QRect(kMargin, gridTop, GridWidth(1), GridHeight(Logic::kVisibleRows)),
                Logic::kVisibleRows, 1, Logic::kFrequencyRows, 1, "Freq.");
    auto* title = new QLabel(QStringLiteral("FREQUENCIES (Hz)"), this);
    title->setGeometry(kMargin, kMargin, std::max(grid->width(), title->sizeHint().width()), line + 2);

    // Right of the grid, whatever room it took: the scale button, the
    // selector, the weights button.
    const int left = grid->geometry().right() + 1 + 2 * kGap;
    const int buttonHeight = ButtonHeight();
    const char* const scaleText = "EDIT WAVEFORM AMPLITUDE SCALE";
    const char* const weightsText = "EDIT FREQUENCY AMPLITUDE FACTORS";
    const int buttonWidth = std::max(TextWidth(scaleText), TextWidth(weightsText)) + 24;
    int y = gridTop;
    AddButton(Logic::kScaleButton, scaleText, Logic::kEditScale)->setGeometry(left, y, buttonWidth, buttonHeight);
    y += buttonHeight + kGap;
    SetSelectorPlace(QPoint(left, y));
    y += SelectorSize().height() + kGap;
    AddButton(Logic::kWeightsButton, weightsText, Logic::kEditWeights)->setGeometry(left, y, buttonWidth, buttonHeight);

    QCheckBox* common = AddCommonBox(" frequencies/geometry common to all TR orientations.");
    common->setGeometry(QRect(QPoint(kMargin, grid->geometry().bottom() + 1 + kGap), common->sizeHint()));

    AddPromptItem(grid->geometry(), Logic::kFrequencyPrompt);
}

void xEMFreqCard::SetFrequencies(const FloatMatrix* table, bool redraw)
{
    Grid(Logic::kFrequencyGrid)->SetTable(table, redraw);
}

void xEMFreqCard::GetFrequencies(FloatMatrix& table) const
{
    Grid(Logic::kFrequencyGrid)->GetTable(table);
}

void xEMFreqCard::Load()
{
    const xEMSDesc* record = logic.Record();
    SetFrequencies(record ? &record->frequencies : nullptr, true);
}

xEMFreqCardLogic::Values xEMFreqCard::Values() const
{
    xEMFreqCardLogic::Values values;
    GetFrequencies(values.frequencies);
    return values;
}

bool xEMFreqCard::Apply(std::string& message)
{
    StoreTypedCells();
    return logic.Apply(Values(), message);
}
