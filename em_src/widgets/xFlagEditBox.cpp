#include "widgets/xFlagEditBox.h"

#include "widgets/xEditField.h"

#include <QCheckBox>

#include <algorithm>

xFlagEditBox::xFlagEditBox(QWidget* parent, const QRect& frame, int fieldWidth, long number,
                           const std::string& labelText, bool state, const std::string& fmt)
    : xEditBox(parent, frame, fieldWidth, number, labelText, fmt), checked(state)
{
    BuildFlag();
}

xFlagEditBox::xFlagEditBox(QWidget* parent, const QRect& frame, int fieldWidth, float number,
                           const std::string& labelText, bool state, const std::string& fmt)
    : xEditBox(parent, frame, fieldWidth, number, labelText, fmt), checked(state)
{
    BuildFlag();
}

int xFlagEditBox::RightRoom() const
{
    return flagBox ? std::max(kFlagWidth, flagBox->sizeHint().width()) : 0;
}

void xFlagEditBox::Layout()
{
    xEditBox::Layout();
    if (flagBox && Field())
        flagBox->setGeometry(Field()->geometry().right() + 1, 0, RightRoom(), Field()->height());
}

void xFlagEditBox::BuildFlag()
{
    // On the window's own grey, as the style paints it.
    flagBox = new QCheckBox(this);
    flagBox->setChecked(checked);
    // Only the user's clicks send commands; SetChecked sets the state quietly.
    QObject::connect(flagBox, &QCheckBox::clicked, this,
                     [this](bool on) { DoCommand(on ? kChecked : kCleared, flagBox); });
    Layout();
}

void xFlagEditBox::SetChecked(bool state)
{
    checked = state;
    if (flagBox)
        flagBox->setChecked(state);
}

void xFlagEditBox::WritePreset(double number)
{
    if (Type() == kFloat)
        SetValue(static_cast<float>(number));
    else if (Type() == kLong)
        SetValue(static_cast<long>(number));
}

void xFlagEditBox::MakePermanentlyDisabled(bool state)
{
    permanentlyDisabled = state;
    setEnabled(!state);
    if (Field())
        Field()->setEnabled(!state);
    if (flagBox)
        flagBox->setEnabled(!state);
}

void xFlagEditBox::Enable(bool on)
{
    if (permanentlyDisabled)
        return;
    xEditBox::Enable(on);
}

void xFlagEditBox::DoCommand(long command, void* data)
{
    switch (command) {
    case kChecked:
        if (valueWhenChecked)
            WritePreset(*valueWhenChecked);
        DoCommand(kCheckedEvent, this);
        break;
    case kCleared:
        if (valueWhenCleared)
            WritePreset(*valueWhenCleared);
        DoCommand(kClearedEvent, this);
        break;
    case kCheckedEvent:
    case kClearedEvent:
        if (data == this)
            SetChecked(command == kCheckedEvent);
        break;
    default:
        break;
    }
    xEditBox::DoCommand(command, data);
}
