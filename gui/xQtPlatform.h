#ifndef TOLVAD_GUI_XQTPLATFORM_H
#define TOLVAD_GUI_XQTPLATFORM_H

#include "gui/xPlatform.h"

#include <functional>

class QWidget;

// The platform of the editor: Qt message boxes and file dialogs, the system
// clipboard, the primary screen and detached program starts. Needs a running
// QApplication.
class xQtPlatform : public xPlatform {
public:
    xQtPlatform();

    void Note(const std::string& text) override;
    void Warning(const std::string& text) override;
    void Error(const std::string& text) override;
    [[noreturn]] void FatalExit(const std::string& text) override;
    int Ask(const std::string& first, const std::string& second, const std::string& third,
            const std::string& text) override;
    int ChooseFile(const xFileDialogRequest& request, std::string& chosenPath) override;
    bool HasClipboardText() override;
    std::string GetClipboardText() override;
    void PutClipboardText(const std::string& text) override;
    void Beep() override;
    void ScreenSize(int& width, int& height) override;
    bool StartProgram(const std::string& program, const std::vector<std::string>& arguments) override;

    // The window that message boxes and dialogs belong to; null for none.
    void SetDialogParent(QWidget* parent) { dialogParent = parent; }
    // Runs just before a fatal exit ends the process.
    void SetFatalHook(std::function<void()> hook) { fatalHook = std::move(hook); }

    // The name filter that QFileDialog gets for a request: the pattern in any
    // letter case, e.g. "Open file <DSC> (*.[dD][sS][cC])".
    static std::string FilterFor(const xFileDialogRequest& request);

private:
    QWidget* dialogParent = nullptr;
    std::function<void()> fatalHook;
};

#endif
