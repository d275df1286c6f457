#ifndef TOLVAD_WIDGETS_XMULTIPLEBEDITBOX_H
#define TOLVAD_WIDGETS_XMULTIPLEBEDITBOX_H

#include "widgets/xMultipleEditBox.h"

class xFlagEditBox;

// A column of fields with check boxes. Besides the values it exchanges masks
// of the check states, and single items can be toggled, switched off for good
// or hidden, the column closing over a hidden item.
class xMultipleBEditBox : public xMultipleEditBox {
public:
    // checks holds the initial states with indices from 1; missing ones are clear.
    xMultipleBEditBox(QWidget* parent, const QRect& frame, const FloatArray& values,
                      const std::vector<std::string>& labels, const LongArray& checks,
                      int fieldWidth, int gap, const std::string& format = std::string());
    xMultipleBEditBox(QWidget* parent, const QRect& frame, const LongArray& values,
                      const std::vector<std::string>& labels, const LongArray& checks,
                      int fieldWidth, int gap, const std::string& format = std::string());

    xFlagEditBox* FlagItem(int index) const;

    // New arrays with the bounds 1 to the larger of count and 1.
    LongArray GetCheckedMask() const;
    LongArray GetClearedMask() const;
    void SetCheckedMask(const LongArray& mask);
    void SetClearedMask(const LongArray& mask);
    // As a click on the item's check box; an index outside 1 to count is ignored.
    void ToggleItem(int index);
    void SetValueWhenChecked(double number);
    void SetValueWhenCleared(double number);
    void MakeItemPermanentlyDisable(int index);
    void HideItem(int index);

private:
    void SetMask(const LongArray& mask, bool checkedWhenSet);
};

#endif
