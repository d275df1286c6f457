#ifndef TOLVAD_TOOLS_XDSCTOOL_H
#define TOLVAD_TOOLS_XDSCTOOL_H

#include "gui/xHeadlessPlatform.h"
#include "tools/xLinePrefixBuf.h"

#include <functional>
#include <ostream>
#include <string>

class xEMDesc;

// What every command of tolvad-dsc stands on: the headless platform with its
// messages on standard error, the reading of a descriptor the tool will take,
// the writing that replaces a file whole, and the commands on one file. A
// fatal message of the model ends the work on the file it is about, not the
// process, so that a batch goes on with the next file.
class xDscTool {
public:
    // Exit statuses; in a batch the worst of them wins (see Worse).
    enum Status {
        kDone = 0,
        kFailed = 1,       // a file could not be read or written, or a wrong command line
        kFatal = 2,        // no descriptor the tool takes, or a fatal error in one
        kIncomplete = 3    // a descriptor that a card would not save
    };

    static const char kProgram[];

    // Installs the tool's platform for as long as the tool lives.
    xDscTool();
    ~xDscTool();
    xDscTool(const xDscTool&) = delete;
    xDscTool& operator=(const xDscTool&) = delete;

    // The worse of two statuses: kFatal, then kFailed, then kIncomplete.
    static int Worse(int a, int b);
    // "tolvad-dsc: TEXT" on standard error; kFailed.
    static int Fail(const std::string& text);

    // Runs the work on one file with the messages of the model prefixed by
    // prefix. A fatal message ends the work with kFatal and sets *fatal.
    int OnFile(const std::string& prefix, const std::function<int()>& work, bool* fatal = nullptr);

    // Reads IN into the descriptor. kFailed after a plain message when it
    // can't be opened, kFatal after an error when it is no descriptor.
    int ReadDescriptor(const std::string& path, xEMDesc& desc);
    // Replaces OUT whole with the descriptor: OUT is the complete new file
    // or untouched.
    int WriteDescriptor(xEMDesc& desc, const std::string& path);

    // The commands on one file. Upgrade sets *refused when IN is no
    // descriptor the tool takes.
    int Upgrade(const std::string& in, const std::string& out, bool* refused = nullptr);
    int New(const std::string& out);
    int Info(const std::string& in);
    int Field(const std::string& in, const std::string& orientation, const std::string coords[3]);

private:
    // What the fatal hook throws to unwind the work on a file.
    struct FatalInFile {};

    xLinePrefixBuf messages;
    std::ostream messageStream;
    xHeadlessPlatform platform;
};

#endif
