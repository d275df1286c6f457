#ifndef TOLVAD_TOOLS_XDSCCHECK_H
#define TOLVAD_TOOLS_XDSCCHECK_H

#include "cards/xCardChecks.h"

#include <string>
#include <vector>

class xDscTool;

// "tolvad-dsc check": reads each descriptor as the editor does and runs the
// checks its cards make before a save, changing nothing. Every file is
// checked, whatever happened to the ones before it.
class xDscCheck {
public:
    explicit xDscCheck(xDscTool& tool);

    // Each failed check as a line "FILE: ORIENTATION: CARD: message" on
    // standard output, or with json all of them and the state of every file
    // as one JSON document. The worst status of the files.
    int Run(const std::vector<std::string>& files, bool json);

private:
    struct Result {
        std::string file;
        int status = 0;
        std::string state;   // "complete", "incomplete", "unreadable", "refused", "fatal"
        std::vector<xCardChecks::Failure> failures;
    };

    Result CheckFile(const std::string& path);
    static void PrintLines(const Result& result);
    static void PrintJson(const std::vector<Result>& results, int status);

    xDscTool& tool;
};

#endif
