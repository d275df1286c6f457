// tolvad-dsc: descriptors without a screen, for scripts and batch work on
// archives of old files. Messages of the model go to standard error, one line
// each; a fatal one ends the work on its file with status 2 and leaves no
// half-written file behind. A file that is no descriptor is never written over:
// in a batch over an archive, a stray text file must not turn into a blank
// descriptor.

#include "app/xEdit2App.h"
#include "frame/xFileReplacer.h"
#include "tools/xDscBatchUpgrade.h"
#include "tools/xDscCheck.h"
#include "tools/xDscTool.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace {

const char kDescription[] =
    "Reads, upgrades, checks and writes EM system descriptors (.DSC files) with no screen.\n";

const char kFooter[] =
    "Messages of the descriptor go to standard error as \"note:\", \"warning:\",\n"
    "\"error:\" or \"fatal:\" lines; in check and upgrade --to they begin with the\n"
    "file's name. Exit status: 0 done (check: every descriptor complete), 1 a file\n"
    "could not be read or written or the command line is wrong, 2 a file is no\n"
    "descriptor that can be read (its first line is not \"FILE FORMAT VERSION\", no\n"
    "version number follows, or it is version 6), a fatal error in a descriptor or an\n"
    "unsupported transmitter, 3 (check) some descriptor is incomplete. With several\n"
    "files the worst status wins: 2, then 1, then 3. OUT is written only with status\n"
    "0; otherwise it stays as it was. Run \"tolvad-dsc COMMAND --help\" for a command.\n";

const char kUpgradeFooter[] =
    "upgrade IN OUT: read IN (file version 5, 7, 8 or 9) and write it to OUT as\n"
    "version 9.\n"
    "upgrade --to DIR FILE...: the same for each FILE, written to DIR under its own\n"
    "name (DIR is made when it is missing). Two files of the same name are refused\n"
    "before anything is written. A progress line per file goes to standard error when\n"
    "that is a terminal; the summary \"N upgraded, N refused, N failed\" ends the run.\n";

const char kCheckFooter[] =
    "Reads each FILE as the editor does and makes, for every orientation, the checks\n"
    "each card makes before a save, changing nothing. A failed check is one line\n"
    "\"FILE: ORIENTATION: CARD: message\" on standard output; with --json, one JSON\n"
    "document {\"findings\": [{file, orientation, card, message}...], \"files\":\n"
    "[{file, status, state}...], \"status\"}. Exit status: 0 all complete, 3 some\n"
    "descriptor incomplete, 1 a file unreadable, 2 a file that is no descriptor or\n"
    "holds a fatal error; the worst wins, and every file is checked.\n";

// A wrong command line: what is wrong, then the help of the command; status 1.
std::string WrongCommandLine(const CLI::App* app, const CLI::Error& error)
{
    return std::string(xDscTool::kProgram) + ": " + error.what() + "\n" + app->help();
}

// The arguments, with the ones of field taken as they stand: a coordinate
// such as "-.5" would otherwise read as an option. Asking for help still works.
std::vector<std::string> Arguments(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] != "field")
        return args;
    for (const std::string& arg : args)
        if (arg == "-h" || arg.rfind("--", 0) == 0)
            return args;
    args.insert(args.begin() + 1, "--");
    return args;
}

} // namespace

int main(int argc, char** argv)
{
    xDscTool tool;
    // Interrupted while writing: the temporary file beside OUT goes too.
    xFileReplacer::RemoveTemporariesOnSignals();

    CLI::App app(kDescription, xDscTool::kProgram);
    app.footer(kFooter);
    app.require_subcommand(1);
    app.set_version_flag("--version", std::string(xDscTool::kProgram) + ": " + xEdit2App::AboutText(),
                         "Program and file format versions");
    app.failure_message(WrongCommandLine);

    std::vector<std::string> files;
    std::string directory;
    CLI::App* upgrade = app.add_subcommand("upgrade", "IN OUT, or --to DIR FILE...: write descriptors as version 9");
    upgrade->footer(kUpgradeFooter);
    upgrade->add_option("--to", directory, "Write every FILE into DIR under its own name")->type_name("DIR");
    upgrade->add_option("FILE", files, "IN OUT, or with --to the files to upgrade")->required();
    upgrade->callback([&] {
        if (directory.empty() && files.size() != 2)
            throw CLI::ValidationError("FILE", "upgrade takes IN OUT, or --to DIR FILE...");
    });

    std::string in, out;
    CLI::App* create = app.add_subcommand("new", "OUT: write a new descriptor (one orientation, TzRz) to OUT");
    create->add_option("OUT", out, "The file to write")->required();

    CLI::App* info = app.add_subcommand("info", "IN: summarise IN: version, system, domain, orientations");
    info->add_option("IN", in, "The descriptor")->required();

    std::string orientation, coords[3];
    CLI::App* field = app.add_subcommand(
        "field", "IN ORIENTATION X Y Z: the primary field of the transmitter of ORIENTATION at X Y Z");
    field->add_option("IN", in, "The descriptor")->required();
    field->add_option("ORIENTATION", orientation, "TxRx ... TzRz")->required();
    field->add_option("X", coords[0], "The point in metres")->required();
    field->add_option("Y", coords[1])->required();
    field->add_option("Z", coords[2])->required();

    bool json = false;
    CLI::App* check = app.add_subcommand("check", "FILE...: the cards' checks of each descriptor, as before a save");
    check->footer(kCheckFooter);
    check->add_option("FILE", files, "The descriptors to check")->required();
    check->add_flag("--json", json, "The findings and each file's state as one JSON document");

    try {
        // CLI11 takes the arguments from the back.
        std::vector<std::string> args = Arguments(argc, argv);
        std::reverse(args.begin(), args.end());
        app.parse(args);
    } catch (const CLI::ParseError& error) {
        const int status = app.exit(error, std::cout, std::cerr);
        return status == 0 ? xDscTool::kDone : xDscTool::kFailed;
    }

    if (*check)
        return xDscCheck(tool).Run(files, json);
    if (*upgrade && !directory.empty())
        return xDscBatchUpgrade(tool, directory).Run(files);
    return tool.OnFile(std::string(), [&] {
        if (*upgrade)
            return tool.Upgrade(files[0], files[1]);
        if (*create)
            return tool.New(out);
        if (*info)
            return tool.Info(in);
        return tool.Field(in, orientation, coords);
    });
}
