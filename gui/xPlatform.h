#ifndef TOLVAD_GUI_XPLATFORM_H
#define TOLVAD_GUI_XPLATFORM_H

// The one seam between the editor's logic and the machine it runs on: message
// boxes and questions, the file dialog, the file system, the clipboard, the
// screen and the starting of other programs. Logic reaches it through
// Platform(); the editor installs a Qt implementation, the command-line tool a
// headless one, and tests a recording one.

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

// What a status query of a path tells.
struct xFileStatus {
    bool regular = false;
    bool directory = false;
    bool ownerRead = false;
    bool ownerWrite = false;
    bool ownerExecute = false;
    int64_t links = 0;
    int64_t size = 0;
    std::time_t accessTime = 0;
    std::time_t modifyTime = 0;
    std::time_t changeTime = 0;
};

// One request to the platform's file dialog. The filter is a single entry.
struct xFileDialogRequest {
    bool isOpen = true;              // open form, else save form
    std::string title;               // the prompt shown as the dialog's title
    std::string directory;           // where the dialog starts
    std::string suggestedName;       // save form only: the name proposed
    std::string filterDescription;   // "Open file <DSC>"
    std::string filterPattern;       // "*.DSC", matched in any letter case
    std::string defaultExtension;    // appended by the save form when none is typed
};

class xPlatform {
public:
    enum MessageKind { kNote, kWarning, kError, kFatal };

    virtual ~xPlatform();

    // Modal messages; each returns when acknowledged.
    virtual void Note(const std::string& text) = 0;
    virtual void Warning(const std::string& text) = 0;
    virtual void Error(const std::string& text) = 0;
    // Shows the text, then ends the process. Never returns.
    [[noreturn]] virtual void FatalExit(const std::string& text) = 0;
    // Modal question with two or three buttons (an empty third means none);
    // returns 0, 1 or 2 for the first, second or third button.
    virtual int Ask(const std::string& first, const std::string& second,
                    const std::string& third, const std::string& text) = 0;

    // The file dialog: 0 failed, 1 cancelled, 2 chosen (the full path in chosenPath).
    virtual int ChooseFile(const xFileDialogRequest& request, std::string& chosenPath) = 0;

    // Clipboard text.
    virtual bool HasClipboardText() = 0;
    virtual std::string GetClipboardText() = 0;
    virtual void PutClipboardText(const std::string& text) = 0;

    virtual void Beep() = 0;
    virtual void ScreenSize(int& width, int& height) = 0;

    // Starts a program detached with its arguments; the program's path is
    // taken whole, blanks and all. False when it can't be started.
    virtual bool StartProgram(const std::string& program, const std::vector<std::string>& arguments);
    // Starts a command line: the program's path, then its arguments. A path
    // may hold blanks: unless it is quoted, the shortest run of words from the
    // left that names a program is the program, as the launcher's command
    // lines have always been read; the rest are the arguments, split at
    // blanks, quotes keeping a blank inside one. False when nothing starts.
    bool StartCommand(const std::string& commandLine);
    // The program a name stands for: a name with a "/" as it is, a bare one
    // found on PATH; false when there is no such program.
    virtual bool FindProgram(const std::string& name, std::string& path);
    // How StartCommand reads a command line.
    void SplitCommand(const std::string& commandLine, std::string& program,
                      std::vector<std::string>& arguments);

    // File system; the defaults work on the real file system of the machine.
    virtual bool StatFile(const std::string& path, xFileStatus& status);
    virtual bool RemoveFile(const std::string& path);      // true when removed
    virtual std::string CurrentDirectory();
    virtual bool SetCurrentDirectory(const std::string& path);
    // The directory the program was started from.
    virtual std::string StartupDirectory();
    // The full path of the running program.
    virtual std::string ModulePath();

protected:
    xPlatform();

private:
    std::string startupDirectory;
};

// The platform in force. There is always one: a headless platform until another
// is installed.
xPlatform& Platform();
// Installs a platform (not owned); null restores the headless default.
void SetPlatform(xPlatform* platform);

// printf-style forms of the messages, as the rest of the system calls them.
void PostNote(const char* format, ...) __attribute__((format(printf, 1, 2)));
void PostWarning(const char* format, ...) __attribute__((format(printf, 1, 2)));
void PostError(const char* format, ...) __attribute__((format(printf, 1, 2)));
[[noreturn]] void PostFatalExit(const char* format, ...) __attribute__((format(printf, 1, 2)));
// Question: returns 0, 1 or 2 for first, second, third; third may be null.
int PostAsk(const char* first, const char* second, const char* third, const char* format, ...)
    __attribute__((format(printf, 4, 5)));

// printf into a std::string.
std::string FormatText(const char* format, ...) __attribute__((format(printf, 1, 2)));

#endif
