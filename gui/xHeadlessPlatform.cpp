#include "gui/xHeadlessPlatform.h"

#include <cstdlib>
#include <iostream>

xHeadlessPlatform::xHeadlessPlatform() : out(&std::cerr) {}

xHeadlessPlatform::xHeadlessPlatform(std::ostream& messages) : out(&messages) {}

void xHeadlessPlatform::Line(const char* kind, const std::string& text)
{
    // A message of several lines stays one line of output.
    std::string flat;
    flat.reserve(text.size());
    for (char c : text)
        flat += (c == '\n' || c == '\r') ? ' ' : c;
    *out << kind << ": " << flat << '\n';
    out->flush();
}

void xHeadlessPlatform::Note(const std::string& text) { Line("note", text); }

void xHeadlessPlatform::Warning(const std::string& text) { Line("warning", text); }

void xHeadlessPlatform::Error(const std::string& text) { Line("error", text); }

void xHeadlessPlatform::FatalExit(const std::string& text)
{
    Line("fatal", text);
    if (fatalHook)
        fatalHook();
    std::exit(2);
}

int xHeadlessPlatform::Ask(const std::string& first, const std::string&, const std::string&,
                           const std::string& text)
{
    Line("question", text + " [" + first + "]");
    return 0;
}

int xHeadlessPlatform::ChooseFile(const xFileDialogRequest&, std::string&)
{
    return 1;
}

bool xHeadlessPlatform::HasClipboardText() { return hasClipboard; }

std::string xHeadlessPlatform::GetClipboardText() { return clipboard; }

void xHeadlessPlatform::PutClipboardText(const std::string& text)
{
    clipboard = text;
    hasClipboard = true;
}

void xHeadlessPlatform::Beep() {}

void xHeadlessPlatform::ScreenSize(int& width, int& height)
{
    width = 1024;
    height = 768;
}

void xHeadlessPlatform::SetFatalHook(std::function<void()> hook)
{
    fatalHook = std::move(hook);
}
