#include "gui/xRecordingPlatform.h"

xRecordingPlatform::xRecordingPlatform()
{
    SetPlatform(this);
}

xRecordingPlatform::~xRecordingPlatform()
{
    SetPlatform(nullptr);
}

void xRecordingPlatform::Note(const std::string& text) { messages.push_back({kNote, text}); }

void xRecordingPlatform::Warning(const std::string& text) { messages.push_back({kWarning, text}); }

void xRecordingPlatform::Error(const std::string& text) { messages.push_back({kError, text}); }

void xRecordingPlatform::FatalExit(const std::string& text)
{
    messages.push_back({kFatal, text});
    throw xFatalExitError(text);
}

int xRecordingPlatform::Ask(const std::string& first, const std::string& second,
                            const std::string& third, const std::string& text)
{
    questions.push_back({first, second, third, text});
    if (answers.empty())
        return 0;
    int answer = answers.front();
    answers.pop_front();
    return answer;
}

int xRecordingPlatform::ChooseFile(const xFileDialogRequest& request, std::string& chosenPath)
{
    dialogRequests.push_back(request);
    if (dialogs.empty())
        return 1;
    Dialog next = dialogs.front();
    dialogs.pop_front();
    if (next.result == 2)
        chosenPath = next.path;
    return next.result;
}

bool xRecordingPlatform::HasClipboardText() { return hasClipboard; }

std::string xRecordingPlatform::GetClipboardText() { return clipboard; }

void xRecordingPlatform::PutClipboardText(const std::string& text)
{
    clipboard = text;
    hasClipboard = true;
}

void xRecordingPlatform::Beep() { ++beeps; }

void xRecordingPlatform::ScreenSize(int& width, int& height)
{
    width = screenWidth;
    height = screenHeight;
}

bool xRecordingPlatform::StartProgram(const std::string& program, const std::vector<std::string>& arguments)
{
    std::vector<std::string> attempt{program};
    attempt.insert(attempt.end(), arguments.begin(), arguments.end());
    startedPrograms.push_back(attempt);
    std::string path;
    return FindProgram(program, path);
}

bool xRecordingPlatform::FindProgram(const std::string& name, std::string& path)
{
    for (const auto& allowed : startable)
        if (allowed == name) {
            path = name;
            return true;
        }
    return false;
}

std::vector<std::string> xRecordingPlatform::Texts(MessageKind kind) const
{
    std::vector<std::string> texts;
    for (const auto& m : messages)
        if (m.kind == kind)
            texts.push_back(m.text);
    return texts;
}

std::string xRecordingPlatform::Transcript() const
{
    static const char* names[] = {"note", "warning", "error", "fatal"};
    std::string all;
    for (const auto& m : messages)
        all += std::string(names[m.kind]) + ": " + m.text + "\n";
    return all;
}

void xRecordingPlatform::Clear()
{
    messages.clear();
    questions.clear();
    dialogRequests.clear();
    startedPrograms.clear();
    beeps = 0;
}
