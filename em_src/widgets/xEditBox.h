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
// right edge of the frame, the label at the left. Getters convert the text as
// it stands (atol/atof: rubbish reads as far as it is a number, else 0); a
// getter or setter that doesn't fit the type says so with a note and leaves its
// argument alone.
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
    void GetFloat(float& value) const;

    // The box's enabling; a box may refuse it.
    virtual void Enable(bool on);

    void DoCommand(long command, void* data) override;

    xEditField* Field() const { return field; }
    QLabel* Label() const { return label; }
    const std::string& LastText() const { return lastText; }
    const xEditValue& Value() const { return *value; }
    const std::string& Format() const { return format; }

protected:
    // Shortens the field from the right, to make room beside it.
    void NarrowField(int by);

private:
    void Build(const QRect& frame, int fieldWidth, const std::string& labelText);
    std::string FormatFor(int32_t ofType) const;
    std::string FieldText() const;

    int32_t type;
    QLabel* label = nullptr;
    xEditField* field = nullptr;
    std::string lastText;
    std::unique_ptr<xEditValue> value;
    std::string format;
};

#endif
