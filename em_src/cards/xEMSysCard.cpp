#include "cards/xEMSysCard.h"

#include "frame/xDWin.h"
#include "frame/xEMWinDesc.h"
#include "frame/xListButton.h"
#include "model/xEMSHeader.h"
#include "model/xTROrientation.h"
#include "widgets/xEditBox.h"
#include "widgets/xModalEdWin.h"
#include "widgets/xVectorEdWin.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QLabel>

#include <algorithm>

const char* const xEMSysCard::kTxOrientationGroup = "Transmitter orientation";
const char* const xEMSysCard::kRxOrientationGroup = "Receiver orientation";

namespace {

using Logic = xEMSysCardLogic;

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kTextFieldWidth = 260;
const char* const kNumberFormat = "%10.7e";
// The widest text a number box shows in its format.
const char* const kWidestNumber = "-8.8888888e-88";

// The views that only the time domain has, in the order they leave.
const long kTimeDomainIds[] = {Logic::kTxKindLabel, Logic::kTxKind, Logic::kRxKindLabel, Logic::kRxKind,
                               Logic::kHalfPeriod, Logic::kTimeUnit, Logic::kNominalHalfPeriod};

} // namespace

xCard* xEMSysCard::Make(xEMWinDesc& document, xDWin& window)
{
    auto* card = new xEMSysCard(document, &window, window.CardFrame());
    if (document.header->IsFrequencyDomain())
        card->HideTimeDomainItems();
    card->ShowClassification(document.format->clasf);
    return card;
}

xEMSysCard::xEMSysCard(xEMDesc& document, xDWin* window, const QRect& frame)
    : xCard(window, frame), logic(document, this)
{
    Build();
    Load();
}

void xEMSysCard::Build()
{
    const xEMSHeader& header = logic.Header();
    QFontMetrics metrics(font());
    auto textWidth = [&metrics](const char* text) { return metrics.horizontalAdvance(QString::fromUtf8(text)); };
    const int labelWidth =
        12 + std::max({textWidth("SYSTEM NAME"), textWidth("VERSION"), textWidth("DEFINED BY"),
                       textWidth("DATE DEFINED"), textWidth("HALFPERIOD (real time)"),
                       textWidth("HALFPERIOD (nominal time)")});
    const int numberWidth = std::max(xEditBox::kDefaultFieldWidth, textWidth(kWidestNumber) + 16);
    // The identity fields show what the file holds whole.
    int textFieldWidth = kTextFieldWidth;
    for (const std::string* text : {&header.systemName, &header.systemVersion, &header.definedBy, &header.dateDefined})
        textFieldWidth = std::max(textFieldWidth, metrics.horizontalAdvance(QString::fromStdString(*text)) + 16);
    const int rowHeight = std::max(xEditBox::kFieldHeight, metrics.height() + 6);
    int y = kMargin;
    int right = 0;

    auto addBox = [&](long id, const char* label, int fieldWidth, auto value, const std::string& format) {
        QRect place(kMargin, y, labelWidth + 8 + fieldWidth, rowHeight);
        auto* box = new xEditBox(this, place, fieldWidth, value, label, format);
        box->SetId(id);
        AddView(id, box);
        right = std::max(right, place.right());
        y += rowHeight + 6;
        return box;
    };
    addBox(Logic::kSystemName, "SYSTEM NAME", textFieldWidth, std::string(), std::string());
    addBox(Logic::kSystemVersion, "VERSION", textFieldWidth, std::string(), std::string());
    addBox(Logic::kDefinedBy, "DEFINED BY", textFieldWidth, std::string(), std::string());
    addBox(Logic::kDateDefined, "DATE DEFINED", textFieldWidth, std::string(), std::string());

    // The four lists stand under their labels, two in a row.
    struct Choice {
        long labelId;
        const char* label;
        long id;
        long command;
        const std::vector<std::string>* choices;
    };
    const Choice choices[] = {
        {0, "WAVEFORM TYPE", Logic::kWaveformType, Logic::kWaveformTypeChosen, &header.waveformTypes},
        {Logic::kNormalizedByLabel, "WAVEFORM NORMALIZED BY", Logic::kNormalizedBy, 0, &header.normalizations},
        {Logic::kTxKindLabel, "TRANSMITTER CURRENT WAVEFORM", Logic::kTxKind, Logic::kTxKindChosen,
         &header.waveformKinds},
        {Logic::kRxKindLabel, "RECEIVER PRIMARY FIELD", Logic::kRxKind, Logic::kRxKindChosen, &header.waveformKinds},
    };
    std::vector<QLabel*> labels;
    std::vector<xListButton*> lists;
    int columnWidth = 0;
    for (const Choice& choice : choices) {
        auto* label = new QLabel(QString::fromUtf8(choice.label), this);
        auto* list = new xListButton(this, choice.id, choice.command, *choice.choices);
        if (choice.labelId)
            AddView(choice.labelId, label);
        AddView(choice.id, list);
        labels.push_back(label);
        lists.push_back(list);
        columnWidth = std::max({columnWidth, label->sizeHint().width(), list->NeededWidth()});
    }
    const int labelHeight = metrics.height() + 2;
    const int listHeight = std::max(rowHeight, lists.front()->sizeHint().height());
    y += 4;
    for (size_t i = 0; i < lists.size(); ++i) {
        int x = kMargin + static_cast<int>(i % 2) * (columnWidth + 3 * kGap);
        int top = y + static_cast<int>(i / 2) * (labelHeight + listHeight + kGap);
        labels[i]->setGeometry(x, top, columnWidth, labelHeight);
        lists[i]->setGeometry(x, top + labelHeight, columnWidth, listHeight);
        right = std::max(right, x + columnWidth);
    }
    y += 2 * (labelHeight + listHeight + kGap) + 4;

    std::string format(kNumberFormat);
    xEditBox* real = addBox(Logic::kHalfPeriod, "HALFPERIOD (real time)", numberWidth, 0.0f, format);
    auto* unit = new xListButton(this, Logic::kTimeUnit, 0, header.timeUnits);
    AddView(Logic::kTimeUnit, unit);
    QRect unitPlace(real->geometry().right() + kGap, real->y(), unit->NeededWidth(),
                    std::max(rowHeight, unit->sizeHint().height()));
    unit->setGeometry(unitPlace);
    right = std::max(right, unitPlace.right());
    addBox(Logic::kNominalHalfPeriod, "HALFPERIOD (nominal time)", numberWidth, 0.0f, format);

    // The classification at the right: one box per orientation code.
    const int groupLeft = right + 4 * kGap;
    int groupY = kMargin;
    for (const char* line : {"Transmitter/Receiver", "classification"}) {
        auto* title = new QLabel(QString::fromUtf8(line), this);
        title->setGeometry(groupLeft, groupY, title->sizeHint().width(), labelHeight);
        groupY += labelHeight;
    }
    groupY += 4;
    for (int code = kFirstOrientationCode; code <= kLastOrientationCode; ++code) {
        auto* box = new QCheckBox(QString::fromStdString(CodeName(code)), this);
        long id = Logic::kFirstOrientationBox + (code - kFirstOrientationCode);
        AddView(id, box);
        box->setGeometry(groupLeft + kGap, groupY, box->sizeHint().width(), std::max(rowHeight, box->sizeHint().height()));
        groupY += std::max(rowHeight, box->sizeHint().height());
        QObject::connect(box, &QCheckBox::clicked, this, [this, box](bool on) {
            xCommandView::Send(box, on ? xEMEditDesc::kAddOrientation : xEMEditDesc::kRemoveOrientation, box);
        });
    }
    // The undefined orientation is no choice of the user.
    OrientationBox(kFirstOrientationCode)->setEnabled(false);

    for (QObject* child : children())
        if (auto* view = qobject_cast<QWidget*>(child))
            visibleViews.push_back(view);
}

void xEMSysCard::Load()
{
    const xEMSHeader& header = logic.Header();
    Box(Logic::kSystemName)->SetText(header.systemName);
    Box(Logic::kSystemVersion)->SetText(header.systemVersion);
    Box(Logic::kDefinedBy)->SetText(header.definedBy);
    Box(Logic::kDateDefined)->SetText(header.dateDefined);
    List(Logic::kWaveformType)->Select(header.waveformType);
    List(Logic::kNormalizedBy)->Select(header.normalizedBy);
    List(Logic::kTxKind)->Select(header.txKind);
    List(Logic::kRxKind)->Select(header.rxKind);
    Box(Logic::kHalfPeriod)->SetValue(header.halfPeriod);
    List(Logic::kTimeUnit)->Select(header.timeUnit);
    Box(Logic::kNominalHalfPeriod)->SetValue(header.nominalHalfPeriod);
}

xEditBox* xEMSysCard::Box(long id) const
{
    return dynamic_cast<xEditBox*>(View(id));
}

xListButton* xEMSysCard::List(long id) const
{
    return dynamic_cast<xListButton*>(View(id));
}

QCheckBox* xEMSysCard::OrientationBox(int code) const
{
    return qobject_cast<QCheckBox*>(View(Logic::kFirstOrientationBox + (code - kFirstOrientationCode)));
}

xEMSysCardLogic::Values xEMSysCard::Values() const
{
    xEMSysCardLogic::Values values;
    Box(Logic::kSystemName)->GetText(values.systemName);
    Box(Logic::kSystemVersion)->GetText(values.systemVersion);
    Box(Logic::kDefinedBy)->GetText(values.definedBy);
    Box(Logic::kDateDefined)->GetText(values.dateDefined);
    values.waveformType = List(Logic::kWaveformType)->SelectedText();
    values.normalizedBy = List(Logic::kNormalizedBy)->SelectedText();
    Box(Logic::kHalfPeriod)->GetFloat(values.halfPeriod);
    Box(Logic::kNominalHalfPeriod)->GetFloat(values.nominalHalfPeriod);
    values.txKind = List(Logic::kTxKind)->SelectedText();
    values.rxKind = List(Logic::kRxKind)->SelectedText();
    values.timeUnit = List(Logic::kTimeUnit)->SelectedText();
    return values;
}

bool xEMSysCard::Apply(std::string& message)
{
    return logic.Apply(Values(), message);
}

void xEMSysCard::SetFrequencyDomain(bool frequency)
{
    if (frequency)
        HideTimeDomainItems();
    else
        ShowTimeDomainItems();
}

void xEMSysCard::SetTimeDomainShown(bool shown)
{
    for (long id : kTimeDomainIds) {
        QWidget* view = View(id);
        visibleViews.erase(std::remove(visibleViews.begin(), visibleViews.end(), view), visibleViews.end());
        if (shown)
            visibleViews.push_back(view);
        else
            view->hide();
    }
    if (Window() && Window()->IsSelected(this))
        ShowAnew();
    QRect area = View(Logic::kTxKindLabel)->geometry().united(View(Logic::kNominalHalfPeriod)->geometry());
    update(area);
}

void xEMSysCard::HideTimeDomainItems()
{
    SetTimeDomainShown(false);
}

void xEMSysCard::ShowTimeDomainItems()
{
    SetTimeDomainShown(true);
}

void xEMSysCard::ShowAnew()
{
    // Only the views to be shown: the framework would show all of them.
    setEnabled(true);
    for (QWidget* view : visibleViews)
        view->show();
}

void xEMSysCard::ShowClassification(const LongArray& checks)
{
    for (int code = kFirstOrientationCode; code <= kLastOrientationCode; ++code) {
        QCheckBox* box = OrientationBox(code);
        const QSignalBlocker quiet(box);
        box->setChecked(checks.InRange(code) && checks[code] != 0);
    }
}

LongArray xEMSysCard::GetClassification() const
{
    LongArray checks(kFirstOrientationCode, kLastOrientationCode);
    for (int code = kFirstOrientationCode; code <= kLastOrientationCode; ++code)
        checks[code] = OrientationBox(code)->isChecked() ? 1 : 0;
    return checks;
}

void xEMSysCard::TimeScaling()
{
    FloatArray values = logic.TimeScaling();
    xVectorEdWin dialog(this, "Time scaling", 250);
    dialog.SetUpUserItem(&values, Logic::TimeScalingLabels(List(Logic::kTimeUnit)->SelectedText()));
    dialog.Run();
    if (!xModalEdWin::Cancelled)
        logic.TakeTimeScaling(values);
}

void xEMSysCard::DoCommand(long command, void* data)
{
    switch (command) {
    case Logic::kTxKindChosen:
        logic.ChooseTxKind(List(Logic::kTxKind)->SelectedText());
        return;
    case Logic::kRxKindChosen:
        logic.ChooseRxKind(List(Logic::kRxKind)->SelectedText());
        return;
    case Logic::kWaveformTypeChosen:
        logic.ChooseWaveformType(List(Logic::kWaveformType)->SelectedText());
        ShowAnew();
        return;
    case Logic::kTimeScaling:
        TimeScaling();
        return;
    default:
        xCard::DoCommand(command, data);
    }
}
