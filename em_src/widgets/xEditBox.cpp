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

namespace {
// The label's distance from the box's left edge and from the field.
const int kLabelLeft = 4;
const int kLabelGap = 4;
} // namespace

void xEditBox::Build(const QRect& frame, int fieldWidth, const std::string& labelText)
{
    move(frame.topLeft());
    givenSize = frame.size();
    givenFieldWidth = fieldWidth > 0 ? fieldWidth : kDefaultFieldWidth;
    field = new xEditField(this, kFocusIn, kFocusOut, kReturn);
    if (!labelText.empty()) {
        label = new QLabel(QString::fromStdString(labelText), this);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    Layout();
}

QString xEditBox::WidestText() const
{
    if (type == kText)
        return QString();
    return QString::fromStdString(xNumberText::WidestText(FormatFor(type)));
}

void xEditBox::Layout()
{
    if (!field || laying)
        return;
    laying = true;
    const int right = RightRoom();
    const int fieldWidth = std::max(givenFieldWidth - right, type == kText ? 0 : field->WidthFor(WidestText()));
    const int fieldHeight = field->HeightFor(kFieldHeight);
    const int labelWidth = label ? label->sizeHint().width() : 0;
    const int needed = (label ? kLabelLeft + labelWidth + kLabelGap : 0) + fieldWidth + right;
    const int width = std::max(givenSize.width(), needed);
    resize(width, std::max(givenSize.height(), fieldHeight));
    field->setGeometry(width - right - fieldWidth, 0, fieldWidth, fieldHeight);
    if (label) {
        // The label's text stands on the baseline of the field's text.
        const QFontMetrics metrics(label->font());
        const int top = field->y() + field->TextBaseline() - metrics.ascent();
        label->setGeometry(kLabelLeft, top, std::max(labelWidth, field->x() - kLabelGap - kLabelLeft),
                           metrics.height());
    }
    laying = false;
}

void xEditBox::StretchTo(int width)
{
    if (width <= givenSize.width())
        return;
    givenSize.setWidth(width);
    Layout();
}

void xEditBox::SetLabelFont(const QFont& font)
{
    if (label) {
        label->setFont(font);
        Layout();
    }
}

void xEditBox::SetLabel(const std::string& text)
{
    if (label) {
        label->setText(QString::fromStdString(text));
        Layout();
    }
}

void xEditBox::SetFieldFont(const QFont& font)
{
    if (field) {
        field->setFont(font);
        Layout();
    }
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
    if (!fmt.empty() && fmt != format) {
        format = fmt;
        Layout();
    }
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
    if (!fmt.empty() && fmt != format) {
        format = fmt;
        Layout();
    }
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

bool xEditBox::GetFloat(float& number) const
{
    if (!field)
        return false;
    if (type != kLong && type != kFloat) {
        PostNote("Attempt to get float from illegal xEditBox.");
        return false;
    }
    if (!xNumberText::ReadFloat(FieldText(), number)) {
        PostNote("%s", xNumberText::kBeyondFloatNote);
        return false;
    }
    return true;
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
                float number = value->Float();
                if (!xNumberText::ReadFloat(text, number)) {
                    // Nothing is stored; the field shows again what is.
                    PostNote("%s", xNumberText::kBeyondFloatNote);
                    SetValue(value->Float());
                    lastText = FieldText();
                } else if (number != value->Float()) {
                    value->SetFloat(number);
                }
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
