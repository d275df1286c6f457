#include "app/xIniSettings.h"

#include "IniTestPlatform.h"
#include "frame/xFileSpec.h"

#include <gtest/gtest.h>

#include <regex>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::string kDefaultFile =
    "[EDITOR]\nName=tolvad313.exe \n\n[PROJECTS]\n\n[CDI]\n"
    "Unresolved Color(WHITE,BLUE,GRAY,GREEN,LTGRAY)=WHITE\n"
    "Default filename extension for CDI ASCII file (DOC)=DOC\n"
    "Inspect input for correct amplitudes scale (Yes,No)=No\n"
    "Acceptable amplitude scale deviation level=10\n\n[SYSTEM]\n"
    "Font Family(SYSTEM,COURIER,HELVETICA,TIMES)=SYSTEM\n"
    "Font Style(NONE,BOLD,ITALIC)=BOLD\nFont Size=10\n"
    "Lines Order(LINE_LOCATION_FROM_ORIGIN,DECREASING_LINE_NUMBER,INCREASING_LINE_NUMBER,"
    "INCREASING_OFFSET)=LINE_LOCATION_FROM_ORIGIN\n\n[APPROX]\n"
    "ThinSheet(TxRx,..,TzRz)=\n0 0 0 0 0 0 4 0 3\n"
    "HalfSpace(TxRx,..,TzRz)=\n0 0 0 0 0 0 2.5 0 1.5\n"
    "Number_of_extra_taus=2\n[DYNAMIC CONTROLS]\nTitle=\nCommand=\n\n";
const std::string kOrderKey = "Lines Order(LINE_LOCATION_FROM_ORIGIN,DECREASING_LINE_NUMBER,"
                              "INCREASING_LINE_NUMBER,INCREASING_OFFSET)=";

// The warning of a missing section header, or of a missing key in its section.
std::string Incorrect(const std::string& section, const std::string& key = "")
{
    return "WARNING: Initialization file is incorrect in " + section + (key.empty() ? "" : "\n") +
           key + ".";
}

// The default file with one text replaced.
std::string Edited(const std::string& from, const std::string& to, std::string text = kDefaultFile)
{
    return text.replace(text.find(from), from.size(), to);
}

class IniSettingsTest : public ::testing::Test {
protected:
    void TearDown() override
    {
        DestroyIni();
        editorName = "tolvad313.exe ";
    }
    // Reads the text as the settings file, with a clean record of messages.
    void Open(const std::string& text)
    {
        DestroyIni();
        platform.Clear();
        platform.Put("Varnel.INI", text);
        CreateIni();
    }
    std::vector<std::string> Errors() const { return platform.Texts(xPlatform::kError); }
    long FilesInStartup() const
    {
        return std::distance(std::filesystem::directory_iterator(platform.directory),
                             std::filesystem::directory_iterator());
    }

    IniTestPlatform platform;
};

TEST_F(IniSettingsTest, MissingFileKeepsDefaultsQuietlyAndValuesSurviveWritingAndReading)
{
    std::string before = platform.CurrentDirectory();
    CreateIni();
    xIniSettings* ini = iniSettings;
    CreateIni();
    EXPECT_EQ(iniSettings, ini);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    EXPECT_EQ(&ini->GetApproxTable(7), &ini->GetApproxTable(1));
    EXPECT_EQ(ini->GetDynamicTitle(), nullptr);
    DestroyIni();
    EXPECT_EQ(platform.Get("Varnel.INI"), kDefaultFile);
    EXPECT_EQ(platform.CurrentDirectory(), before);
    EXPECT_EQ(FilesInStartup(), 1);

    CreateIni();
    ini = iniSettings;
    ini->projects = {"/data/a", "/data/b"};
    ini->unresolvedColor = xIniSettings::kLightGray;
    ini->font = {"courier", 2, 14};
    ini->thinSheet[101] = 1e-7f;
    ini->linesOrder = 4;
    ini->amplitudeDeviation = 0.125f;
    ini->dynamicTitle = "Run";
    ini->dynamicCommand = "tool -x";
    editorName = "/opt/bin/ed ";
    DestroyIni();
    editorName.clear();
    CreateIni();
    ini = iniSettings;
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    EXPECT_EQ(editorName, "/opt/bin/ed ");
    EXPECT_EQ(ini->projects, (std::vector<std::string>{"/data/a", "/data/b"}));
    EXPECT_EQ(ini->unresolvedColor, xIniSettings::kLightGray);
    xFontRecord font;
    EXPECT_EQ(ini->GetFont(font).family, "courier");
    EXPECT_EQ(font.style * 100 + font.size, 214);
    EXPECT_EQ(ini->linesOrder, 4);
    EXPECT_EQ(ini->amplitudeDeviation + ini->thinSheet[101], 0.125f + 1e-7f);
    EXPECT_EQ(*ini->GetDynamicTitle(), "Run");

    // Only the exact title runs the command.
    platform.AllowProgram("tool");
    ini->RunDynamicControl("run");
    ini->RunDynamicControl("Run");
    EXPECT_EQ(platform.startedPrograms, (std::vector<std::vector<std::string>>{{"tool", "-x"}}));

    // Order 3 has no name and is written empty; a style out of range as BOLD.
    ini->linesOrder = 3;
    ini->font.style = 7;
    DestroyIni();
    std::string text = platform.Get("Varnel.INI");
    EXPECT_NE(text.find(kOrderKey + "\n"), std::string::npos);
    EXPECT_NE(text.find("Font Style(NONE,BOLD,ITALIC)=BOLD\n"), std::string::npos);
}

TEST_F(IniSettingsTest, ValueRules)
{
    const std::string size = "Font Size=10", color = "LTGRAY)=WHITE";
    for (auto [from, to, points, rgb] :
         {std::make_tuple(size, "Font Size=3", 12, xIniSettings::kWhite),
          std::make_tuple(size, "Font Size=4", 4, xIniSettings::kWhite),
          std::make_tuple(size, "Font Size=19.9", 19, xIniSettings::kWhite),
          std::make_tuple(size, "Font Size=20", 12, xIniSettings::kWhite),
          std::make_tuple(size, "Font Size=1e30", 12, xIniSettings::kWhite),
          std::make_tuple(color, "LTGRAY)=RED", 10, xIniSettings::kBlue),
          std::make_tuple(color, "LTGRAY)=green", 10, xIniSettings::kBlue),
          std::make_tuple(color, "LTGRAY)=GREEN", 10, xIniSettings::kGreen)}) {
        Open(Edited(from, to));
        EXPECT_EQ(iniSettings->font.size, points) << to;
        EXPECT_EQ(iniSettings->unresolvedColor, rgb) << to;
        EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    }

    std::string text = Edited("=SYSTEM\n", "=TIMES\n");
    text = Edited("=BOLD", "=bold", text);
    text = Edited("=LINE_LOCATION_FROM_ORIGIN", "=DECREASING_LINE_NUMBER", text);
    text = Edited("(Yes,No)=No", "(Yes,No)=YeS", Edited("level=10", "level=abc", text));
    Open(Edited("taus=2", "taus=-3.7", text));
    EXPECT_EQ(iniSettings->font.family, "times");
    EXPECT_EQ(iniSettings->font.style, 0);
    EXPECT_EQ(iniSettings->linesOrder, 2);
    EXPECT_TRUE(iniSettings->inspectAmplitudes);
    EXPECT_EQ(iniSettings->amplitudeDeviation, 0.0f);
    EXPECT_EQ(iniSettings->extraTaus, -3);

    // A number no float holds can't be read: the key's warning, and the
    // value as it was.
    text = Edited("level=10", "level=1e39", Edited("Font Size=10", "Font Size=1e39"));
    Open(Edited("taus=2", "taus=-1e400", text));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Incorrect("[CDI]", "Acceptable amplitude scale deviation level="),
                                                  Incorrect("[Font]", "Font Size="),
                                                  Incorrect("[APPROX]", "Number_of_extra_taus=")}));
    EXPECT_EQ(iniSettings->amplitudeDeviation, 10.0f);
    EXPECT_EQ(iniSettings->font.size, 10);
    EXPECT_EQ(iniSettings->extraTaus, 2);

    // Keys are found anywhere in their line, but the value is cut by the
    // key's length from the line's start. A blank title leaves the command unread.
    text = Edited("[PROJECTS]\n", "  [PROJECTS]  \n  Project1= /a \nxProject2=b\n");
    Open(Edited("Name=", "xxName=", Edited("Command=", "Command=tool", text)));
    EXPECT_EQ(editorName, "e=tolvad313.exe ");
    EXPECT_EQ(iniSettings->projects, (std::vector<std::string>{" /a", "=b"}));
    EXPECT_EQ(iniSettings->dynamicCommand, "");
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(IniSettingsTest, SectionWarnings)
{
    // A file that stops after [CDI].
    Open(kDefaultFile.substr(0, kDefaultFile.find("[SYSTEM]")));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Incorrect("[SYSTEM]"), Incorrect("[APPROX]"),
                                                  Incorrect("[DYNAMIC CONTROLS]")}));

    // A missing key gives its line back to the next section; what was read stays.
    std::string text = Edited("Default filename extension for CDI ASCII file (DOC)=DOC\n", "");
    text = Edited("Font Style", "FntStyle", Edited("=WHITE", "=GRAY", text));
    Open(Edited("Title=", "Title=Go\nCmd=x", text));
    EXPECT_EQ(Errors(),
              (std::vector<std::string>{
                  Incorrect("[CDI]", "Default filename extension for CDI ASCII file (DOC)="),
                  Incorrect("[Font]", "Font Style(NONE,BOLD,ITALIC)="),
                  Incorrect("[Line Order]", kOrderKey),
                  Incorrect("[DYNAMIC CONTROLS]", "Command=")}));
    EXPECT_EQ(iniSettings->unresolvedColor, xIniSettings::kGray);
    EXPECT_EQ(iniSettings->dynamicTitle, "Go");

    // A section ahead of its turn is passed over by the search for the one before.
    size_t cdi = kDefaultFile.find("[CDI]"), system = kDefaultFile.find("[SYSTEM]");
    Open(Edited("[PROJECTS]\n\n" + kDefaultFile.substr(cdi, system - cdi),
                kDefaultFile.substr(cdi, system - cdi) + "[PROJECTS]\nProject1=x\n\n"));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Incorrect("[CDI]"), Incorrect("[SYSTEM]"),
                                                  Incorrect("[APPROX]"),
                                                  Incorrect("[DYNAMIC CONTROLS]")}));
    EXPECT_EQ(iniSettings->projects, std::vector<std::string>{"x"});
}

TEST_F(IniSettingsTest, ProjectList)
{
    // A tenth entry can't be read; the sections after it still are.
    std::string list;
    for (int i = 1; i <= 10; ++i)
        list += "Project" + std::to_string(i) + "=p" + std::to_string(i) + "\n";
    Open(Edited("[PROJECTS]\n", "[PROJECTS]\n" + list));
    EXPECT_EQ(Errors(), std::vector<std::string>{Incorrect("[PROJECTS]", "Project#=")});
    EXPECT_EQ(iniSettings->projects.size(), 9u);
    // The first AddProject leaves five, also when the path was in the list.
    AddProject("p9");
    EXPECT_EQ(iniSettings->projects, (std::vector<std::string>{"p9", "p1", "p2", "p3", "p4"}));

    iniSettings->projects.clear();
    for (const char* path : {"a", "b", "c", "d", "e", "c", "f"})
        AddProject(path);
    EXPECT_EQ(*GetProjectList(), (std::vector<std::string>{"f", "c", "e", "d", "b"}));
    xFileSpec spec;
    spec.SetDirectoryText("/survey");
    spec.name = "line1";
    AddProject(spec);
    DestroyIni();
    AddProject("ignored");
    EXPECT_EQ(GetProjectList(), nullptr);
    EXPECT_NE(platform.Get("Varnel.INI").find("[PROJECTS]\nProject1=/survey/line1\nProject2=f\n"),
              std::string::npos);
}

TEST_F(IniSettingsTest, LineEndsBlankLinesAndApproxNumbers)
{
    // CR LF and CR alike, ten blank lines are passed over, and the nine
    // numbers may spread over lines.
    std::string text = Edited("0 0 0 0 0 0 4 0 3", "1 2 3\n4 5 6\r\n7 8\r9");
    text = Edited("Font Size", std::string(10, '\n') + "Font Size", text);
    Open(std::regex_replace(text, std::regex("\n"), "\r\n"));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    for (int i = 101; i <= 109; ++i)
        EXPECT_EQ(iniSettings->thinSheet[i], static_cast<float>(i - 100));
    EXPECT_EQ(editorName, "tolvad313.exe ");

    // An eleventh blank line is taken as the line; the lines order starts
    // again from where the size was looked for.
    Open(Edited("Font Size", std::string(11, '\n') + "Font Size"));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Incorrect("[Font]", "Font Size="),
                                                  Incorrect("[Line Order]", kOrderKey)}));

    // A number that isn't one fails the stream: the rest keeps its defaults.
    Open(Edited("0 0 0 0 0 0 4 0 3", "7 7 x"));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Incorrect("[APPROX]", "HalfSpace(TxRx,..,TzRz)="),
                                                  Incorrect("[DYNAMIC CONTROLS]")}));
    EXPECT_EQ(iniSettings->thinSheet[102], 7.0f);
    EXPECT_EQ(iniSettings->thinSheet[103], 0.0f);
}

TEST_F(IniSettingsTest, JunkAndHugeFilesGiveWarningsAndDefaults)
{
    const std::vector<std::string> all = {
        Incorrect("[EDITOR]"), Incorrect("[PROJECTS]"), Incorrect("[CDI]"),
        Incorrect("[SYSTEM]"), Incorrect("[APPROX]"), Incorrect("[DYNAMIC CONTROLS]")};
    std::string junk;
    for (int i = 0; i < 70000; ++i)
        junk += static_cast<char>((i * 7919) % 256);
    Open(junk);
    EXPECT_EQ(Errors(), all);

    // A million lines ahead of the real file.
    std::string huge;
    for (int i = 0; i < 1000000; ++i)
        huge += i % 3 ? "junk=1\n" : "\n";
    Open(huge + Edited("Font Size=10", "Font Size=8"));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    EXPECT_EQ(iniSettings->font.size, 8);
}

TEST_F(IniSettingsTest, AFailedWriteKeepsTheOldFileAndSaysSo)
{
    const std::string path = platform.Path("Varnel.INI");
    platform.Put("Varnel.INI", "old");
    ::chmod(path.c_str(), 0444);
    CreateIni();
    platform.Clear();
    DestroyIni();
    EXPECT_EQ(platform.Get("Varnel.INI"), "old");
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"Settings not saved: " + path + " (read-only file)."});

    // A directory in the file's place: nothing is left behind, and a warning.
    std::filesystem::remove(path);
    std::filesystem::create_directories(platform.Path("Varnel.INI/keep"));
    CreateIni();
    platform.Clear();
    DestroyIni();
    EXPECT_TRUE(std::filesystem::is_directory(platform.Path("Varnel.INI/keep")));
    EXPECT_EQ(FilesInStartup(), 1);
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"Settings not saved: " + path + " (is a directory)."});
}

TEST_F(IniSettingsTest, SavingWritesThroughALinkAndInPlaceInAClosedFolder)
{
    // A link named Varnel.INI stays a link; the file it leads to is rewritten.
    std::filesystem::create_directory(platform.Path("shared"));
    platform.Put("shared/suite.ini", Edited("Font Size=10", "Font Size=8"));
    std::filesystem::create_symlink("shared/suite.ini", platform.Path("Varnel.INI"));
    CreateIni();
    EXPECT_EQ(iniSettings->font.size, 8);
    iniSettings->font.size = 10;
    DestroyIni();
    EXPECT_TRUE(std::filesystem::is_symlink(platform.Path("Varnel.INI")));
    EXPECT_EQ(platform.Get("shared/suite.ini"), kDefaultFile);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    // A folder that takes no new file: the writable file is written in place.
    // Folder permissions don't stop the superuser, so the child is nobody.
    std::filesystem::remove(platform.Path("Varnel.INI"));
    platform.Put("Varnel.INI", Edited("[PROJECTS]\n", "[PROJECTS]\nProject1=/" + std::string(500, 'p') + "\n"));
    pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const uid_t nobody = 65534;
        if (::geteuid() == 0 &&
            (::chown(platform.directory.c_str(), nobody, nobody) != 0 ||
             ::chown(platform.Path("Varnel.INI").c_str(), nobody, nobody) != 0 || ::setgid(nobody) != 0 ||
             ::setuid(nobody) != 0))
            ::_exit(3);
        ::chmod(platform.directory.c_str(), 0555);
        CreateIni();
        iniSettings->projects.clear();   // the new text is shorter than the old
        DestroyIni();
        bool written = platform.Get("Varnel.INI") == kDefaultFile && platform.messages.empty();
        ::chmod(platform.directory.c_str(), 0755);
        ::_exit(written ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(platform.Get("Varnel.INI"), kDefaultFile);
}

} // namespace
