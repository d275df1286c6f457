#include "tests/tools/TolvadDscFixture.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::string kTime = "survey-time-domain.DSC";
const std::string kFrequency = "survey-frequency-domain.DSC";
const std::string kSeparator = "_________________________________________________________\n";

// The windows of every block of the time domain example.
const std::string kWindows =
    "RECEIVER SAMPLING\n10\n       START          END       WEIGHT\n"
    "        4.05         4.07            1\n        4.07          4.1            1\n"
    "         4.1         4.14            1\n        4.14         4.19            1\n"
    "        4.19         4.26            1\n        4.26         4.35            1\n"
    "        4.35         4.47            1\n        4.47         4.62            1\n"
    "        4.62          4.8            1\n         4.8            5            1\n";

// A truncated descriptor: the stream fails before its end, which is fatal.
std::string Damaged()
{
    std::string text = xTempDirectory::Read(std::string(TOLVAD_EXAMPLES_DIR) + "/" + kTime);
    text.resize(text.find("RECEIVER SAMPLING") + 20);
    return text;
}

TEST_F(TolvadDsc, CheckNamesWhatEachCardWouldRefuseToSave)
{
    struct Case {
        std::string name, example;
        std::vector<std::pair<std::string, std::string>> edits;
        std::string lines;   // behind "FILE: "
    };
    const std::string tzRz3 = "     3     0     0     0     0     0     0     0     9    19    29";
    const std::vector<Case> cases = {
        {"real.DSC", kTime, {{"5  5   [mSec]", "5  0   [mSec]"}},
         "TzRx: System Description: Undefined halfperiod in real time.\n"
         "TzRy: System Description: Undefined halfperiod in real time.\n"
         "TzRz: System Description: Undefined halfperiod in real time.\n"},
        // Both zero: only the real one is named.
        {"both.DSC", kTime, {{"5  5   [mSec]", "0  0   [mSec]"}},
         "TzRx: System Description: Undefined halfperiod in real time.\n"
         "TzRy: System Description: Undefined halfperiod in real time.\n"
         "TzRz: System Description: Undefined halfperiod in real time.\n"},
        {"nominal.DSC", kTime, {{"5  5   [mSec]", "0  5   [mSec]"}},
         "TzRx: System Description: Undefined halfperiod in nominal time.\n"
         "TzRy: System Description: Undefined halfperiod in nominal time.\n"
         "TzRz: System Description: Undefined halfperiod in nominal time.\n"},
        // One window is no windows, for both waveform cards of that orientation.
        {"windows.DSC", kTime,
         {{kWindows, "RECEIVER SAMPLING\n1\n       START          END       WEIGHT\n        4.05         4.07"
                     "            1\n"}},
         "TzRx: Tx Waveform: Undefined waveform or windows.\n"
         "TzRx: Rx Waveform: Undefined waveform or windows.\n"},
        // A waveform needs three rows; the receiver's of TzRx has two.
        {"waveform.DSC", kTime,
         {{"[amp/m]\n10\n        TIME      CURRENT        ERROR  [ppm]\n           0            0          0.5\n"
           "         0.5        0.383          0.5\n           1        0.707          0.5\n"
           "         1.5        0.924          0.5\n           2            1          0.5\n"
           "         2.5        0.924          0.5\n           3        0.707          0.5\n"
           "         3.5        0.383          0.5\n           4            0          0.5\n"
           "           5            0          0.5\n",
           "[amp/m]\n2\n        TIME      CURRENT        ERROR  [ppm]\n           0            0          0.5\n"
           "         0.5        0.383          0.5\n"}},
         "TzRx: Rx Waveform: Undefined waveform or windows.\n"},
        {"channel.DSC", kTime, {{tzRz3, "     3     0     0     0     0     0     0     0     9    19     0"}},
         "TzRx: Data Format: Undefined position of some channels.\n"
         "TzRy: Data Format: Undefined position of some channels.\n"
         "TzRz: Data Format: Undefined position of some channels.\n"},
        {"line.DSC", kTime, {{"line          1", "line          0"}},
         "TzRx: Data Format: Undefined position of line number.\n"
         "TzRy: Data Format: Undefined position of line number.\n"
         "TzRz: Data Format: Undefined position of line number.\n"},
        // A Geosoft record needs no line position; the FID is looked at next.
        {"fid.DSC", kTime,
         {{"line          1", "line          0"}, {"FID           2", "FID           0"},
          {"Geosoft format (1 yes, 0 no)\n     0", "Geosoft format (1 yes, 0 no)\n     1"}},
         "TzRx: Data Format: Undefined position of FID.\n"
         "TzRy: Data Format: Undefined position of FID.\n"
         "TzRz: Data Format: Undefined position of FID.\n"},
        {"east.DSC", kFrequency, {{"east          3", "east          0"}},
         "TxRx: Data Format: Undefined position of x coordinate.\n"
         "TzRz: Data Format: Undefined position of x coordinate.\n"},
        {"north.DSC", kFrequency, {{"north         4", "north         0"}},
         "TxRx: Data Format: Undefined position of y coordinate.\n"
         "TzRz: Data Format: Undefined position of y coordinate.\n"},
        // In the frequency domain the half periods may be 0; one frequency is none.
        {"frequency.DSC", kFrequency,
         {{"1  1   [sec]", "0  0   [sec]"},
          {"FREQUENCIES\n2\n" + kSeparator + "        1000           1\n        5500           1\n",
           "FREQUENCIES\n1\n" + kSeparator + "        1000           1\n"}},
         "TxRx: Frequencies: Undefined frequencies.\n"},
        {"phase.DSC", kFrequency, {{"     2     0     9     0", "     2     0     0     0"}},
         "TxRx: Data Format: Undefined PHASE position.\n"
         "TzRz: Data Format: Undefined PHASE position.\n"},
        // Within a frequency the quadrature is looked at first.
        {"quadrature.DSC", kFrequency,
         {{"     2     0     9     0", "     2     0     0     0"}, {"     2     0    10     0", "     2     0     0     0"}},
         "TxRx: Data Format: Undefined QUADRATURE position.\n"
         "TzRz: Data Format: Undefined QUADRATURE position.\n"},
    };
    for (const Case& c : cases) {
        WriteEdited(c.name, c.example, c.edits);
        const std::string original = xTempDirectory::Read(dir / c.name);
        ToolRun run = Tool("check " + c.name);
        std::string expected;
        for (size_t at = 0; at < c.lines.size(); at = c.lines.find('\n', at) + 1)
            expected += c.name + ": " + c.lines.substr(at, c.lines.find('\n', at) + 1 - at);
        EXPECT_EQ(run.out, expected) << c.name;
        EXPECT_EQ(run.status, expected.empty() ? 0 : 3) << c.name;
        EXPECT_EQ(run.err, "") << c.name;
        // Checking changes nothing.
        EXPECT_EQ(xTempDirectory::Read(dir / c.name), original) << c.name;
    }

    // The examples are complete, whatever their version.
    ToolRun examples = Tool("check " + Example(kTime) + " " + Example(kFrequency) + " " +
                            Example("survey-version7.DSC"));
    EXPECT_EQ(examples.status, 0) << examples.err;
    EXPECT_EQ(examples.out + examples.err, "");
}

TEST_F(TolvadDsc, CheckGoesThroughEveryFileOfABatchAndTheWorstStatusWins)
{
    WriteEdited("good.DSC", kTime);
    WriteEdited("incomplete.DSC", kTime, {{"FID           2", "FID           0"}});
    xTempDirectory::Write(dir / "damaged.DSC", Damaged());
    xTempDirectory::Write(dir / "notes.txt", "Shopping list\nmilk\n");

    // The damaged file comes first: its fatal error ends its own check only.
    ToolRun run = Tool("check damaged.DSC good.DSC missing.DSC incomplete.DSC notes.txt");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "incomplete.DSC: TzRx: Data Format: Undefined position of FID.\n"
                       "incomplete.DSC: TzRy: Data Format: Undefined position of FID.\n"
                       "incomplete.DSC: TzRz: Data Format: Undefined position of FID.\n");
    // The reader's own messages, each behind the name of its file.
    EXPECT_EQ(run.err, "damaged.DSC: fatal: xEMDesc::Read()  Error reading EM system descriptor.\n"
                       "tolvad-dsc: cannot read missing.DSC: No such file or directory\n"
                       "notes.txt: note: Unknown version of EM descriptor (version 0). Conversion to version 8 "
                       "is not guaranteed.\n"
                       "notes.txt: note: Old system descriptor, will be updated to support waveform "
                       "normalization.\n"
                       "notes.txt: error: notes.txt is not a descriptor: its first line is not \"FILE FORMAT "
                       "VERSION\"\n");

    // Unreadable is worse than incomplete, and incomplete worse than complete.
    EXPECT_EQ(Tool("check incomplete.DSC missing.DSC good.DSC").status, 1);
    EXPECT_EQ(Tool("check good.DSC incomplete.DSC").status, 3);
    EXPECT_EQ(Tool("check good.DSC").status, 0);
    EXPECT_EQ(Tool("check '" + dir.path + "'").status, 1);
    // Nothing was written beside them.
    EXPECT_EQ(Files(), 4);
}

TEST_F(TolvadDsc, CheckWritesOneJsonDocumentForPipelines)
{
    WriteEdited("good.DSC", kTime);
    WriteEdited("incomplete.DSC", kFrequency, {{"     2     0    10     0", "     2     0     0     0"}});
    xTempDirectory::Write(dir / "damaged.DSC", Damaged());
    ToolRun run = Tool("check --json good.DSC incomplete.DSC damaged.DSC missing.DSC");
    EXPECT_EQ(run.status, 2);
    // The reader's messages stay on standard error.
    EXPECT_NE(run.err.find("damaged.DSC: fatal: "), std::string::npos);

    const nlohmann::json document = nlohmann::json::parse(run.out);
    EXPECT_EQ(document.at("status"), 2);
    const nlohmann::json& files = document.at("files");
    ASSERT_EQ(files.size(), 4u);
    const std::pair<const char*, int> states[] = {
        {"complete", 0}, {"incomplete", 3}, {"fatal", 2}, {"unreadable", 1}};
    const char* names[] = {"good.DSC", "incomplete.DSC", "damaged.DSC", "missing.DSC"};
    for (size_t i = 0; i < files.size(); ++i) {
        EXPECT_EQ(files[i].at("file"), names[i]);
        EXPECT_EQ(files[i].at("state"), states[i].first) << names[i];
        EXPECT_EQ(files[i].at("status"), states[i].second) << names[i];
    }
    const nlohmann::json& findings = document.at("findings");
    ASSERT_EQ(findings.size(), 2u);
    for (const nlohmann::json& finding : findings) {
        EXPECT_EQ(finding.size(), 4u);
        EXPECT_EQ(finding.at("file"), "incomplete.DSC");
        EXPECT_EQ(finding.at("card"), "Data Format");
        EXPECT_EQ(finding.at("message"), "Undefined QUADRATURE position.");
    }
    EXPECT_EQ(findings[0].at("orientation"), "TxRx");
    EXPECT_EQ(findings[1].at("orientation"), "TzRz");

    // All complete: no findings, status 0.
    const nlohmann::json complete = nlohmann::json::parse(Tool("check --json good.DSC").out);
    EXPECT_TRUE(complete.at("findings").empty());
    EXPECT_EQ(complete.at("status"), 0);
    EXPECT_EQ(complete.at("files")[0].at("state"), "complete");
}

TEST_F(TolvadDsc, UpgradeIntoADirectoryWritesEachGoodFileAndNothingForTheRest)
{
    WriteEdited("old7.DSC", "survey-version7.DSC");
    WriteEdited("incomplete.DSC", kTime, {{"5  5   [mSec]", "5  0   [mSec]"}});
    xTempDirectory::Write(dir / "damaged.DSC", Damaged());
    xTempDirectory::Write(dir / "notes.txt", "Shopping list\nmilk\n");
    // Each file as a single upgrade writes it.
    ASSERT_EQ(Tool("upgrade old7.DSC single7.DSC").status, 0);
    ASSERT_EQ(Tool("upgrade incomplete.DSC single.DSC").status, 0);

    ToolRun run = Tool("upgrade --to out/nine damaged.DSC old7.DSC notes.txt missing.DSC incomplete.DSC");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "tolvad-dsc: 2 upgraded, 1 refused, 2 failed\n");
    // No progress lines off a terminal; the messages behind their files' names.
    EXPECT_EQ(run.err.rfind("damaged.DSC: fatal: xEMDesc::Read()  Error reading EM system descriptor.\n", 0), 0u);
    EXPECT_NE(run.err.find("\nnotes.txt: error: notes.txt is not a descriptor"), std::string::npos);
    EXPECT_NE(run.err.find("\ntolvad-dsc: cannot read missing.DSC: "), std::string::npos);
    EXPECT_EQ(run.err.find('['), std::string::npos);
    // The directory was made; it holds the two upgraded files and nothing else.
    long written = std::distance(std::filesystem::directory_iterator(dir / "out/nine"),
                                 std::filesystem::directory_iterator());
    EXPECT_EQ(written, 2);
    EXPECT_EQ(xTempDirectory::Read(dir / "out/nine/old7.DSC"), xTempDirectory::Read(dir / "single7.DSC"));
    EXPECT_EQ(xTempDirectory::Read(dir / "out/nine/incomplete.DSC"), xTempDirectory::Read(dir / "single.DSC"));

    // Into a directory that holds the files already, they are upgraded over themselves.
    run = Tool("upgrade --to . old7.DSC missing.DSC");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "tolvad-dsc: 1 upgraded, 0 refused, 1 failed\n");
    EXPECT_EQ(xTempDirectory::Read(dir / "old7.DSC"), xTempDirectory::Read(dir / "single7.DSC"));

    // A file where DIR should be takes nothing.
    run = Tool("upgrade --to notes.txt old7.DSC");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "tolvad-dsc: cannot write into notes.txt: not a directory\n");
    EXPECT_EQ(xTempDirectory::Read(dir / "notes.txt"), "Shopping list\nmilk\n");
}

TEST_F(TolvadDsc, UpgradeIntoADirectoryRefusesTwoInputsOfOneNameBeforeWritingAnything)
{
    std::filesystem::create_directories(dir / "a");
    std::filesystem::create_directories(dir / "b");
    WriteEdited("a/x.DSC", kTime);
    WriteEdited("b/x.DSC", kFrequency);
    WriteEdited("first.DSC", kTime);
    for (std::string inputs : {"first.DSC a/x.DSC b/x.DSC", "first.DSC first.DSC"}) {
        ToolRun run = Tool("upgrade --to out " + inputs);
        EXPECT_EQ(run.status, 1) << inputs;
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err.find(" would both be written to out/"), std::string::npos) << run.err;
        EXPECT_FALSE(std::filesystem::exists(dir / "out")) << inputs;
    }
    EXPECT_EQ(Tool("upgrade --to out a/x.DSC").status, 0);
}

TEST_F(TolvadDsc, UpgradeIntoADirectoryShowsItsProgressOnATerminal)
{
    WriteEdited("one.DSC", kTime);
    WriteEdited("two.DSC", kFrequency);
    // Standard error is the slave side of a pseudo terminal, standard output a file.
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(::grantpt(master), 0);
    ASSERT_EQ(::unlockpt(master), 0);
    const int slave = ::open(::ptsname(master), O_RDWR | O_NOCTTY);
    ASSERT_GE(slave, 0);
    const std::string exe = TOLVAD_DSC_EXE, out = dir / "summary";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_adddup2(&actions, slave, 2);
    char* const argv[] = {const_cast<char*>(exe.c_str()), const_cast<char*>("upgrade"),
                          const_cast<char*>("--to"), const_cast<char*>("nine"),
                          const_cast<char*>("one.DSC"), const_cast<char*>("two.DSC"), nullptr};
    pid_t child = 0;
    ASSERT_EQ(::posix_spawn(&child, exe.c_str(), &actions, nullptr, argv, environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);

    // The slave stays open here, so what the tool wrote waits on the master.
    ::fcntl(master, F_SETFL, O_NONBLOCK);
    std::string shown;
    char buffer[256];
    for (ssize_t n; (n = ::read(master, buffer, sizeof buffer)) > 0;)
        shown.append(buffer, static_cast<size_t>(n));
    ::close(slave);
    ::close(master);
    EXPECT_EQ(shown, "[1/2] one.DSC -> nine/one.DSC\r\n[2/2] two.DSC -> nine/two.DSC\r\n");
    EXPECT_EQ(xTempDirectory::Read(out), "tolvad-dsc: 2 upgraded, 0 refused, 0 failed\n");
}

} // namespace
