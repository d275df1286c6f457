#include "tests/tools/TolvadDscFixture.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <unistd.h>

namespace {

const std::string kTime = "survey-time-domain.DSC";
const std::string kFrequency = "survey-frequency-domain.DSC";

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
        std::vector<std::string> orientations, findings;   // each orientation names each finding
    };
    const std::vector<std::string> tz = {"TzRx", "TzRy", "TzRz"}, fd = {"TxRx", "TzRz"};
    const std::string half = "5  5   [mSec]", real = "System Description: Undefined halfperiod in real time.",
                      position = "Data Format: Undefined position of ", line = "line          1",
                      waveform = " Waveform: Undefined waveform or windows.", phase = "     2     0     9     0";
    const std::vector<Case> cases = {
        {"real.DSC", kTime, {{half, "5  0   [mSec]"}}, tz, {real}},
        {"both.DSC", kTime, {{half, "0  0   [mSec]"}}, tz, {real}},   // only the real one is named
        {"nominal.DSC", kTime, {{half, "0  5   [mSec]"}}, tz,
         {"System Description: Undefined halfperiod in nominal time."}},
        // One window is no windows, for both waveform cards of that orientation.
        {"windows.DSC", kTime,
         {{Block(kTime, "RECEIVER SAMPLING"),
           "RECEIVER SAMPLING\n1\n       START          END       WEIGHT\n        4.05         4.07            1\n"}},
         {"TzRx"}, {"Tx" + waveform, "Rx" + waveform}},
        // A waveform needs three rows; the receiver's of TzRx has two.
        {"waveform.DSC", kTime,
         {{Block(kTime, "[amp/m]"), "[amp/m]\n2\n        TIME      CURRENT        ERROR  [ppm]\n"
                                    "           0            0          0.5\n         0.5        0.383          0.5\n"}},
         {"TzRx"}, {"Rx" + waveform}},
        {"channel.DSC", kTime, {{"9    19    29", "9    19     0"}}, tz, {position + "some channels."}},
        {"line.DSC", kTime, {{line, "line          0"}}, tz, {position + "line number."}},
        // A Geosoft record needs no line position; the FID is looked at next.
        {"fid.DSC", kTime,
         {{line, "line          0"}, {"FID           2", "FID           0"},
          {"Geosoft format (1 yes, 0 no)\n     0", "Geosoft format (1 yes, 0 no)\n     1"}},
         tz, {position + "FID."}},
        {"east.DSC", kFrequency, {{"east          3", "east          0"}}, fd, {position + "x coordinate."}},
        {"north.DSC", kFrequency, {{"north         4", "north         0"}}, fd, {position + "y coordinate."}},
        // In the frequency domain the half periods may be 0; one frequency is none.
        {"frequency.DSC", kFrequency,
         {{"1  1   [sec]", "0  0   [sec]"}, {"FREQUENCIES\n2", "FREQUENCIES\n1"}, {"        5500           1\n", ""}},
         {"TxRx"}, {"Frequencies: Undefined frequencies."}},
        {"phase.DSC", kFrequency, {{phase, "     2     0     0     0"}}, fd, {"Data Format: Undefined PHASE position."}},
        // Within a frequency the quadrature is looked at first.
        {"quadrature.DSC", kFrequency,
         {{phase, "     2     0     0     0"}, {"     2     0    10     0", "     2     0     0     0"}},
         fd, {"Data Format: Undefined QUADRATURE position."}},
    };
    for (const Case& c : cases) {
        WriteEdited(c.name, c.example, c.edits);
        const std::string original = xTempDirectory::Read(dir / c.name);
        ToolRun run = Tool("check " + c.name);
        std::string expected;
        for (const std::string& orientation : c.orientations)
            for (const std::string& finding : c.findings)
                expected += c.name + ": " + orientation + ": " + finding + "\n";
        EXPECT_EQ(run.out, expected) << c.name;
        EXPECT_EQ(run.status, 3) << c.name;
        EXPECT_EQ(run.err, "") << c.name;
        EXPECT_EQ(xTempDirectory::Read(dir / c.name), original) << c.name;   // checking changes nothing
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
    EXPECT_EQ(Files(), 4);   // nothing was written beside them
}

TEST_F(TolvadDsc, CheckWritesOneJsonDocumentForPipelines)
{
    WriteEdited("good.DSC", kTime);
    WriteEdited("incomplete.DSC", kFrequency, {{"     2     0    10     0", "     2     0     0     0"}});
    xTempDirectory::Write(dir / "damaged.DSC", Damaged());
    ToolRun run = Tool("check --json good.DSC incomplete.DSC damaged.DSC missing.DSC");
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("damaged.DSC: fatal: "), std::string::npos);   // the reader's messages stay there

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
}

TEST_F(TolvadDsc, UpgradeIntoADirectoryWritesEachGoodFileAndNothingForTheRest)
{
    WriteEdited("old7.DSC", "survey-version7.DSC");
    WriteEdited("incomplete.DSC", kTime, {{"5  5   [mSec]", "5  0   [mSec]"}});
    xTempDirectory::Write(dir / "damaged.DSC", Damaged());
    xTempDirectory::Write(dir / "notes.txt", "Shopping list\nmilk\n");
    // Each file as a single upgrade writes it.
    ASSERT_EQ(Tool("upgrade old7.DSC single7.DSC").status + Tool("upgrade incomplete.DSC single.DSC").status, 0);

    ToolRun run = Tool("upgrade --to out/nine damaged.DSC old7.DSC notes.txt missing.DSC incomplete.DSC");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "tolvad-dsc: 2 upgraded, 1 refused, 2 failed\n");
    // No progress lines off a terminal; the messages behind their files' names.
    EXPECT_EQ(run.err.rfind("damaged.DSC: fatal: xEMDesc::Read()  Error reading EM system descriptor.\n", 0), 0u);
    EXPECT_NE(run.err.find("\nnotes.txt: error: notes.txt is not a descriptor"), std::string::npos);
    EXPECT_NE(run.err.find("\ntolvad-dsc: cannot read missing.DSC: "), std::string::npos);
    EXPECT_EQ(run.err.find('['), std::string::npos);
    // The directory was made; it holds the two upgraded files and nothing else.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir / "out/nine"), {}), 2);
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

    // Two inputs of one name are refused before anything is written.
    std::filesystem::create_directories(dir / "a");
    WriteEdited("a/old7.DSC", kTime);
    for (std::string inputs : {"incomplete.DSC a/old7.DSC old7.DSC", "incomplete.DSC incomplete.DSC"}) {
        run = Tool("upgrade --to fresh " + inputs);
        EXPECT_EQ(run.status, 1) << inputs;
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err.find(" would both be written to fresh/"), std::string::npos) << run.err;
        EXPECT_FALSE(std::filesystem::exists(dir / "fresh")) << inputs;
    }
}

TEST_F(TolvadDsc, UpgradeIntoADirectoryShowsItsProgressOnATerminal)
{
    WriteEdited("one.DSC", kTime);
    WriteEdited("two.DSC", kFrequency);
    // Standard error is the slave side of a pseudo terminal, standard output a file.
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(master >= 0 && ::grantpt(master) == 0 && ::unlockpt(master) == 0);
    const int slave = ::open(::ptsname(master), O_RDWR | O_NOCTTY);
    ASSERT_GE(slave, 0);
    const pid_t child = Spawn({"upgrade", "--to", "nine", "one.DSC", "two.DSC"}, slave, dir / "summary");
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
    EXPECT_EQ(xTempDirectory::Read(dir / "summary"), "tolvad-dsc: 2 upgraded, 0 refused, 0 failed\n");
}

} // namespace
