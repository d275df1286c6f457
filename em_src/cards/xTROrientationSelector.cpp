#include "cards/xTROrientationSelector.h"

#include "model/xTROrientation.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

QLabel* ComponentLabel(QWidget* parent, const char* colour)
{
    auto* label = new QLabel(parent);
    label->setAlignment(Qt::AlignCenter);
    label->setStyleSheet(QStringLiteral("color: %1;").arg(QLatin1String(colour)));
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    // Room for the widest text the label can show, so a step never moves the buttons.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("Tundefined")));
    return label;
}

QPushButton* StepButton(QWidget* parent, const char* text, long command, xCommandView* target)
{
    auto* button = new QPushButton(QString::fromLatin1(text), parent);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);
    QObject::connect(button, &QPushButton::clicked, parent, [target, command] { target->DoCommand(command, nullptr); });
    return button;
}

} // namespace

xTROrientationSelector::xTROrientationSelector(QWidget* parent, const xTRClasf& clasf, long id)
    : xCommandView(parent, id), walk(clasf)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    previousButton = StepButton(this, "<<", kPreviousCommand, this);
    txLabel = ComponentLabel(this, "#ff0000");
    rxLabel = ComponentLabel(this, "#0000ff");
    nextButton = StepButton(this, ">>", kNextCommand, this);
    row->addWidget(previousButton);
    row->addWidget(txLabel);
    row->addWidget(rxLabel);
    row->addWidget(nextButton);
    ShowLabels();
}

void xTROrientationSelector::ShowLabels()
{
    txLabel->setText(QStringLiteral("T") + QString::fromStdString(ComponentName(walk.TxComponent())));
    rxLabel->setText(QStringLiteral("R") + QString::fromStdString(ComponentName(walk.RxComponent())));
    update();
}

void xTROrientationSelector::Announce()
{
    ShowLabels();
    sentCode = walk.Code();
    xCommandView::DoCommand(kOrientationChosen, &sentCode);
}

void xTROrientationSelector::SetCode(int32_t code)
{
    if (walk.SetCode(code))
        ShowLabels();
}

void xTROrientationSelector::RemoveOrientation(int32_t code, int32_t other)
{
    const int32_t before = walk.Code();
    walk.RemoveOrientation(code, other);
    if (walk.Code() != before)
        ShowLabels();
}

void xTROrientationSelector::AddOrientation(int32_t code, int32_t count)
{
    walk.AddOrientation(code, count);
}

void xTROrientationSelector::Next(bool fromStart)
{
    if (walk.Next(fromStart))
        Announce();
}

void xTROrientationSelector::Previous()
{
    if (walk.Previous())
        Announce();
}

void xTROrientationSelector::SetVisible(bool flag)
{
    visible = flag;
    setVisible(flag);
}

void xTROrientationSelector::DoCommand(long command, void* data)
{
    switch (command) {
    case kNextCommand:
        Next(false);
        return;
    case kPreviousCommand:
        Previous();
        return;
    default:
        xCommandView::DoCommand(command, data);
    }
}
