#include "frame/xFileReplacer.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

// Live temporary files, for the signal handler: plain memory that the handler
// may read without locks or allocation.
constexpr int kSlots = 16;
constexpr size_t kSlotPath = PATH_MAX;
char slotPaths[kSlots][kSlotPath];
volatile sig_atomic_t slotUsed[kSlots];

int TakeSlot(const char* path)
{
    const size_t length = std::strlen(path);
    if (length >= kSlotPath)
        return -1;
    for (int i = 0; i < kSlots; ++i) {
        if (!slotUsed[i]) {
            std::memcpy(slotPaths[i], path, length + 1);
            slotUsed[i] = 1;
            return i;
        }
    }
    return -1;
}

void FreeSlot(int slot)
{
    if (slot >= 0)
        slotUsed[slot] = 0;
}

extern "C" void RemoveTemporariesAndDie(int signal)
{
    for (int i = 0; i < kSlots; ++i)
        if (slotUsed[i])
            ::unlink(slotPaths[i]);
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

std::string DirectoryOf(const std::string& path)
{
    std::string::size_type slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path)
{
    std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool SyncPath(const std::string& path, int flags)
{
    int fd = ::open(path.c_str(), flags | O_CLOEXEC);
    if (fd < 0)
        return false;
    bool synced = ::fsync(fd) == 0 || errno == EINVAL;
    ::close(fd);
    return synced;
}

} // namespace

xFileReplacer::xFileReplacer(std::string path, Fallback fallback)
    : path(std::move(path)), fallback(fallback)
{
}

xFileReplacer::~xFileReplacer()
{
    Abandon();
}

bool xFileReplacer::Fail(const std::string& why)
{
    reason = why;
    return false;
}

// Follows symbolic links, so that the file they lead to is replaced and the
// links stay links. A link that leads nowhere names the file to create.
bool xFileReplacer::ResolveTarget()
{
    target = path;
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st;
        if (::lstat(target.c_str(), &st) != 0) {
            if (errno == ENOENT)
                return true;
            return Fail(std::strerror(errno));
        }
        if (!S_ISLNK(st.st_mode))
            return true;
        std::vector<char> link(static_cast<size_t>(st.st_size > 0 ? st.st_size : PATH_MAX) + 1);
        ssize_t length = ::readlink(target.c_str(), link.data(), link.size() - 1);
        if (length < 0)
            return Fail(std::strerror(errno));
        std::string next(link.data(), static_cast<size_t>(length));
        if (next.empty() || next[0] != '/')
            next = DirectoryOf(target) + "/" + next;
        target = next;
    }
    return Fail(std::strerror(ELOOP));
}

bool xFileReplacer::Begin()
{
    Abandon();
    reason.clear();
    if (NameOf(path).empty())
        return Fail("no file name");
    if (!ResolveTarget())
        return false;

    struct stat old;
    exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return Fail(S_ISDIR(old.st_mode) ? "is a directory" : "not a regular file");
    // Whoever the process is, a file with no write permission for anyone was
    // made read-only on purpose.
    if (exists && ((old.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0))
        return Fail("read-only file");

    std::string pattern = DirectoryOf(target) + "/." + NameOf(target) + ".XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    // A signal between the making of the file and its entry in the list
    // would leave it behind: hold the signals back until both are done.
    sigset_t ending, before;
    sigemptyset(&ending);
    for (int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&ending, signal);
    ::sigprocmask(SIG_BLOCK, &ending, &before);
    int fd = ::mkstemp(name.data());
    int error = errno;
    if (fd >= 0)
        slot = TakeSlot(name.data());
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    if (fd < 0) {
        if (fallback == kInPlace && exists && (error == EACCES || error == EPERM || error == EROFS)) {
            // The folder takes no new file but the file itself may be written:
            // the text is gathered first and written over it at the end.
            inPlace = true;
            begun = true;
            buffer.str(std::string());
            buffer.clear();
            return true;
        }
        return Fail(std::strerror(error));
    }
    temporary.assign(name.data());

    // mkstemp makes the file private: give it what the old file had, or what
    // a newly created file would get.
    mode_t mask = ::umask(0);
    ::umask(mask);
    mode_t mode = 0666 & ~mask;
    if (exists) {
        mode = old.st_mode & 07777;
        if (::fchown(fd, old.st_uid, old.st_gid) != 0) {
            // Not allowed to give the file away: keep at least the group when
            // the process belongs to it.
            if (::fchown(fd, static_cast<uid_t>(-1), old.st_gid) != 0)
                mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
        }
    }
    ::fchmod(fd, mode);
    ::close(fd);

    file.open(temporary, std::ios::out | std::ios::trunc | std::ios::binary);
    if (!file.is_open()) {
        int error = errno;
        DropTemporary();
        return Fail(std::strerror(error ? error : EIO));
    }
    begun = true;
    return true;
}

std::ostream& xFileReplacer::Stream()
{
    if (inPlace)
        return buffer;
    return file;
}

bool xFileReplacer::Commit()
{
    if (!begun)
        return Fail(reason.empty() ? "nothing to write" : reason);
    if (inPlace)
        return CommitInPlace();

    file.flush();
    bool good = file.good();
    file.close();
    if (!good || file.fail()) {
        Abandon();
        return Fail("write error");
    }
    if (!SyncPath(temporary, O_RDONLY)) {
        int error = errno;
        Abandon();
        return Fail(std::strerror(error));
    }
    if (std::rename(temporary.c_str(), target.c_str()) != 0) {
        int error = errno;
        Abandon();
        return Fail(std::strerror(error));
    }
    FreeSlot(slot);
    slot = -1;
    temporary.clear();
    begun = false;
    // The rename itself lasts only once the directory is on disk too.
    SyncPath(DirectoryOf(target), O_RDONLY | O_DIRECTORY);
    return true;
}

bool xFileReplacer::CommitInPlace()
{
    const std::string text = buffer.str();
    begun = false;
    inPlace = false;
    int fd = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
    if (fd < 0)
        return Fail(std::strerror(errno));
    // The last resort: the text is whole in memory, so the file is open for
    // as short a time as can be; what stands behind the new end is cut.
    size_t done = 0;
    while (done < text.size()) {
        ssize_t n = ::write(fd, text.data() + done, text.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            int error = errno;
            ::close(fd);
            return Fail(std::strerror(error));
        }
        done += static_cast<size_t>(n);
    }
    bool good = ::ftruncate(fd, static_cast<off_t>(text.size())) == 0 && ::fsync(fd) == 0;
    int error = errno;
    ::close(fd);
    if (!good)
        return Fail(std::strerror(error));
    return true;
}

void xFileReplacer::DropTemporary()
{
    if (!temporary.empty())
        ::unlink(temporary.c_str());
    FreeSlot(slot);
    slot = -1;
    temporary.clear();
}

void xFileReplacer::Abandon()
{
    if (file.is_open())
        file.close();
    DropTemporary();
    buffer.str(std::string());
    begun = false;
    inPlace = false;
}

void xFileReplacer::RemoveTemporariesOnSignals()
{
    struct sigaction action;
    std::memset(&action, 0, sizeof action);
    action.sa_handler = RemoveTemporariesAndDie;
    sigemptyset(&action.sa_mask);
    for (int signal : {SIGINT, SIGTERM, SIGHUP})
        ::sigaction(signal, &action, nullptr);
}
