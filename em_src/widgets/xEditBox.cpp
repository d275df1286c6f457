#include "widgets/xEditBox.h"

#include "gui/xPlatform.h"
#include "widgets/xEditField.h"
#include "widgets/xNumberText.h"

#include <QLabel>

#include <limits>

const char* const xEditBox::kValidationPattern = "[(+-)]#+[.#+][(eE)(+-)#[#][#]]";

xEditBox::xEditBox(QWidget* parent, const QRect& frame, int fieldWidth, const std::string& text,
                   const std::string& labelText, const std::string& fmt)
    : xCommandView(parent), type(kText), value(new xEditValue(xEditValue::kText, this)), format(fmt)
{
    Build(frame, fieldWidth, labelText);
    value->Keep(text);
    SetText(text);
}

xEditBox::xEditBox(QWidget* parent, const QRect& frame, int fieldWidth, long number,
                   const std::string& labelText, const std::string& fmt)
    : xCommandView(parent), type(kLong), value(new xEditValue(xEditValue::kLong, this)), format(fmt)
{
    Build(frame, fieldWidth, labelText);
    SetValue(number);
}

xEditBox::xEditBox(QWidget* parent, const QRect& frame, int fieldWidth, float number,
                   const std::string& labelText, const std::string& fmt)
    : xCommandView(parent), type(kFloat), value(new xEditValue(xEditValue::kFloat, this)), format(fmt)
{
    Build(frame, fieldWidth, labelText);
    SetValue(number);
}

xEditBox::~xEditBox() = default;

void xEditBox::Build(const QRect& frame, int fieldWidth, const std::string& labelText)
{
    setGeometry(frame);
    if (fieldWidth <= 0)
        fieldWidth = kDefaultFieldWidth;
    field = new xEditField(this, kFocusIn, kFocusOut, kReturn);
    field->setGeometry(frame.width() - fieldWidth, 0, fieldWidth, kFieldHeight);
    if (!labelText.empty()) {
        label = new QLabel(QString::fromStdString(labelText), this);
        label->move(4, 4);
        label->resize(std::max(0, frame.width() - fieldWidth - 8), kFieldHeight - 4);
    }
}

void xEditBox::NarrowField(int by)
{
    if (field)
        field->resize(std::max(0, field->width() - by), field->height());
}

void xEditBox::SetLabelFont(const QFont& font)
{
    if (label)
        label->setFont(font);
}

void xEditBox::SetLabel(const std::string& text)
{
    if (label)
        label->setText(QString::fromStdString(text));
}

void xEditBox::SetFieldFont(const QFont& font)
{
    if (field)
        field->setFont(font);
}

std::string xEditBox::FieldText() const
{
    return field ? field->text().toStdString() : std::string();
}

void xEditBox::SetText(const std::string& text)
{
    if (!field || FieldText() == text)
        return;
    field->setText(QString::fromStdString(text));
    field->update();
}

std::string xEditBox::FormatFor(int32_t ofType) const
{
    if (!format.empty())
        return format;
    return ofType == kLong ? "%ld" : "%5.2e";
}

void xEditBox::SetValue(long number, const std::string& fmt)
{
    if (type != kLong && type != kFloat) {
        PostNote("Attempt to set illegal value, xEditBox.");
        return;
    }
    if (!fmt.empty())
        format = fmt;
    if (type == kLong)
        value->Keep(static_cast<int32_t>(number));
    else
        value->Keep(static_cast<float>(number));
    SetText(xNumberText::FormatLong(FormatFor(type), number));
}

void xEditBox::SetValue(float number, const std::string& fmt)
{
    if (type != kFloat) {
        PostNote("Attempt to set illegal value, xEditBox.");
        return;
    }
    if (!fmt.empty())
        format = fmt;
    value->Keep(number);
    SetText(xNumberText::Format(FormatFor(type), number));
}

void xEditBox::GetText(std::string& text) const
{
    if (field)
        text = FieldText();
}

void xEditBox::GetInt(int& number) const
{
    if (!field)
        return;
    if (type != kLong) {
        PostNote("Attempt to get int from illegal xEditBox.");
        return;
    }
    int32_t converted = xNumberText::Atol(FieldText());
    if (converted <= std::numeric_limits<int32_t>::min()) {
        PostNote("Value in long xEditBox box too large to be converted to integer.");
        return;
    }
    number = converted;
}

void xEditBox::GetLong(long& number) const
{
    if (!field)
        return;
    if (type != kLong) {
        PostNote("Attempt to get long from illegal xEditBox.");
        return;
    }
    number = xNumberText::Atol(FieldText());
}

void xEditBox::GetFloat(float& number) const
{
    if (!field)
        return;
    if (type != kLong && type != kFloat) {
        PostNote("Attempt to get float from illegal xEditBox.");
        return;
    }
    number = xNumberText::Atof(FieldText());
}

void xEditBox::Enable(bool on)
{
    setEnabled(on);
}

void xEditBox::DoCommand(long command, void* data)
{
    switch (command) {
    case kFocusIn:
        lastText = FieldText();
        break;
    case kFocusOut: {
        std::string text = FieldText();
        if (text != lastText) {
            lastText = text;
            if (type == kText) {
                value->SetText(text);
            } else if (type == kFloat) {
                float number = xNumberText::Atof(text);
                if (number != value->Float())
                    value->SetFloat(number);
            }
        }
        break;
    }
    case xEditValue::kTextChanged:
    case xEditValue::kFloatChanged:
    case xEditValue::kLongChanged:
        // The value object's events are shown in the field.
        if (data == value.get()) {
            if (command == xEditValue::kTextChanged)
                SetText(value->Text());
            else if (command == xEditValue::kFloatChanged)
                SetValue(value->Float());
            else
                SetValue(static_cast<long>(value->Long()));
        }
        break;
    default:
        break;
    }
    xCommandView::DoCommand(command, data);
}
