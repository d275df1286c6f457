#include "tests/tools/TolvadDscFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

TEST_F(TolvadDsc, HelpVersionAndAWrongCommandLine)
{
    ToolRun version = Tool("--version"), help = Tool("--help"), check = Tool("check --help"),
            upgrade = Tool("upgrade --help");
    EXPECT_EQ(version.status + help.status + check.status + upgrade.status, 0);
    EXPECT_EQ(version.out, "tolvad-dsc: Tolvad v. 5.00 (file v.9)\n");
    for (const char* command : {"upgrade", "new", "info", "field", "check"})
        EXPECT_NE(help.out.find("\n  " + std::string(command) + " "), std::string::npos) << command;
    // Each command has its own help.
    EXPECT_NE(check.out.find("\"FILE: ORIENTATION: CARD: message\""), std::string::npos);
    EXPECT_NE(upgrade.out.find("upgrade --to DIR FILE..."), std::string::npos);

    for (const char* wrong : {"", "upgrade onlyone", "upgrade a b c", "frobnicate x", "field a TzRz 1 2",
                              "check", "check --jsn a.DSC", "upgrade --to"}) {
        ToolRun run = Tool(wrong);
        EXPECT_EQ(run.status, 1) << wrong;
        EXPECT_EQ(run.err.rfind("tolvad-dsc: ", 0), 0u) << run.err;
        EXPECT_NE(run.err.find("Usage: tolvad-dsc"), std::string::npos) << wrong;
    }
}

TEST_F(TolvadDsc, WhatIsNoDescriptorIsNeverWrittenOver)
{
    const std::string notes = "Shopping list\nmilk\n";
    xTempDirectory::Write(dir / "notes.txt", notes);
    xTempDirectory::Write(dir / "nine.DSC", "FILE FORMAT VERSION\nnine\n");
    xTempDirectory::Write(dir / "v6.DSC", "FILE FORMAT VERSION\n6\n");
    // The reader's own messages come first, as always, then the refusal.
    const std::string unknown = "note: Unknown version of EM descriptor (version 0). Conversion "
                                "to version 8 is not guaranteed.\n";
    const std::string refused[][3] = {
        {"notes.txt", unknown, " is not a descriptor: its first line is not \"FILE FORMAT VERSION\"\n"},
        {"nine.DSC", unknown, " is not a descriptor: no version number follows \"FILE FORMAT VERSION\"\n"},
        {"v6.DSC", "note: Currently unsupported version of EM descriptor (version 6)\n",
         " is a descriptor of version 6, which is not supported\n"}};
    for (const auto& [name, first, reason] : refused) {
        const std::string last = "error: " + dir / name + reason;
        ToolRun upgrade = Tool("upgrade " + In(name) + " " + In("out.DSC")), info = Tool("info " + In(name));
        for (const ToolRun& run : {upgrade, info}) {
            EXPECT_EQ(run.status, 2) << name;
            EXPECT_EQ(run.err.rfind(first, 0), 0u) << run.err;
            ASSERT_GE(run.err.size(), last.size());
            EXPECT_EQ(run.err.substr(run.err.size() - last.size()), last);
        }
        EXPECT_EQ(info.out, "");
        EXPECT_EQ(Tool("field " + In(name) + " TzRz 0 0 0").status, 2) << name;
    }
    // Upgraded in place, the text file stays what it was.
    EXPECT_EQ(Tool("upgrade " + In("notes.txt") + " " + In("notes.txt")).status, 2);
    EXPECT_EQ(xTempDirectory::Read(dir / "notes.txt"), notes);
    EXPECT_EQ(Files(), 3);

    // Blanks before the label and words behind it are a descriptor's own.
    std::string text = xTempDirectory::Read(kExamples + "/survey-time-domain.DSC");
    xTempDirectory::Write(dir / "loose.DSC", " \tFILE FORMAT VERSION (nine)\r\n9 or so\r\n" +
                                                 text.substr(text.find("SYSTEM NAME")));
    ToolRun loose = Tool("upgrade " + In("loose.DSC") + " " + In("out.DSC"));
    EXPECT_EQ(loose.status, 0) << loose.err;
    EXPECT_EQ(xTempDirectory::Read(dir / "out.DSC"), text);
}

TEST_F(TolvadDsc, UpgradeWritesVersion9AndEverySavedFileReadsBack)
{
    ToolRun run = Tool("upgrade " + Example("survey-version7.DSC") + " " + In("new.DSC"));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(xTempDirectory::Read(dir / "new.DSC").rfind("FILE FORMAT VERSION\n9\n", 0), 0u);

    // A position of six digits once ran into the row index before it.
    WriteEdited("wide.DSC", "survey-time-domain.DSC", {{"7    17    27\n", "7    17 100000\n"}});
    ASSERT_EQ(Tool("upgrade " + In("wide.DSC") + " " + In("out.DSC")).status, 0);
    EXPECT_EQ(xTempDirectory::Read(dir / "out.DSC"), xTempDirectory::Read(dir / "wide.DSC"));
    ToolRun info = Tool("info " + In("out.DSC"));
    EXPECT_EQ(info.status, 0) << info.err;
    EXPECT_EQ(info.err, "");
}

TEST_F(TolvadDsc, ReaderFailuresLeaveTheOutputUntouched)
{
    // A truncated file, and a few bytes declaring millions of rows that end at the count.
    std::string text = xTempDirectory::Read(kExamples + "/survey-time-domain.DSC");
    xTempDirectory::Write(dir / "broken.DSC", text.substr(0, text.find("RECEIVER SAMPLING") + 20));
    WriteEdited("absurd.DSC", "survey-time-domain.DSC", {{"RECEIVER SAMPLING\n10\n", "RECEIVER SAMPLING\n30000000\n"}});
    xTempDirectory::Write(dir / "out.DSC", "keep me");
    for (const char* name : {"broken.DSC", "absurd.DSC"}) {
        ToolRun run = Tool("upgrade " + In(name) + " " + In("out.DSC"));
        EXPECT_EQ(run.status, 2) << name;
        EXPECT_EQ(run.err, "fatal: xEMDesc::Read()  Error reading EM system descriptor.\n");
        EXPECT_EQ(xTempDirectory::Read(dir / "out.DSC"), "keep me");
    }
    EXPECT_EQ(Files(), 3);

    // A file that can't be read or written ends with status 1.
    ToolRun run = Tool("upgrade " + In("none.DSC") + " " + In("none-out.DSC"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("cannot read"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "none-out.DSC"));
    EXPECT_EQ(Tool("info '" + dir.path + "'").status, 1);
    run = Tool("new " + In("no/such/dir/x.DSC"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("cannot write"), std::string::npos);
}

TEST_F(TolvadDsc, OutIsReplacedThroughItsLinksKeepingItsOwnerAndModeAndAReadOnlyOneIsRefused)
{
    const std::string example = Example("survey-frequency-domain.DSC");
    xTempDirectory::Write(dir / "target.DSC", "old");
    ::chmod((dir / "target.DSC").c_str(), 0640);
    std::filesystem::create_symlink("target.DSC", dir / "link.DSC");
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown((dir / "target.DSC").c_str(), 4321, 4321), 0);
    }
    ToolRun run = Tool("upgrade " + example + " " + In("link.DSC"));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "link.DSC"));
    EXPECT_EQ(xTempDirectory::Read(dir / "target.DSC"), xTempDirectory::Read(kExamples + "/survey-frequency-domain.DSC"));
    struct stat st;
    ASSERT_EQ(::stat((dir / "target.DSC").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    if (root) {
        EXPECT_EQ(st.st_uid, 4321u);
        EXPECT_EQ(st.st_gid, 4321u);
    }

    // Whoever runs the tool, a file nobody may write stays as it is.
    xTempDirectory::Write(dir / "locked.DSC", "keep me");
    ::chmod((dir / "locked.DSC").c_str(), 0444);
    run = Tool("upgrade " + example + " " + In("locked.DSC"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "tolvad-dsc: cannot write " + dir / "locked.DSC" + ": read-only file\n");
    EXPECT_EQ(xTempDirectory::Read(dir / "locked.DSC"), "keep me");
    EXPECT_EQ(Files(), 3);
}

TEST_F(TolvadDsc, SignalsWhileWritingLeaveNoTemporaryFile)
{
    // Enough channels that writing them takes a while: the windows of one
    // orientation and the rows of the position table.
    const int channels = 100000;
    std::string text = xTempDirectory::Read(kExamples + "/survey-time-domain.DSC");
    const size_t windowsAt = text.find("RECEIVER SAMPLING\n10\n");
    std::string rows = "RECEIVER SAMPLING\n" + std::to_string(channels) +
                       "\n       START          END       WEIGHT\n";
    for (int i = 0; i < channels; ++i)
        rows += "        4.05         4.07            1\n";
    text.replace(windowsAt, text.find("_____", windowsAt) - windowsAt, rows);
    const size_t positionsAt = text.find("\n     1     0", text.find("POSITION (INDEX)")) + 1;
    rows.clear();
    for (int i = 1; i <= channels; ++i)
        rows += std::to_string(i) + " 0 0 0 0 0 0 0 7 17 27\n";
    text.replace(positionsAt, text.find("-----", positionsAt) - positionsAt, rows);
    xTempDirectory::Write(dir / "large.DSC", text);

    for (int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t child = Spawn({"upgrade", dir / "large.DSC", dir / "out.DSC"});
        ASSERT_GT(child, 0);
        // Held still as soon as its temporary file is there, then signalled.
        bool caught = false;
        for (int wait = 0; wait < 20000 && !caught; ++wait) {
            for (const auto& entry : std::filesystem::directory_iterator(dir.path))
                if (entry.path().filename().string().rfind(".out.DSC.", 0) == 0)
                    caught = ::kill(child, SIGSTOP) == 0;
            if (!caught)
                std::this_thread::sleep_for(std::chrono::microseconds(500));
        }
        ::kill(child, signal);
        ::kill(child, SIGCONT);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(caught);
        ASSERT_TRUE(WIFSIGNALED(status)) << signal;
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(Files(), 1) << signal;   // no out.DSC, no temporary file
    }
}

TEST_F(TolvadDsc, InfoSummarisesNewDescriptorsAndTheExamples)
{
    ASSERT_EQ(Tool("new " + In("fresh.DSC")).status, 0);
    for (auto [file, summary] : std::vector<std::pair<std::string, std::string>>{
             {In("fresh.DSC"), "Version read:  9\nSystem name:   \nDomain:        time\nTime unit:     sec\n"
                               "Orientations:  1\n  TzRz     1 channels      Tx moving large loop, Rx moving dipole\n"},
             {Example("survey-time-domain.DSC"), "Time unit:     mSec\nOrientations:  3\n  TzRx    10 channels "},
             {Example("survey-frequency-domain.DSC"),
              "Domain:        frequency\nTime unit:     sec\nOrientations:  2\n"
              "  TxRx     2 frequencies   Tx moving dipole, Rx moving dipole\n  TzRz     3 frequencies "},
             {Example("survey-version7.DSC"), "Version read:  7\n"}}) {
        ToolRun info = Tool("info " + file);
        EXPECT_EQ(info.status, 0) << info.err;
        EXPECT_NE(info.out.find(summary), std::string::npos) << info.out;
    }
}

TEST_F(TolvadDsc, FieldOfADipoleAndOfAnUnsupportedTransmitter)
{
    const std::string fd = Example("survey-frequency-domain.DSC");
    ToolRun dipole = Tool("field " + fd + " TxRx 10 0 0");
    EXPECT_EQ(dipole.status, 0) << dipole.err;
    EXPECT_EQ(dipole.out, "0.000159155 0 0\n");
    // Coordinates are numbers, even one that begins like an option.
    EXPECT_EQ(Tool("field " + fd + " TxRx -.1e2 0 0").out, dipole.out);
    EXPECT_EQ(Tool("field " + fd + " TyRy 10 0 0").status, 1);
    EXPECT_EQ(Tool("field " + fd + " TxRx 10 zero 0").status, 1);

    WriteEdited("bipole.DSC", "survey-frequency-domain.DSC",
                {{"moving dipole\nx\n      1       0       0\n",
                  "moving el. bipole\nx\n      1       0       0\n     -1       0       0\n"}});
    ToolRun unsupported = Tool("field " + In("bipole.DSC") + " TxRx 10 0 0");
    EXPECT_EQ(unsupported.status, 2);
    EXPECT_EQ(unsupported.err, "error: Used Transmitter type is not supported!\n");
    EXPECT_EQ(unsupported.out, "");
}

} // namespace
