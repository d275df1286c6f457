#ifndef TOLVAD_TOOLS_XDSCBATCHUPGRADE_H
#define TOLVAD_TOOLS_XDSCBATCHUPGRADE_H

#include <string>
#include <vector>

class xDscTool;

// "tolvad-dsc upgrade --to DIR FILE...": every file upgraded into DIR under
// its own name, each as "upgrade IN OUT" does it, so a file that is no
// descriptor or can't be upgraded leaves nothing in DIR.
class xDscBatchUpgrade {
public:
    xDscBatchUpgrade(xDscTool& tool, std::string directory);

    // A progress line per file when standard error is a terminal, then the
    // summary "N upgraded, N refused, N failed" on standard output. Two
    // inputs of the same name are refused before anything is written. The
    // worst status of the files.
    int Run(const std::vector<std::string>& files);

private:
    // The file in DIR that in is written to.
    std::string Target(const std::string& in) const;
    // kFailed, with a message, when two inputs would be written to one file.
    int RefuseSameNames(const std::vector<std::string>& files) const;
    // Creates DIR when it isn't there; kFailed when it can't be or is no directory.
    int PrepareDirectory() const;

    xDscTool& tool;
    std::string directory;
};

#endif
