#include "widgets/xMultipleEditBox.h"

#include "widgets/xEditBox.h"

#include <algorithm>

xMultipleEditBox::xMultipleEditBox(QWidget* parent, const QRect& frame, int itemCount,
                                   const std::string& fmt)
    : xCommandView(parent), count(itemCount), format(fmt)
{
    setGeometry(frame);
}

xMultipleEditBox::xMultipleEditBox(QWidget* parent, const QRect& frame, const FloatArray& values,
                                   const std::vector<std::string>& labels, int fieldWidth, int gap,
                                   const std::string& fmt)
    : xMultipleEditBox(parent, frame, static_cast<int>(labels.size()), fmt)
{
    BuildItems(gap, [&](const QRect& itemFrame, int i) {
        int at = values.Lower() + i - 1;
        float value = values.InRange(at) ? values[at] : 0.0f;
        return new xEditBox(this, itemFrame, fieldWidth, value, labels[i - 1], format);
    });
}

xMultipleEditBox::xMultipleEditBox(QWidget* parent, const QRect& frame, const LongArray& values,
                                   const std::vector<std::string>& labels, int fieldWidth, int gap,
                                   const std::string& fmt)
    : xMultipleEditBox(parent, frame, static_cast<int>(labels.size()), fmt)
{
    BuildItems(gap, [&](const QRect& itemFrame, int i) {
        int at = values.Lower() + i - 1;
        long value = values.InRange(at) ? values[at] : 0L;
        return new xEditBox(this, itemFrame, fieldWidth, value, labels[i - 1], format);
    });
}

void xMultipleEditBox::BuildItems(int gap, const Maker& make)
{
    int top = 0;
    int widest = width();
    for (int i = 1; i <= count; ++i) {
        xEditBox* item = make(QRect(0, top, width(), xEditBox::kFieldHeight), i);
        item->SetId(i);
        items.push_back(item);
        // An item taller than a field height (a larger font) pushes the next down.
        top += item->height() + gap;
        widest = std::max(widest, item->width());
    }
    // One column: the fields of all items end at the same right edge.
    for (xEditBox* item : items)
        item->StretchTo(widest);
    int bottom = items.empty() ? 0 : items.back()->geometry().bottom() + 1;
    resize(widest, std::max(height(), bottom + 8));
}

xEditBox* xMultipleEditBox::Item(int index) const
{
    for (xEditBox* item : items)
        if (item->GetId() == index)
            return item;
    return nullptr;
}

void xMultipleEditBox::SetValues(const FloatArray& values, const std::string& fmt)
{
    for (int i = 1; i <= count; ++i) {
        int at = values.Lower() + i - 1;
        if (values.InRange(at))
            Item(i)->SetValue(values[at], fmt);
    }
}

void xMultipleEditBox::SetValues(const LongArray& values, const std::string& fmt)
{
    for (int i = 1; i <= count; ++i) {
        int at = values.Lower() + i - 1;
        if (values.InRange(at))
            Item(i)->SetValue(static_cast<long>(values[at]), fmt);
    }
}

bool xMultipleEditBox::GetValues(FloatArray& values) const
{
    values.Resize(1, Top());
    values = 0.0f;
    bool all = true;
    for (int i = 1; i <= count; ++i)
        all = Item(i)->GetFloat(values[i]) && all;
    return all;
}

LongArray xMultipleEditBox::GetLongValues() const
{
    LongArray values(1, Top());
    values = 0;
    for (int i = 1; i <= count; ++i) {
        float number = 0.0f;
        Item(i)->GetFloat(number);
        // Truncated like a C conversion, but kept inside the 32-bit range.
        double clamped = std::max(-2147483648.0, std::min(2147483647.0, static_cast<double>(number)));
        values[i] = static_cast<int32_t>(clamped);
    }
    return values;
}

void xMultipleEditBox::SetFieldFonts(const QFont& font)
{
    for (xEditBox* item : items)
        item->SetFieldFont(font);
}
