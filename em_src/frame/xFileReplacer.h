#ifndef TOLVAD_FRAME_XFILEREPLACER_H
#define TOLVAD_FRAME_XFILEREPLACER_H

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

// Replaces a file whole, so that it is either the complete new text or the
// old file untouched. The text goes to a temporary file beside the target,
// which is flushed to disk and renamed over it. A name that is a symbolic link
// is written through to the file it points to; mode, owner and group of the
// old file are kept where the process may keep them. A target that is
// read-only is refused. An uncommitted temporary file is removed when the
// object goes, and, once RemoveTemporariesOnSignals ran, also when SIGINT,
// SIGTERM or SIGHUP ends the process.
class xFileReplacer {
public:
    // What to do when the target's directory takes no new file.
    enum Fallback { kNoFallback, kInPlace };

    explicit xFileReplacer(std::string path, Fallback fallback = kNoFallback);
    ~xFileReplacer();
    xFileReplacer(const xFileReplacer&) = delete;
    xFileReplacer& operator=(const xFileReplacer&) = delete;

    // Finds the real target, refuses a read-only one, and opens the stream.
    // False, with Reason(), when nothing can be written; nothing has changed.
    bool Begin();
    // Where the text goes between Begin and Commit.
    std::ostream& Stream();
    // Flushes, syncs and puts the new file in place. False, with Reason(),
    // when it couldn't: the old file is then as it was.
    bool Commit();
    // Drops what was written; the old file stays.
    void Abandon();

    // Why Begin or Commit failed, as "permission denied", "read-only file".
    const std::string& Reason() const { return reason; }
    // The file that is replaced: the path, or where its links lead.
    const std::string& Target() const { return target; }
    // The temporary file while one exists, else empty.
    const std::string& TemporaryPath() const { return temporary; }
    // True when the target is written in place (the directory took no new file).
    bool InPlace() const { return inPlace; }

    // Installs handlers for SIGINT, SIGTERM and SIGHUP that remove every live
    // temporary file and then end the process as the signal would.
    static void RemoveTemporariesOnSignals();

private:
    bool ResolveTarget();
    bool Fail(const std::string& why);
    bool CommitInPlace();
    void DropTemporary();

    std::string path;
    Fallback fallback;
    std::string target;
    std::string temporary;
    std::ofstream file;
    std::ostringstream buffer;
    bool begun = false;
    bool inPlace = false;
    bool exists = false;
    int slot = -1;
    std::string reason;
};

#endif
