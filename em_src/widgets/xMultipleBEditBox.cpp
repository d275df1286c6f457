#include "widgets/xMultipleBEditBox.h"

#include "gui/xPlatform.h"
#include "widgets/xFlagEditBox.h"

namespace {
bool CheckOf(const LongArray& checks, int i)
{
    return checks.InRange(i) && checks[i] != 0;
}
} // namespace

xMultipleBEditBox::xMultipleBEditBox(QWidget* parent, const QRect& frame, const FloatArray& values,
                                     const std::vector<std::string>& labels, const LongArray& checks,
                                     int fieldWidth, int gap, const std::string& format)
    : xMultipleEditBox(parent, frame, static_cast<int>(labels.size()), format)
{
    BuildItems(gap, [&](const QRect& itemFrame, int i) {
        int at = values.Lower() + i - 1;
        float value = values.InRange(at) ? values[at] : 0.0f;
        return new xFlagEditBox(this, itemFrame, fieldWidth, value, labels[i - 1], CheckOf(checks, i),
                                format);
    });
}

xMultipleBEditBox::xMultipleBEditBox(QWidget* parent, const QRect& frame, const LongArray& values,
                                     const std::vector<std::string>& labels, const LongArray& checks,
                                     int fieldWidth, int gap, const std::string& format)
    : xMultipleEditBox(parent, frame, static_cast<int>(labels.size()), format)
{
    BuildItems(gap, [&](const QRect& itemFrame, int i) {
        int at = values.Lower() + i - 1;
        long value = values.InRange(at) ? values[at] : 0L;
        return new xFlagEditBox(this, itemFrame, fieldWidth, value, labels[i - 1], CheckOf(checks, i),
                                format);
    });
}

xFlagEditBox* xMultipleBEditBox::FlagItem(int index) const
{
    return static_cast<xFlagEditBox*>(Item(index));
}

LongArray xMultipleBEditBox::GetCheckedMask() const
{
    LongArray mask(1, Top());
    mask = 0;
    for (int i = 1; i <= Count(); ++i)
        if (FlagItem(i)->IsChecked())
            mask[i] = 1;
    return mask;
}

LongArray xMultipleBEditBox::GetClearedMask() const
{
    LongArray mask(1, Top());
    mask = 1;
    for (int i = 1; i <= Count(); ++i)
        if (FlagItem(i)->IsChecked())
            mask[i] = 0;
    return mask;
}

void xMultipleBEditBox::SetMask(const LongArray& mask, bool checkedWhenSet)
{
    for (int i = 1; i <= Count(); ++i)
        FlagItem(i)->SetChecked(CheckOf(mask, i) == checkedWhenSet);
}

void xMultipleBEditBox::SetCheckedMask(const LongArray& mask)
{
    SetMask(mask, true);
}

void xMultipleBEditBox::SetClearedMask(const LongArray& mask)
{
    SetMask(mask, false);
}

void xMultipleBEditBox::ToggleItem(int index)
{
    if (index < 1 || index > Count())
        return;
    xFlagEditBox* item = FlagItem(index);
    item->DoCommand(item->IsChecked() ? xFlagEditBox::kCleared : xFlagEditBox::kChecked, item->FlagBox());
}

void xMultipleBEditBox::SetValueWhenChecked(double number)
{
    for (int i = 1; i <= Count(); ++i)
        FlagItem(i)->SetValueWhenChecked(number);
}

void xMultipleBEditBox::SetValueWhenCleared(double number)
{
    for (int i = 1; i <= Count(); ++i)
        FlagItem(i)->SetValueWhenCleared(number);
}

void xMultipleBEditBox::MakeItemPermanentlyDisable(int index)
{
    xFlagEditBox* item = FlagItem(index);
    if (!item) {
        PostWarning("xMultipleBEditBox::MakeItemPermanentlyDisable - Attempt to disable non-existent item.");
        return;
    }
    item->MakePermanentlyDisabled(true);
}

void xMultipleBEditBox::HideItem(int index)
{
    xFlagEditBox* item = FlagItem(index);
    if (!item) {
        PostWarning("xMultipleBEditBox::HideItem - Attempt to hide non-existent item.");
        return;
    }
    int top = item->y();
    item->hide();
    // Each following item takes the place of the one before it.
    for (int i = index + 1; i <= Count(); ++i) {
        xFlagEditBox* next = FlagItem(i);
        if (!next) {
            PostWarning("xMultipleBEditBox::HideItem - Attempt to move non-existent item.");
            continue;
        }
        int nextTop = next->y();
        next->move(next->x(), top);
        top = nextTop;
    }
}
