#include "app/xIniSettings.h"

#include "IniTestPlatform.h"
#include "frame/xFileSpec.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

const char kDefaultFile[] =
    "[EDITOR]\n"
    "Name=tolvad313.exe \n"
    "\n"
    "[PROJECTS]\n"
    "\n"
    "[CDI]\n"
    "Unresolved Color(WHITE,BLUE,GRAY,GREEN,LTGRAY)=WHITE\n"
    "Default filename extension for CDI ASCII file (DOC)=DOC\n"
    "Inspect input for correct amplitudes scale (Yes,No)=No\n"
    "Acceptable amplitude scale deviation level=10\n"
    "\n"
    "[SYSTEM]\n"
    "Font Family(SYSTEM,COURIER,HELVETICA,TIMES)=SYSTEM\n"
    "Font Style(NONE,BOLD,ITALIC)=BOLD\n"
    "Font Size=10\n"
    "Lines Order(LINE_LOCATION_FROM_ORIGIN,DECREASING_LINE_NUMBER,INCREASING_LINE_NUMBER,"
    "INCREASING_OFFSET)=LINE_LOCATION_FROM_ORIGIN\n"
    "\n"
    "[APPROX]\n"
    "ThinSheet(TxRx,..,TzRz)=\n"
    "0 0 0 0 0 0 4 0 3\n"
    "HalfSpace(TxRx,..,TzRz)=\n"
    "0 0 0 0 0 0 2.5 0 1.5\n"
    "Number_of_extra_taus=2\n"
    "[DYNAMIC CONTROLS]\n"
    "Title=\n"
    "Command=\n"
    "\n";

std::string Warning(const std::string& section, const std::string& key)
{
    return "WARNING: Initialization file is incorrect in " + section + "\n" + key + ".";
}

std::string Missing(const std::string& header)
{
    return "WARNING: Initialization file is incorrect in " + header + ".";
}

// The default file with one text replaced.
std::string Edited(const std::string& from, const std::string& to)
{
    std::string text = kDefaultFile;
    text.replace(text.find(from), from.size(), to);
    return text;
}

class IniSettingsTest : public ::testing::Test {
protected:
    void SetUp() override { editorName = "tolvad313.exe "; }
    void TearDown() override
    {
        DestroyIni();
        editorName = "tolvad313.exe ";
    }
    // Reads the text as the settings file.
    void Open(const std::string& text)
    {
        platform.Put("Varnel.INI", text);
        CreateIni();
        ASSERT_NE(iniSettings, nullptr);
    }
    std::vector<std::string> Errors() const { return platform.Texts(xPlatform::kError); }

    IniTestPlatform platform;
};

TEST_F(IniSettingsTest, MissingFileKeepsDefaultsQuietlyAndDestroyWritesAFullFile)
{
    std::string before = platform.CurrentDirectory();
    EXPECT_EQ(GetProjectList(), nullptr);
    CreateIni();
    ASSERT_NE(iniSettings, nullptr);
    xIniSettings* first = iniSettings;
    CreateIni();
    EXPECT_EQ(iniSettings, first);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    xFontRecord font;
    iniSettings->GetFont(font);
    EXPECT_EQ(font.family, "system");
    EXPECT_EQ(font.style, 1);
    EXPECT_EQ(font.size, 10);
    EXPECT_EQ(iniSettings->unresolvedColor, 0x0BFFFFFFu);
    EXPECT_EQ(iniSettings->amplitudeDeviation, 10.0f);
    FloatArray& thin = iniSettings->GetApproxTable(1);
    EXPECT_EQ(thin.Lower(), 101);
    EXPECT_EQ(thin.Upper(), 109);
    EXPECT_EQ(&iniSettings->GetApproxTable(7), &thin);
    EXPECT_EQ(iniSettings->GetApproxTable(2)[107], 2.5f);
    EXPECT_EQ(iniSettings->GetDynamicTitle(), nullptr);
    ASSERT_NE(GetProjectList(), nullptr);
    EXPECT_TRUE(GetProjectList()->empty());

    DestroyIni();
    EXPECT_EQ(iniSettings, nullptr);
    EXPECT_EQ(platform.Get("Varnel.INI"), kDefaultFile);
    EXPECT_EQ(platform.CurrentDirectory(), before);
    // Nothing is left beside it.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(platform.directory),
                            std::filesystem::directory_iterator()), 1);
}

TEST_F(IniSettingsTest, ValuesSurviveWritingAndReading)
{
    CreateIni();
    iniSettings->projects = {"/data/a", "/data/b"};
    iniSettings->unresolvedColor = xIniSettings::kLightGray;
    iniSettings->font = {"courier", 2, 14};
    iniSettings->linesOrder = 4;
    iniSettings->cdiExtension = "TXT";
    iniSettings->inspectAmplitudes = true;
    iniSettings->amplitudeDeviation = 0.125f;
    iniSettings->thinSheet[101] = -1.5f;
    iniSettings->halfSpace[109] = 1e-7f;
    iniSettings->extraTaus = 5;
    iniSettings->dynamicTitle = "Run";
    iniSettings->dynamicCommand = "tool -x";
    editorName = "/opt/bin/ed ";
    DestroyIni();
    editorName.clear();

    CreateIni();
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    xIniSettings& ini = *iniSettings;
    EXPECT_EQ(editorName, "/opt/bin/ed ");
    EXPECT_EQ(ini.projects, (std::vector<std::string>{"/data/a", "/data/b"}));
    EXPECT_EQ(ini.unresolvedColor, xIniSettings::kLightGray);
    EXPECT_EQ(ini.font.family, "courier");
    EXPECT_EQ(ini.font.style, 2);
    EXPECT_EQ(ini.font.size, 14);
    EXPECT_EQ(ini.linesOrder, 4);
    EXPECT_EQ(ini.cdiExtension, "TXT");
    EXPECT_TRUE(ini.inspectAmplitudes);
    EXPECT_EQ(ini.amplitudeDeviation, 0.125f);
    EXPECT_EQ(ini.thinSheet[101], -1.5f);
    EXPECT_EQ(ini.thinSheet[107], 4.0f);
    EXPECT_EQ(ini.halfSpace[109], 1e-7f);
    EXPECT_EQ(ini.extraTaus, 5);
    ASSERT_NE(ini.GetDynamicTitle(), nullptr);
    EXPECT_EQ(*ini.GetDynamicTitle(), "Run");

    // Only the exact title runs the command.
    ini.RunDynamicControl("run");
    EXPECT_TRUE(platform.startedPrograms.empty());
    platform.AllowProgram("tool");
    ini.RunDynamicControl("Run");
    EXPECT_EQ(platform.startedPrograms, std::vector<std::string>{"tool -x"});

    // Order 3 has no name: written empty, read back as 0.
    ini.linesOrder = 3;
    ini.font.style = 7;
    DestroyIni();
    std::string text = platform.Get("Varnel.INI");
    EXPECT_NE(text.find("INCREASING_OFFSET)=\n"), std::string::npos);
    EXPECT_NE(text.find("Font Style(NONE,BOLD,ITALIC)=BOLD\n"), std::string::npos);
    CreateIni();
    EXPECT_EQ(iniSettings->linesOrder, 0);
}

TEST_F(IniSettingsTest, FileStoppingAfterCdiWarnsForEachLaterSection)
{
    std::string text = kDefaultFile;
    Open(text.substr(0, text.find("[SYSTEM]")));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Missing("[SYSTEM]"), Missing("[APPROX]"),
                                                  Missing("[DYNAMIC CONTROLS]")}));
    EXPECT_EQ(iniSettings->font.size, 10);
    EXPECT_EQ(iniSettings->extraTaus, 2);
}

TEST_F(IniSettingsTest, ValueRules)
{
    struct Case {
        std::string from, to;
        int size;
        uint32_t color;
    };
    const std::string size = "Font Size=10";
    const std::string color = "LTGRAY)=WHITE";
    for (const Case& c : {Case{size, "Font Size=3", 12, xIniSettings::kWhite},
                          Case{size, "Font Size=4", 4, xIniSettings::kWhite},
                          Case{size, "Font Size=19.9", 19, xIniSettings::kWhite},
                          Case{size, "Font Size=20", 12, xIniSettings::kWhite},
                          Case{size, "Font Size=1e30", 12, xIniSettings::kWhite},
                          Case{color, "LTGRAY)=RED", 10, xIniSettings::kBlue},
                          Case{color, "LTGRAY)=green", 10, xIniSettings::kBlue},
                          Case{color, "LTGRAY)=GREEN", 10, xIniSettings::kGreen},
                          Case{color, "LTGRAY)=GRAY", 10, xIniSettings::kGray}}) {
        Open(Edited(c.from, c.to));
        EXPECT_EQ(iniSettings->font.size, c.size) << c.to;
        EXPECT_EQ(iniSettings->unresolvedColor, c.color) << c.to;
        DestroyIni();
    }
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    std::string text = Edited("=SYSTEM\n", "=TIMES\n");
    text.replace(text.find("=BOLD"), 5, "=bold");
    text.replace(text.find("=LINE_LOCATION_FROM_ORIGIN"), 26, "=DECREASING_LINE_NUMBER");
    text.replace(text.find("(Yes,No)=No"), 11, "(Yes,No)=YeS");
    text.replace(text.find("level=10"), 8, "level=abc");
    text.replace(text.find("taus=2"), 6, "taus=-3.7");
    Open(text);
    EXPECT_EQ(iniSettings->font.family, "times");
    EXPECT_EQ(iniSettings->font.style, 0);
    EXPECT_EQ(iniSettings->linesOrder, 2);
    EXPECT_TRUE(iniSettings->inspectAmplitudes);
    EXPECT_EQ(iniSettings->amplitudeDeviation, 0.0f);
    EXPECT_EQ(iniSettings->extraTaus, -3);
}

TEST_F(IniSettingsTest, KeysAreFoundAnywhereAndCutFromTheLineStart)
{
    std::string text = Edited("Name=tolvad313.exe ", "xxName=abc");
    text = text.substr(0, text.find("[PROJECTS]")) + "  [PROJECTS]  \n  Project1= /a \n" +
           "xProject2=b\n" + text.substr(text.find("\n[CDI]"));
    Open(text);
    EXPECT_EQ(editorName, "e=abc");
    EXPECT_EQ(iniSettings->projects, (std::vector<std::string>{" /a", "=b"}));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(IniSettingsTest, MissingKeyWarnsAndTheNextSectionStillReads)
{
    std::string text = Edited("Default filename extension for CDI ASCII file (DOC)=DOC\n", "");
    text.replace(text.find("Font Style"), 5, "Fnt");
    text.replace(text.find("Title="), 7, "Title=Go\nCmd=x\n");
    Open(text);
    EXPECT_EQ(Errors(),
              (std::vector<std::string>{
                  Warning("[CDI]", "Default filename extension for CDI ASCII file (DOC)="),
                  Warning("[Font]", "Font Style(NONE,BOLD,ITALIC)="),
                  Warning("[Line Order]",
                          "Lines Order(LINE_LOCATION_FROM_ORIGIN,DECREASING_LINE_NUMBER,"
                          "INCREASING_LINE_NUMBER,INCREASING_OFFSET)="),
                  Warning("[DYNAMIC CONTROLS]", "Command=")}));
    // What was read before a failure stays; the sections after it are read.
    EXPECT_EQ(iniSettings->unresolvedColor, xIniSettings::kWhite);
    EXPECT_EQ(iniSettings->font.family, "system");
    EXPECT_EQ(iniSettings->font.style, 1);
    EXPECT_EQ(iniSettings->extraTaus, 2);
    EXPECT_EQ(iniSettings->dynamicTitle, "Go");
    EXPECT_EQ(iniSettings->dynamicCommand, "");
}

TEST_F(IniSettingsTest, EmptyTitleLeavesTheCommandUnread)
{
    Open(Edited("Command=\n", "Command=tool\n"));
    EXPECT_EQ(iniSettings->dynamicCommand, "");
    EXPECT_EQ(iniSettings->GetDynamicTitle(), nullptr);
    iniSettings->RunDynamicControl("");
    EXPECT_TRUE(platform.startedPrograms.empty());
}

TEST_F(IniSettingsTest, ProjectListRules)
{
    std::string text = kDefaultFile;
    std::string list;
    for (int i = 1; i <= 9; ++i)
        list += "Project" + std::to_string(i) + "=p" + std::to_string(i) + "\n";
    Open(Edited("[PROJECTS]\n", "[PROJECTS]\n" + list));
    EXPECT_EQ(iniSettings->projects.size(), 9u);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    AddProject("p9");
    EXPECT_EQ(iniSettings->projects.size(), 9u);
    EXPECT_EQ(iniSettings->projects.front(), "p9");
    DestroyIni();

    // A tenth entry can't be read; the sections after it still are.
    Open(Edited("[PROJECTS]\n", "[PROJECTS]\n" + list + "Project10=p10\n"));
    EXPECT_EQ(Errors(), std::vector<std::string>{Warning("[PROJECTS]", "Project#=")});
    EXPECT_EQ(iniSettings->projects.size(), 9u);
    EXPECT_EQ(iniSettings->font.size, 10);
    iniSettings->projects.clear();

    for (const char* path : {"a", "b", "c", "d", "e"})
        AddProject(path);
    AddProject("c");
    EXPECT_EQ(*GetProjectList(), (std::vector<std::string>{"c", "e", "d", "b", "a"}));
    AddProject("f");
    EXPECT_EQ(*GetProjectList(), (std::vector<std::string>{"f", "c", "e", "d", "b"}));
    xFileSpec spec;
    spec.SetDirectoryText("/survey");
    spec.name = "line1";
    AddProject(spec);
    EXPECT_EQ(GetProjectList()->front(), "/survey/line1");
    DestroyIni();
    AddProject("ignored");
    EXPECT_EQ(GetProjectList(), nullptr);
    EXPECT_NE(platform.Get("Varnel.INI").find("[PROJECTS]\nProject1=/survey/line1\nProject2=f\n"),
              std::string::npos);
}

TEST_F(IniSettingsTest, LineEndsBlankLinesAndApproxNumbers)
{
    // CR LF and CR alike, ten blank lines between keys are passed over, the
    // nine numbers may spread over lines.
    std::string text = Edited("0 0 0 0 0 0 4 0 3", "1 2 3\n4 5 6\r\n7 8\r9");
    text.replace(text.find("Font Size"), 0, std::string(10, '\n'));
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    Open(crlf);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    for (int i = 101; i <= 109; ++i)
        EXPECT_EQ(iniSettings->thinSheet[i], static_cast<float>(i - 100));
    EXPECT_EQ(editorName, "tolvad313.exe ");
    DestroyIni();

    // An eleventh blank line is taken as the line.
    Open(Edited("Font Size", std::string(11, '\n') + "Font Size"));
    // The lines order starts again from where the size was looked for.
    EXPECT_EQ(Errors(), (std::vector<std::string>{
                            Warning("[Font]", "Font Size="),
                            Warning("[Line Order]",
                                    "Lines Order(LINE_LOCATION_FROM_ORIGIN,DECREASING_LINE_NUMBER,"
                                    "INCREASING_LINE_NUMBER,INCREASING_OFFSET)=")}));
    DestroyIni();
    platform.Clear();

    // A number that isn't one fails the stream: the rest keeps its defaults.
    Open(Edited("0 0 0 0 0 0 4 0 3", "7 7 x"));
    EXPECT_EQ(Errors(), (std::vector<std::string>{Warning("[APPROX]", "HalfSpace(TxRx,..,TzRz)="),
                                                  Missing("[DYNAMIC CONTROLS]")}));
    EXPECT_EQ(iniSettings->thinSheet[102], 7.0f);
    EXPECT_EQ(iniSettings->thinSheet[103], 0.0f);
    EXPECT_EQ(iniSettings->thinSheet[107], 4.0f);
}

TEST_F(IniSettingsTest, JunkOutOfOrderAndHugeFilesGiveWarningsAndDefaults)
{
    const std::vector<std::string> all = {
        Missing("[EDITOR]"), Missing("[PROJECTS]"), Missing("[CDI]"),
        Missing("[SYSTEM]"), Missing("[APPROX]"), Missing("[DYNAMIC CONTROLS]")};
    std::string junk;
    for (int i = 0; i < 70000; ++i)
        junk += static_cast<char>((i * 7919) % 256);
    Open(junk);
    EXPECT_EQ(Errors(), all);
    EXPECT_EQ(iniSettings->extraTaus, 2);
    DestroyIni();
    platform.Clear();

    // A section ahead of its turn is passed over by the search for the one before.
    std::string text = kDefaultFile;
    size_t cdi = text.find("[CDI]"), system = text.find("[SYSTEM]");
    std::string swapped =
        text.substr(0, text.find("[PROJECTS]")) + text.substr(cdi, system - cdi) +
        "[PROJECTS]\nProject1=x\n\n" + text.substr(system);
    Open(swapped);
    EXPECT_EQ(Errors(), (std::vector<std::string>{Missing("[CDI]"), Missing("[SYSTEM]"),
                                                  Missing("[APPROX]"),
                                                  Missing("[DYNAMIC CONTROLS]")}));
    EXPECT_EQ(iniSettings->projects, std::vector<std::string>{"x"});
    DestroyIni();
    platform.Clear();

    // A million lines ahead of the real file: read once, front to back.
    std::string huge;
    huge.reserve(9000000);
    for (int i = 0; i < 1000000; ++i)
        huge += i % 3 ? "junk=1\n" : "\n";
    Open(huge + Edited("Font Size=10", "Font Size=8"));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    EXPECT_EQ(iniSettings->font.size, 8);
    DestroyIni();
    Open(std::string(1000000, '\n'));
    EXPECT_EQ(Errors(), all);
}

TEST_F(IniSettingsTest, AFailedWriteKeepsTheOldFile)
{
    platform.Put("Varnel.INI", "old");
    ::chmod(platform.Path("Varnel.INI").c_str(), 0444);
    CreateIni();
    iniSettings->cdiExtension = "NEW";
    DestroyIni();
    EXPECT_EQ(platform.Get("Varnel.INI"), "old");

    // Where the file's name is taken by a directory, the rename fails and no
    // half-written file is left behind.
    std::filesystem::remove(platform.Path("Varnel.INI"));
    std::filesystem::create_directories(platform.Path("Varnel.INI/keep"));
    CreateIni();
    DestroyIni();
    EXPECT_TRUE(std::filesystem::is_directory(platform.Path("Varnel.INI/keep")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(platform.directory),
                            std::filesystem::directory_iterator()), 1);
}

} // namespace
