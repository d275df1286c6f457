#ifndef TOLVAD_WIDGETS_XEDITVALUE_H
#define TOLVAD_WIDGETS_XEDITVALUE_H

#include "gui/xCommandTarget.h"

#include <cstdint>
#include <string>

// The data value behind an entry field: a text, a long or a float. A change
// raises its data event at the owner with the value as data: 10020 for a text,
// 10026 for a float, 10027 for a long.
class xEditValue {
public:
    enum Kind { kText = 0, kLong = 1, kFloat = 2 };
    enum Event { kTextChanged = 10020, kFloatChanged = 10026, kLongChanged = 10027 };

    xEditValue(Kind kind, xCommandTarget* owner) : kind(kind), owner(owner) {}

    Kind GetKind() const { return kind; }
    const std::string& Text() const { return text; }
    int32_t Long() const { return longValue; }
    float Float() const { return floatValue; }

    // Stores and raises the event.
    void SetText(const std::string& value);
    void SetLong(int32_t value);
    void SetFloat(float value);

    // Stores without an event, to keep in step with what the field was given.
    void Keep(const std::string& value) { text = value; }
    void Keep(int32_t value) { longValue = value; }
    void Keep(float value) { floatValue = value; }

private:
    void Raise(long event);

    Kind kind;
    xCommandTarget* owner;
    std::string text;
    int32_t longValue = 0;
    float floatValue = 0.0f;
};

#endif
