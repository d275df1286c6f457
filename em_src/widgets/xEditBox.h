#ifndef TOLVAD_WIDGETS_XEDITBOX_H
#define TOLVAD_WIDGETS_XEDITBOX_H

#include "widgets/xCommandView.h"
#include "widgets/xEditValue.h"

#include <QRect>

#include <cstdint>
#include <memory>
#include <string>

class QLabel;
class xEditField;

// A labelled entry field for one text, long or float. The field stands at the
// right edge of the frame, the label at the left on the baseline of the
// field's text. The sizes given are the least: a number field is at least as
// wide as the widest number of its format, the label shows whole, and the box
// grows to the right and down to hold both. Getters convert the text as it
// stands (atol/atof: rubbish reads as far as it is a number, else 0); a getter
// or setter that doesn't fit the type says so with a note and leaves its
// argument alone, and so does a float getter given a number no float holds.
class xEditBox : public xCommandView {
public:
    enum Type { kText = 0, kLong = 1, kFloat = 2 };
    enum Command { kFocusIn = 9980, kReturn = 9982, kFocusOut = 9986 };
    static constexpr int kFieldHeight = 23;
    static constexpr int kDefaultFieldWidth = 90;
    // The picture of a valid number: # a digit, [] optional, () a choice. Kept
    // for a typing check that no field applies yet.
    static const char* const kValidationPattern;

    xEditBox(QWidget* parent, const QRect& frame, int fieldWidth, const std::string& value,
             const std::string& label, const std::string& format = std::string());
    xEditBox(QWidget* parent, const QRect& frame, int fieldWidth, long value,
             const std::string& label, const std::string& format = std::string());
    xEditBox(QWidget* parent, const QRect& frame, int fieldWidth, float value,
             const std::string& label, const std::string& format = std::string());
    ~xEditBox() override;

    int32_t Type() const { return type; }

    void SetLabelFont(const QFont& font);
    void SetLabel(const std::string& text);
    void SetFieldFont(const QFont& font);

    void SetText(const std::string& text);
    void SetValue(long value, const std::string& format = std::string());
    void SetValue(float value, const std::string& format = std::string());

    void GetText(std::string& text) const;
    void GetInt(int& value) const;
    void GetLong(long& value) const;
    // False when the value was left alone.
    bool GetFloat(float& value) const;

    // Widens the box to at least this width, the field keeping to the right edge.
    void StretchTo(int width);

    // The box's enabling; a box may refuse it.
    virtual void Enable(bool on);

    void DoCommand(long command, void* data) override;

    xEditField* Field() const { return field; }
    QLabel* Label() const { return label; }
    const std::string& LastText() const { return lastText; }
    const xEditValue& Value() const { return *value; }
    const std::string& Format() const { return format; }

protected:
    // Room a derived box keeps at the right of the field, taken from the
    // field width the caller gave.
    virtual int RightRoom() const { return 0; }
    // Places label and field, growing the box until both show whole; derived
    // boxes place what they add at the right.
    void Layout() override;

private:
    void Build(const QRect& frame, int fieldWidth, const std::string& labelText);
    std::string FormatFor(int32_t ofType) const;
    std::string FieldText() const;
    // The widest text the box's format gives, for the width of the field.
    QString WidestText() const;

    int32_t type;
    QLabel* label = nullptr;
    xEditField* field = nullptr;
    std::string lastText;
    std::unique_ptr<xEditValue> value;
    std::string format;
    QSize givenSize;
    int givenFieldWidth = kDefaultFieldWidth;
    bool laying = false;
};

#endif
