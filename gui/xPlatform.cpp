#include "gui/xPlatform.h"

#include "gui/xHeadlessPlatform.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

xPlatform* installed = nullptr;

std::string VFormat(const char* format, va_list args)
{
    va_list copy;
    va_copy(copy, args);
    int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (length <= 0)
        return std::string();
    std::vector<char> buffer(static_cast<size_t>(length) + 1);
    std::vsnprintf(buffer.data(), buffer.size(), format, args);
    return std::string(buffer.data(), static_cast<size_t>(length));
}

} // namespace

xPlatform::xPlatform()
{
    startupDirectory = CurrentDirectory();
}

xPlatform::~xPlatform() = default;

bool xPlatform::StartProgram(const std::string& commandLine)
{
    // Split at blanks; the first word must name an executable program.
    std::vector<std::string> words;
    std::string word;
    for (char c : commandLine) {
        if (c == ' ' || c == '\t') {
            if (!word.empty())
                words.push_back(word);
            word.clear();
        } else {
            word += c;
        }
    }
    if (!word.empty())
        words.push_back(word);
    if (words.empty())
        return false;
    std::string program = words[0];
    if (program.find('/') == std::string::npos) {
        const char* path = std::getenv("PATH");
        std::string dirs = path ? path : "/usr/bin:/bin";
        std::string found;
        size_t start = 0;
        while (start <= dirs.size()) {
            size_t end = dirs.find(':', start);
            if (end == std::string::npos)
                end = dirs.size();
            std::string candidate = dirs.substr(start, end - start) + "/" + program;
            if (access(candidate.c_str(), X_OK) == 0) {
                found = candidate;
                break;
            }
            start = end + 1;
        }
        if (found.empty())
            return false;
        program = found;
    } else if (access(program.c_str(), X_OK) != 0) {
        return false;
    }
    pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0) {
        // Detach: the grandchild runs the program, the child ends at once.
        if (fork() != 0)
            _exit(0);
        setsid();
        std::vector<char*> argv;
        for (auto& w : words)
            argv.push_back(const_cast<char*>(w.c_str()));
        argv.push_back(nullptr);
        execv(program.c_str(), argv.data());
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
