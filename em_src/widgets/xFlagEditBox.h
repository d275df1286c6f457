#ifndef TOLVAD_WIDGETS_XFLAGEDITBOX_H
#define TOLVAD_WIDGETS_XFLAGEDITBOX_H

#include "widgets/xEditBox.h"

#include <optional>

class QCheckBox;

// An entry field with a check box at its right, taken from the field width
// given. Checking or clearing may write a preset number into the field; the
// box can be switched off for good, so that a later general enabling leaves it
// off. Switched off for good it looks as any disabled box does.
class xFlagEditBox : public xEditBox {
public:
    enum Command { kChecked = 9984, kCleared = 9985, kCheckedEvent = 10028, kClearedEvent = 10029 };
    static constexpr int kFlagWidth = 23;

    xFlagEditBox(QWidget* parent, const QRect& frame, int fieldWidth, long value,
                 const std::string& label, bool checked, const std::string& format = std::string());
    xFlagEditBox(QWidget* parent, const QRect& frame, int fieldWidth, float value,
                 const std::string& label, bool checked, const std::string& format = std::string());

    void SetValueWhenChecked(double number) { valueWhenChecked = number; }
    void SetValueWhenCleared(double number) { valueWhenCleared = number; }
    void Check() { SetChecked(true); }
    void Uncheck() { SetChecked(false); }
    void SetChecked(bool state);
    bool IsChecked() const { return checked; }
    void MakePermanentlyDisabled(bool state);
    bool IsPermanentlyDisabled() const { return permanentlyDisabled; }

    void Enable(bool on) override;
    void DoCommand(long command, void* data) override;

    QCheckBox* FlagBox() const { return flagBox; }

protected:
    int RightRoom() const override;
    void Layout() override;

private:
    void BuildFlag();
    void WritePreset(double number);

    QCheckBox* flagBox = nullptr;
    bool checked;
    std::optional<double> valueWhenChecked;
    std::optional<double> valueWhenCleared;
    bool permanentlyDisabled = false;
};

#endif
