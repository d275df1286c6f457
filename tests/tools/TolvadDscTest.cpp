#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>

namespace {

const std::string kExamples = TOLVAD_EXAMPLES_DIR;

struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

// Runs the tool in a directory of its own and keeps what it printed.
class TolvadDsc : public ::testing::Test {
protected:
    ToolRun Tool(const std::string& arguments)
    {
        const std::string out = dir / ".stdout", err = dir / ".stderr";
        int raw = std::system(("'" + std::string(TOLVAD_DSC_EXE) + "' " + arguments + " >'" + out +
                               "' 2>'" + err + "'").c_str());
        ToolRun run{WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, xTempDirectory::Read(out),
                    xTempDirectory::Read(err)};
        std::filesystem::remove(out);
        std::filesystem::remove(err);
        return run;
    }
    // Quoted for the shell: a name in the directory, or an example.
    std::string In(const std::string& name) { return "'" + dir / name + "'"; }
    std::string Example(const std::string& name) { return "'" + kExamples + "/" + name + "'"; }
    // The files of the directory, hidden ones included.
    long Files() const
    {
        return std::distance(std::filesystem::directory_iterator(dir.path),
                             std::filesystem::directory_iterator());
    }

    xTempDirectory dir;
};

TEST_F(TolvadDsc, HelpVersionAndAWrongCommandLine)
{
    ToolRun version = Tool("--version"), help = Tool("--help");
    EXPECT_EQ(version.status + help.status, 0);
    EXPECT_EQ(version.out, "tolvad-dsc: Tolvad v. 5.00 (file v.9)\n");
    EXPECT_NE(help.out.find("upgrade IN OUT"), std::string::npos);

    for (const char* wrong : {"", "upgrade onlyone", "frobnicate x", "field a TzRz 1 2"}) {
        ToolRun run = Tool(wrong);
        EXPECT_EQ(run.status, 1) << wrong;
        EXPECT_NE(run.err.find("usage:"), std::string::npos) << wrong;
    }
}

TEST_F(TolvadDsc, UpgradeWritesVersion9ThatUpgradesToItself)
{
    ToolRun run = Tool("upgrade " + Example("survey-version7.DSC") + " " + In("new.DSC"));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const std::string upgraded = xTempDirectory::Read(dir / "new.DSC");
    EXPECT_EQ(upgraded.rfind("FILE FORMAT VERSION\n9\n", 0), 0u);

    // Replacing a file keeps its mode.
    xTempDirectory::Write(dir / "again.DSC", "old");
    chmod((dir / "again.DSC").c_str(), 0640);
    ASSERT_EQ(Tool("upgrade " + In("new.DSC") + " " + In("again.DSC")).status, 0);
    EXPECT_EQ(xTempDirectory::Read(dir / "again.DSC"), upgraded);
    struct stat st;
    ASSERT_EQ(stat((dir / "again.DSC").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    // Nothing but the two results is left in the directory.
    EXPECT_EQ(Files(), 2);
}

TEST_F(TolvadDsc, ReaderMessagesGoToStandardErrorAndFailuresLeaveTheOutputUntouched)
{
    xTempDirectory::Write(dir / "v6.DSC", "FILE FORMAT VERSION\n6\n");
    ToolRun run = Tool("upgrade " + In("v6.DSC") + " " + In("out.DSC"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "note: Currently unsupported version of EM descriptor (version 6)\n");
    EXPECT_TRUE(std::filesystem::exists(dir / "out.DSC"));

    std::string broken = xTempDirectory::Read(kExamples + "/survey-time-domain.DSC");
    broken.resize(broken.find("RECEIVER SAMPLING") + 20);
    xTempDirectory::Write(dir / "broken.DSC", broken);
    xTempDirectory::Write(dir / "out.DSC", "keep me");
    run = Tool("upgrade " + In("broken.DSC") + " " + In("out.DSC"));
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "fatal: xEMDesc::Read()  Error reading EM system descriptor.\n");
    EXPECT_EQ(xTempDirectory::Read(dir / "out.DSC"), "keep me");
    EXPECT_EQ(Files(), 3);

    // A file that can't be read or written ends with status 1.
    run = Tool("upgrade " + In("none.DSC") + " " + In("none-out.DSC"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("cannot read"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "none-out.DSC"));
    EXPECT_EQ(Tool("info '" + dir.path + "'").status, 1);
    run = Tool("new " + In("no/such/dir/x.DSC"));
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("cannot write"), std::string::npos);
}

TEST_F(TolvadDsc, InfoSummarisesNewDescriptorsAndTheExamples)
{
    ASSERT_EQ(Tool("new " + In("fresh.DSC")).status, 0);
    for (auto [file, summary] : std::vector<std::pair<std::string, std::string>>{
             {In("fresh.DSC"),
              "Version read:  9\nSystem name:   \nDomain:        time\nTime unit:     sec\n"
              "Orientations:  1\n  TzRz     1 channels      Tx moving large loop, Rx moving "
              "dipole\n"},
             {Example("survey-time-domain.DSC"),
              "Domain:        time\nTime unit:     mSec\nOrientations:  3\n  TzRx    10 channels "},
             {Example("survey-frequency-domain.DSC"),
              "Domain:        frequency\nTime unit:     sec\nOrientations:  2\n"
              "  TxRx     2 frequencies   Tx moving dipole, Rx moving dipole\n"
              "  TzRz     3 frequencies "},
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
    EXPECT_EQ(Tool("field " + fd + " TyRy 10 0 0").status, 1);
    EXPECT_EQ(Tool("field " + fd + " TxRx 10 zero 0").status, 1);

    std::string bipole = xTempDirectory::Read(kExamples + "/survey-frequency-domain.DSC");
    const std::string dipoleTx = "moving dipole\nx\n      1       0       0\n";
    ASSERT_NE(bipole.find(dipoleTx), std::string::npos);
    bipole.replace(bipole.find(dipoleTx), dipoleTx.size(),
                   "moving el. bipole\nx\n      1       0       0\n     -1       0       0\n");
    xTempDirectory::Write(dir / "bipole.DSC", bipole);
    ToolRun unsupported = Tool("field " + In("bipole.DSC") + " TxRx 10 0 0");
    EXPECT_EQ(unsupported.status, 2);
    EXPECT_EQ(unsupported.err, "error: Used Transmitter type is not supported!\n");
    EXPECT_EQ(unsupported.out, "");
}

} // namespace
