#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

const std::string kExamples = TOLVAD_EXAMPLES_DIR;

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteFile(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

bool Exists(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

// Runs the tool in a directory of its own and keeps what it printed.
class TolvadDsc : public ::testing::Test {
protected:
    void SetUp() override
    {
        char pattern[] = "/tmp/tolvad-dsc-test-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir = pattern;
    }
    void TearDown() override { std::system(("rm -rf '" + dir + "'").c_str()); }

    ToolRun Tool(const std::string& arguments)
    {
        const std::string out = dir + "/.stdout", err = dir + "/.stderr";
        const std::string command = "'" + std::string(TOLVAD_DSC_EXE) + "' " + arguments + " >'" +
                                    out + "' 2>'" + err + "'";
        int raw = std::system(command.c_str());
        ToolRun run{WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, ReadFile(out), ReadFile(err)};
        std::remove(out.c_str());
        std::remove(err.c_str());
        return run;
    }

    // The files of the directory, hidden ones included.
    std::vector<std::string> Files()
    {
        std::vector<std::string> names;
        if (DIR* d = opendir(dir.c_str())) {
            while (dirent* e = readdir(d))
                if (std::string(e->d_name) != "." && std::string(e->d_name) != "..")
                    names.push_back(e->d_name);
            closedir(d);
        }
        return names;
    }

    std::string Path(const std::string& name) { return dir + "/" + name; }

    std::string dir;
};

TEST_F(TolvadDsc, HelpVersionAndAWrongCommandLine)
{
    ToolRun version = Tool("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "tolvad-dsc: Tolvad v. 5.00 (file v.9)\n");

    ToolRun help = Tool("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("upgrade IN OUT"), std::string::npos);

    for (const char* wrong : {"", "upgrade onlyone", "frobnicate x", "field a TzRz 1 2"}) {
        ToolRun run = Tool(wrong);
        EXPECT_EQ(run.status, 1) << wrong;
        EXPECT_NE(run.err.find("usage:"), std::string::npos) << wrong;
    }
}

TEST_F(TolvadDsc, UpgradeWritesVersion9ThatUpgradesToItself)
{
    ToolRun run = Tool("upgrade '" + kExamples + "/survey-version7.DSC' '" + Path("new.DSC") + "'");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const std::string upgraded = ReadFile(Path("new.DSC"));
    EXPECT_EQ(upgraded.rfind("FILE FORMAT VERSION\n9\n", 0), 0u);

    // Replacing a file keeps its mode.
    WriteFile(Path("again.DSC"), "old");
    chmod(Path("again.DSC").c_str(), 0640);
    ASSERT_EQ(Tool("upgrade '" + Path("new.DSC") + "' '" + Path("again.DSC") + "'").status, 0);
    EXPECT_EQ(ReadFile(Path("again.DSC")), upgraded);
    struct stat st;
    ASSERT_EQ(stat(Path("again.DSC").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    // Nothing but the two results is left in the directory.
    EXPECT_EQ(Files().size(), 2u);
}

TEST_F(TolvadDsc, MessagesOfTheReaderGoToStandardError)
{
    WriteFile(Path("v6.DSC"), "FILE FORMAT VERSION\n6\n");
    ToolRun run = Tool("upgrade '" + Path("v6.DSC") + "' '" + Path("out.DSC") + "'");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "note: Currently unsupported version of EM descriptor (version 6)\n");
    EXPECT_TRUE(Exists(Path("out.DSC")));
}

TEST_F(TolvadDsc, AFatalErrorLeavesTheOutputUntouched)
{
    std::string broken = ReadFile(kExamples + "/survey-time-domain.DSC");
    broken.resize(broken.find("RECEIVER SAMPLING") + 20);
    WriteFile(Path("broken.DSC"), broken);
    WriteFile(Path("out.DSC"), "keep me");
    ToolRun run = Tool("upgrade '" + Path("broken.DSC") + "' '" + Path("out.DSC") + "'");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "fatal: xEMDesc::Read()  Error reading EM system descriptor.\n");
    EXPECT_EQ(ReadFile(Path("out.DSC")), "keep me");
    EXPECT_EQ(Files().size(), 2u);
}

TEST_F(TolvadDsc, MissingInputAndUnwritableOutputEndWithStatus1)
{
    ToolRun missing = Tool("upgrade '" + Path("none.DSC") + "' '" + Path("out.DSC") + "'");
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("cannot read"), std::string::npos);
    EXPECT_FALSE(Exists(Path("out.DSC")));

    ToolRun directory = Tool("info '" + dir + "'");
    EXPECT_EQ(directory.status, 1);

    ToolRun unwritable = Tool("new '" + Path("no/such/dir/x.DSC") + "'");
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_NE(unwritable.err.find("cannot write"), std::string::npos);
}

TEST_F(TolvadDsc, NewWritesTheDefaultDescriptor)
{
    ASSERT_EQ(Tool("new '" + Path("fresh.DSC") + "'").status, 0);
    ToolRun info = Tool("info '" + Path("fresh.DSC") + "'");
    ASSERT_EQ(info.status, 0) << info.err;
    EXPECT_NE(info.out.find("Version read:  9\n"), std::string::npos);
    EXPECT_NE(info.out.find("Orientations:  1\n"), std::string::npos);
    EXPECT_NE(info.out.find("TzRz"), std::string::npos);
    EXPECT_NE(info.out.find("Tx moving large loop, Rx moving dipole"), std::string::npos);
}

TEST_F(TolvadDsc, InfoSummarisesTheExamples)
{
    ToolRun time = Tool("info '" + kExamples + "/survey-time-domain.DSC'");
    ASSERT_EQ(time.status, 0) << time.err;
    EXPECT_NE(time.out.find("Domain:        time\n"), std::string::npos);
    EXPECT_NE(time.out.find("Time unit:     mSec\n"), std::string::npos);
    EXPECT_NE(time.out.find("Orientations:  3\n"), std::string::npos);
    EXPECT_NE(time.out.find("  TzRx    10 channels"), std::string::npos);

    ToolRun frequency = Tool("info '" + kExamples + "/survey-frequency-domain.DSC'");
    ASSERT_EQ(frequency.status, 0) << frequency.err;
    EXPECT_NE(frequency.out.find("Domain:        frequency\n"), std::string::npos);
    EXPECT_NE(frequency.out.find("  TzRz     3 frequencies"), std::string::npos);

    ToolRun old = Tool("info '" + kExamples + "/survey-version7.DSC'");
    ASSERT_EQ(old.status, 0) << old.err;
    EXPECT_NE(old.out.find("Version read:  7\n"), std::string::npos);
}

TEST_F(TolvadDsc, FieldOfADipoleAndOfAnUnsupportedTransmitter)
{
    const std::string fd = kExamples + "/survey-frequency-domain.DSC";
    ToolRun dipole = Tool("field '" + fd + "' TxRx 10 0 0");
    EXPECT_EQ(dipole.status, 0) << dipole.err;
    EXPECT_EQ(dipole.out, "0.000159155 0 0\n");

    EXPECT_EQ(Tool("field '" + fd + "' TyRy 10 0 0").status, 1);
    EXPECT_EQ(Tool("field '" + fd + "' TxRx 10 zero 0").status, 1);

    std::string bipole = ReadFile(fd);
    const std::string dipoleTx = "moving dipole\nx\n      1       0       0\n";
    ASSERT_NE(bipole.find(dipoleTx), std::string::npos);
    bipole.replace(bipole.find(dipoleTx), dipoleTx.size(),
                   "moving el. bipole\nx\n      1       0       0\n     -1       0       0\n");
    WriteFile(Path("bipole.DSC"), bipole);
    ToolRun unsupported = Tool("field '" + Path("bipole.DSC") + "' TxRx 10 0 0");
    EXPECT_EQ(unsupported.status, 2);
    EXPECT_EQ(unsupported.err, "error: Used Transmitter type is not supported!\n");
    EXPECT_EQ(unsupported.out, "");
}

} // namespace
