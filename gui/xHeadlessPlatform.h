#ifndef TOLVAD_GUI_XHEADLESSPLATFORM_H
#define TOLVAD_GUI_XHEADLESSPLATFORM_H

#include "gui/xPlatform.h"

#include <functional>
#include <iosfwd>

// The platform of the command-line tool: every message is one line on standard
// error ("note: TEXT", "warning: TEXT", "error: TEXT", "fatal: TEXT"), a
// question takes its first button, a fatal exit ends the process with status 2,
// the file dialog is cancelled, and the clipboard lives in memory.
class xHeadlessPlatform : public xPlatform {
public:
    xHeadlessPlatform();
    explicit xHeadlessPlatform(std::ostream& messages);

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

    // Runs just before a fatal exit ends the process, e.g. to remove a
    // half-written file.
    void SetFatalHook(std::function<void()> hook);

private:
    void Line(const char* kind, const std::string& text);

    std::ostream* out;
    std::string clipboard;
    bool hasClipboard = false;
    std::function<void()> fatalHook;
};

#endif
