#ifndef TOLVAD_GUI_XRECORDINGPLATFORM_H
#define TOLVAD_GUI_XRECORDINGPLATFORM_H

#include "gui/xPlatform.h"

#include <deque>
#include <stdexcept>
#include <string>
#include <vector>

// Thrown by the recording platform in place of ending the process, so that a
// test can see the fatal text. Only tests use it.
class xFatalExitError : public std::runtime_error {
public:
    explicit xFatalExitError(const std::string& text) : std::runtime_error(text) {}
};

// The platform of the tests: keeps every message with its kind, answers
// questions and file dialogs from a script, and installs itself for its
// lifetime.
class xRecordingPlatform : public xPlatform {
public:
    struct Message {
        MessageKind kind;
        std::string text;
    };
    struct Question {
        std::string first, second, third, text;
    };
    struct Dialog {
        int result;          // 0 failed, 1 cancelled, 2 chosen
        std::string path;    // the chosen full path
    };

    xRecordingPlatform();
    ~xRecordingPlatform() override;

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
    // The listed programs are the ones that exist.
    bool FindProgram(const std::string& name, std::string& path) override;

    // Script: answers of the next questions (0 when the script is empty), the
    // results of the next file dialogs (cancel when empty), and which programs
    // exist and start (none unless listed).
    void AnswerNext(int answer) { answers.push_back(answer); }
    void ChooseNext(int result, const std::string& path = std::string())
    {
        dialogs.push_back({result, path});
    }
    void AllowProgram(const std::string& program) { startable.push_back(program); }

    // What happened.
    std::vector<Message> messages;
    std::vector<Question> questions;
    std::vector<xFileDialogRequest> dialogRequests;
    // Every attempt to start, in order: the program, then its arguments.
    std::vector<std::vector<std::string>> startedPrograms;
    int beeps = 0;
    std::string clipboard;
    bool hasClipboard = false;
    int screenWidth = 1280;
    int screenHeight = 1024;

    // The texts of one kind, in order.
    std::vector<std::string> Texts(MessageKind kind) const;
    // All messages as "kind: text" lines, for readable failures.
    std::string Transcript() const;
    void Clear();

private:
    std::deque<int> answers;
    std::deque<Dialog> dialogs;
    std::vector<std::string> startable;
};

#endif
