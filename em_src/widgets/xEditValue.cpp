#include "widgets/xEditValue.h"

void xEditValue::SetText(const std::string& value)
{
    text = value;
    Raise(kTextChanged);
}

void xEditValue::SetLong(int32_t value)
{
    longValue = value;
    Raise(kLongChanged);
}

void xEditValue::SetFloat(float value)
{
    floatValue = value;
    Raise(kFloatChanged);
}

void xEditValue::Raise(long event)
{
    if (owner)
        owner->DoCommand(event, this);
}
