#include "gui/xPlatform.h"

#include "gui/xHeadlessPlatform.h"
#include "numeric/xCNumber.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace {

xPlatform* installed = nullptr;

// Messages show numbers as the files hold them, with ".", in any locale.
std::string VFormat(const char* format, va_list args)
{
    return xCNumber::VPrintf(format, args);
}

} // namespace

xPlatform::xPlatform()
{
    startupDirectory = CurrentDirectory();
}

xPlatform::~xPlatform() = default;

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Arguments at blanks; a double quote starts and ends a part with blanks in it.
std::vector<std::string> SplitArguments(const std::string& text)
{
    std::vector<std::string> words;
    std::string word;
    bool inWord = false, quoted = false;
    for (char c : text) {
        if (c == '"') {
            quoted = !quoted;
            inWord = true;
        } else if (IsBlank(c) && !quoted) {
            if (inWord)
                words.push_back(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord)
        words.push_back(word);
    return words;
}

} // namespace

void xPlatform::SplitCommand(const std::string& commandLine, std::string& program,
                             std::vector<std::string>& arguments)
{
    program.clear();
    arguments.clear();
    size_t start = 0;
    while (start < commandLine.size() && IsBlank(commandLine[start]))
        ++start;
    if (start == commandLine.size())
        return;
    size_t rest = std::string::npos;
    if (commandLine[start] == '"') {
        size_t close = commandLine.find('"', start + 1);
        program = commandLine.substr(start + 1, close == std::string::npos ? std::string::npos : close - start - 1);
        rest = close == std::string::npos ? commandLine.size() : close + 1;
    } else {
        // Each end of a word, from the left, closes a candidate path.
        size_t firstEnd = std::string::npos;
        for (size_t at = start; at <= commandLine.size(); ++at) {
            bool end = at == commandLine.size() || IsBlank(commandLine[at]);
            if (!end || IsBlank(commandLine[at - 1]))
                continue;
            if (firstEnd == std::string::npos)
                firstEnd = at;
            std::string candidate = commandLine.substr(start, at - start);
            std::string found;
            if (FindProgram(candidate, found)) {
                program = candidate;
                rest = at;
                break;
            }
        }
        // None is a program: the first word is the one that wasn't found.
        if (program.empty()) {
            program = commandLine.substr(start, firstEnd - start);
            rest = firstEnd;
        }
    }
    arguments = SplitArguments(commandLine.substr(std::min(rest, commandLine.size())));
}

bool xPlatform::StartCommand(const std::string& commandLine)
{
    std::string program;
    std::vector<std::string> arguments;
    SplitCommand(commandLine, program, arguments);
    return !program.empty() && StartProgram(program, arguments);
}

bool xPlatform::FindProgram(const std::string& name, std::string& path)
{
    if (name.empty())
        return false;
    if (name.find('/') != std::string::npos) {
        xFileStatus status;
        if (!StatFile(name, status) || !status.regular || access(name.c_str(), X_OK) != 0)
            return false;
        path = name;
        return true;
    }
    const char* variable = std::getenv("PATH");
    std::string dirs = variable ? variable : "/usr/bin:/bin";
    size_t start = 0;
    while (start <= dirs.size()) {
        size_t end = dirs.find(':', start);
        if (end == std::string::npos)
            end = dirs.size();
        std::string candidate = dirs.substr(start, end - start) + "/" + name;
        if (access(candidate.c_str(), X_OK) == 0) {
            path = candidate;
            return true;
        }
        start = end + 1;
    }
    return false;
}

bool xPlatform::StartProgram(const std::string& program, const std::vector<std::string>& arguments)
{
    std::string path;
    if (!FindProgram(program, path))
        return false;
    pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0) {
        // Detach: the grandchild runs the program, the child ends at once.
        if (fork() != 0)
            _exit(0);
        setsid();
        std::vector<char*> argv;
        argv.push_back(const_cast<char*>(program.c_str()));
        for (const auto& argument : arguments)
            argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        execv(path.c_str(), argv.data());
        _exit(127);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return true;
}

bool xPlatform::StatFile(const std::string& path, xFileStatus& status)
{
    struct stat st;
    if (path.empty() || ::stat(path.c_str(), &st) != 0)
        return false;
    status.regular = S_ISREG(st.st_mode);
    status.directory = S_ISDIR(st.st_mode);
    status.ownerRead = (st.st_mode & S_IRUSR) != 0;
    status.ownerWrite = (st.st_mode & S_IWUSR) != 0;
    status.ownerExecute = (st.st_mode & S_IXUSR) != 0;
    // The mode bit decides, also for root; a file we can't write anyway counts
    // as not writable.
    if (status.ownerWrite && access(path.c_str(), W_OK) != 0)
        status.ownerWrite = false;
    status.links = static_cast<int64_t>(st.st_nlink);
    status.size = static_cast<int64_t>(st.st_size);
    status.accessTime = st.st_atime;
    status.modifyTime = st.st_mtime;
    status.changeTime = st.st_ctime;
    return true;
}

bool xPlatform::RemoveFile(const std::string& path)
{
    return !path.empty() && ::unlink(path.c_str()) == 0;
}

std::string xPlatform::CurrentDirectory()
{
    std::vector<char> buffer(PATH_MAX + 1);
    if (::getcwd(buffer.data(), buffer.size()) == nullptr)
        return std::string();
    return std::string(buffer.data());
}

bool xPlatform::SetCurrentDirectory(const std::string& path)
{
    return !path.empty() && ::chdir(path.c_str()) == 0;
}

std::string xPlatform::StartupDirectory()
{
    return startupDirectory;
}

std::string xPlatform::ModulePath()
{
    std::vector<char> buffer(PATH_MAX + 1);
    ssize_t length = ::readlink("/proc/self/exe", buffer.data(), buffer.size() - 1);
    if (length <= 0)
        return std::string();
    return std::string(buffer.data(), static_cast<size_t>(length));
}

xPlatform& Platform()
{
    if (installed)
        return *installed;
    static xHeadlessPlatform fallback;
    return fallback;
}

void SetPlatform(xPlatform* platform)
{
    installed = platform;
}

std::string FormatText(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VFormat(format, args);
    va_end(args);
    return text;
}

void PostNote(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VFormat(format, args);
    va_end(args);
    Platform().Note(text);
}

void PostWarning(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VFormat(format, args);
    va_end(args);
    Platform().Warning(text);
}

void PostError(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VFormat(format, args);
    va_end(args);
    Platform().Error(text);
}

void PostFatalExit(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VFormat(format, args);
    va_end(args);
    Platform().FatalExit(text);
    std::abort();   // not reached: every platform ends the process or throws
}

int PostAsk(const char* first, const char* second, const char* third, const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = VFormat(format, args);
    va_end(args);
    return Platform().Ask(first ? first : "", second ? second : "", third ? third : "", text);
}
