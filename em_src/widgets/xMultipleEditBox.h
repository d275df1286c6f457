#ifndef TOLVAD_WIDGETS_XMULTIPLEEDITBOX_H
#define TOLVAD_WIDGETS_XMULTIPLEEDITBOX_H

#include "widgets/xCommandView.h"

#include "numeric/FloatArray.h"
#include "numeric/LongArray.h"

#include <QRect>

#include <functional>
#include <string>
#include <vector>

class xEditBox;

// A column of labelled long or float fields, one per label, with ids 1 to
// count, that exchanges whole arrays. Item i+1 stands a field height plus the
// gap below item i; the box ends 8 pixels below the last item and is as wide
// as its widest item, all fields ending at one right edge. Arrays handed out
// have the bounds 1 to the larger of count and 1.
class xMultipleEditBox : public xCommandView {
public:
    xMultipleEditBox(QWidget* parent, const QRect& frame, const FloatArray& values,
                     const std::vector<std::string>& labels, int fieldWidth, int gap,
                     const std::string& format = std::string());
    xMultipleEditBox(QWidget* parent, const QRect& frame, const LongArray& values,
                     const std::vector<std::string>& labels, int fieldWidth, int gap,
                     const std::string& format = std::string());

    int Count() const { return count; }
    // The item with this id, or null.
    xEditBox* Item(int index) const;

    void SetValues(const FloatArray& values, const std::string& format = std::string());
    void SetValues(const LongArray& values, const std::string& format = std::string());
    // False when an item held a number no float holds; its entry is then 0.
    bool GetValues(FloatArray& values) const;
    // A long array can't be resized to one element, so it comes as a new one.
    LongArray GetLongValues() const;
    void SetFieldFonts(const QFont& font);

protected:
    // For columns of other items: the derived class builds them with BuildItems.
    xMultipleEditBox(QWidget* parent, const QRect& frame, int count, const std::string& format);
    using Maker = std::function<xEditBox*(const QRect& itemFrame, int index)>;
    void BuildItems(int gap, const Maker& make);
    // The bounds of the arrays handed out.
    int Top() const { return std::max(count, 1); }

    std::vector<xEditBox*> items;

private:
    int count;
    std::string format;
};

#endif
