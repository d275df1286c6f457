#include "app/xIniSettings.h"

#include "app/xIniFile.h"
#include "app/xModuleLauncher.h"
#include "frame/xFileReplacer.h"
#include "frame/xFileSpec.h"
#include "gui/xPlatform.h"
#include "numeric/xCNumber.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <istream>
#include <limits>
#include <locale>
#include <ostream>
#include <regex>

xIniSettings* iniSettings = nullptr;
std::string editorName = "tolvad313.exe ";

std::streamoff xIniSettings::rememberedPosition = 0;

namespace {

const char kNameKey[] = "Name=";
const char kColorKey[] = "Unresolved Color(WHITE,BLUE,GRAY,GREEN,LTGRAY)=";
const char kExtensionKey[] = "Default filename extension for CDI ASCII file (DOC)=";
const char kInspectKey[] = "Inspect input for correct amplitudes scale (Yes,No)=";
const char kDeviationKey[] = "Acceptable amplitude scale deviation level=";
const char kFamilyKey[] = "Font Family(SYSTEM,COURIER,HELVETICA,TIMES)=";
const char kStyleKey[] = "Font Style(NONE,BOLD,ITALIC)=";
const char kSizeKey[] = "Font Size=";
const char kOrderKey[] =
    "Lines Order(LINE_LOCATION_FROM_ORIGIN,DECREASING_LINE_NUMBER,INCREASING_LINE_NUMBER,"
    "INCREASING_OFFSET)=";
const char kThinSheetKey[] = "ThinSheet(TxRx,..,TzRz)=";
const char kHalfSpaceKey[] = "HalfSpace(TxRx,..,TzRz)=";
const char kTausKey[] = "Number_of_extra_taus=";
const char kTitleKey[] = "Title=";
const char kCommandKey[] = "Command=";

// Names of the lines orders by value; 3 has none.
const char* const kOrderNames[] = {"LINE_LOCATION_FROM_ORIGIN", "INCREASING_LINE_NUMBER",
                                   "DECREASING_LINE_NUMBER", "", "INCREASING_OFFSET"};

const int kFirstOrientation = 101;
const int kLastOrientation = 109;
const size_t kMaxProjects = 5;

std::string StripBlanks(const std::string& text)
{
    size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return std::string();
    size_t last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

// A value as atof reads it, with "." whatever the locale; false, with value
// untouched, for a number no float holds.
bool TextToFloat(const std::string& text, float& value)
{
    return xCNumber::ReadFloat(text.c_str(), value) != xCNumber::kBeyondFloat;
}

// A value read as a float and taken as a whole number; out of range saturates.
bool FloatToInt(const std::string& text, int32_t& value)
{
    float number = 0.0f;
    if (!TextToFloat(text, number))
        return false;
    if (number >= 2147483648.0f)
        value = std::numeric_limits<int32_t>::max();
    else if (number <= -2147483648.0f)
        value = std::numeric_limits<int32_t>::min();
    else
        value = static_cast<int32_t>(number);
    return true;
}

// A number as the stream writes it by default, in the C locale and never as
// "inf" or "nan".
std::string StreamFloat(float value)
{
    return xCNumber::Printf("%g", static_cast<double>(xCNumber::Finite(value)));
}

const char* ColorName(uint32_t color)
{
    switch (color) {
    case xIniSettings::kWhite:
        return "WHITE";
    case xIniSettings::kGray:
        return "GRAY";
    case xIniSettings::kGreen:
        return "GREEN";
    case xIniSettings::kLightGray:
        return "LTGRAY";
    default:
        // What reading an unknown name gives.
        return "BLUE";
    }
}

const char* FamilyName(const std::string& family)
{
    if (family == "courier")
        return "COURIER";
    if (family == "helvetica")
        return "HELVETICA";
    if (family == "times")
        return "TIMES";
    return "SYSTEM";
}

const char* StyleName(int style)
{
    if (style == 0)
        return "NONE";
    if (style == 2)
        return "ITALIC";
    return "BOLD";
}

const char* OrderName(int32_t order)
{
    if (order < 0 || order > 4)
        return "";
    return kOrderNames[order];
}

void WriteTable(std::ostream& out, const FloatArray& table)
{
    for (int i = kFirstOrientation; i <= kLastOrientation; ++i) {
        if (i > kFirstOrientation)
            out << ' ';
        out << StreamFloat(table[i]);
    }
    out << '\n';
}

void ReadTable(std::istream& in, FloatArray& table)
{
    // Over line ends; a failed number fails the stream and the next key reports it.
    for (int i = kFirstOrientation; i <= kLastOrientation; ++i)
        xExtract::Float(in, table[i]);
}

} // namespace

xIniSettings::xIniSettings()
    : thinSheet(kFirstOrientation, kLastOrientation), halfSpace(kFirstOrientation, kLastOrientation)
{
    thinSheet[107] = 4.0f;
    thinSheet[109] = 3.0f;
    halfSpace[107] = 2.5f;
    halfSpace[109] = 1.5f;
    Read();
}

xIniSettings::~xIniSettings()
{
    Write();
}

bool xIniSettings::Read()
{
    xPlatform& platform = Platform();
    std::string saved = platform.CurrentDirectory();
    std::string startup = platform.StartupDirectory();
    platform.SetCurrentDirectory(startup);

    bool result = false;
    {
        xIniFile file(*this, startup, iniFileName);
        if (file.FileExists()) {
            file.Load();
            result = file.sectionsRead;
        }
    }
    platform.SetCurrentDirectory(saved);
    return result;
}

bool xIniSettings::Write()
{
    xPlatform& platform = Platform();
    std::string saved = platform.CurrentDirectory();
    std::string startup = platform.StartupDirectory();
    platform.SetCurrentDirectory(startup);

    xFileSpec spec;
    spec.SetDirectoryText(startup);
    spec.name = iniFileName;
    const std::string target = spec.FullPath();

    // The new file replaces the old one only when complete, so a full disk or
    // a crash never costs the old settings; a link is written through, a
    // read-only file stays as it is, and a folder that takes no new file gets
    // the file written in place.
    xFileReplacer file(target, xFileReplacer::kInPlace);
    bool result = file.Begin();
    if (result) {
        std::ostream& out = file.Stream();
        out.imbue(std::locale::classic());
        result = WriteSections(out) && file.Commit();
    }
    if (!result)
        PostWarning("Settings not saved: %s (%s).", target.c_str(),
                    file.Reason().empty() ? "write error" : file.Reason().c_str());
    platform.SetCurrentDirectory(saved);
    return result;
}

bool xIniSettings::ReadSections(std::istream& in)
{
    rememberedPosition = 0;
    // Every section is read, whatever the one before it gave.
    bool result = ReadEditor(in);
    result = ReadProjects(in) && result;
    result = ReadCdi(in) && result;
    result = ReadSystem(in) && result;
    result = ReadApprox(in) && result;
    result = ReadDynamicControls(in) && result;
    return result;
}

bool xIniSettings::NextLine(std::istream& in, std::string& line)
{
    rememberedPosition = in.tellg();
    // Blank lines are passed over, but no more than ten in a row.
    for (int reads = 0; reads < 11; ++reads) {
        int ending = xDoc::ReadLine(in, &line);
        if (ending == 0 && line.empty()) {
            // Nothing left: from here on every read fails.
            in.setstate(std::ios::failbit);
            return false;
        }
        if (!line.empty())
            return true;
    }
    return true;
}

bool xIniSettings::FindSection(std::istream& in, const char* header)
{
    std::string line;
    while (NextLine(in, line))
        if (StripBlanks(line) == header)
            return true;
    PostError("WARNING: Initialization file is incorrect in %s.", header);
    return false;
}

bool xIniSettings::RejectLine(std::istream& in, const char* label, const char* key)
{
    PostError("WARNING: Initialization file is incorrect in %s\n%s.", label, key);
    // The line may open the next section: give it back.
    in.seekg(rememberedPosition);
    return false;
}

bool xIniSettings::RejectValue(const char* label, const char* key)
{
    // A number no float holds is one the file can't mean: the key's warning,
    // and the field keeps what it had.
    PostError("WARNING: Initialization file is incorrect in %s\n%s.", label, key);
    return false;
}

bool xIniSettings::ReadKey(std::istream& in, const char* key, const char* label,
                           std::string& value)
{
    std::string line;
    NextLine(in, line);
    if (line.find(key) == std::string::npos)
        return RejectLine(in, label, key);
    // The key is meant to open its line: the value starts behind its length.
    value = line.substr(std::strlen(key));
    return true;
}

bool xIniSettings::ReadEditor(std::istream& in)
{
    if (!FindSection(in, "[EDITOR]"))
        return false;
    std::string value;
    if (!ReadKey(in, kNameKey, "[EDITOR]", value))
        return false;
    editorName = value;
    return true;
}

bool xIniSettings::ReadProjects(std::istream& in)
{
    if (!FindSection(in, "[PROJECTS]"))
        return false;
    static const std::regex entry("Project[1-9]=");
    std::string line;
    while (NextLine(in, line)) {
        line = StripBlanks(line);
        if (line.find('[') != std::string::npos) {
            // The next section: leave it to its reader.
            in.seekg(rememberedPosition);
            return true;
        }
        std::smatch match;
        if (!std::regex_search(line, match, entry))
            return RejectLine(in, "[PROJECTS]", "Project#=");
        projects.push_back(line.substr(static_cast<size_t>(match.length(0))));
    }
    return false;
}

bool xIniSettings::ReadCdi(std::istream& in)
{
    if (!FindSection(in, "[CDI]"))
        return false;
    std::string value;
    if (!ReadKey(in, kColorKey, "[CDI]", value))
        return false;
    unresolvedColor = kBlue;
    if (value == "WHITE")
        unresolvedColor = kWhite;
    else if (value == "GRAY")
        unresolvedColor = kGray;
    else if (value == "LTGRAY")
        unresolvedColor = kLightGray;
    else if (value == "GREEN")
        unresolvedColor = kGreen;

    if (!ReadKey(in, kExtensionKey, "[CDI]", value))
        return false;
    cdiExtension = value;

    if (!ReadKey(in, kInspectKey, "[CDI]", value))
        return false;
    std::transform(value.begin(), value.end(), value.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    inspectAmplitudes = value == "yes";

    if (!ReadKey(in, kDeviationKey, "[CDI]", value))
        return false;
    if (!TextToFloat(value, amplitudeDeviation))
        return RejectValue("[CDI]", kDeviationKey);
    return true;
}

bool xIniSettings::ReadSystem(std::istream& in)
{
    if (!FindSection(in, "[SYSTEM]"))
        return false;
    // The lines order is read even when the font part failed.
    bool result = ReadFont(in);
    result = ReadLinesOrder(in) && result;
    return result;
}

bool xIniSettings::ReadFont(std::istream& in)
{
    std::string value;
    if (!ReadKey(in, kFamilyKey, "[Font]", value))
        return false;
    font.family = "system";
    if (value == "TIMES")
        font.family = "times";
    else if (value == "HELVETICA")
        font.family = "helvetica";
    else if (value == "COURIER")
        font.family = "courier";

    if (!ReadKey(in, kStyleKey, "[Font]", value))
        return false;
    font.style = 0;
    if (value == "BOLD")
        font.style = 1;
    else if (value == "ITALIC")
        font.style = 2;

    if (!ReadKey(in, kSizeKey, "[Font]", value))
        return false;
    int32_t size = 0;
    if (!FloatToInt(value, size))
        return RejectValue("[Font]", kSizeKey);
    font.size = 12;
    if (size >= 4 && size <= 19)
        font.size = size;
    return true;
}

bool xIniSettings::ReadLinesOrder(std::istream& in)
{
    std::string value;
    if (!ReadKey(in, kOrderKey, "[Line Order]", value))
        return false;
    linesOrder = 0;
    if (value == "DECREASING_LINE_NUMBER")
        linesOrder = 2;
    else if (value == "INCREASING_LINE_NUMBER")
        linesOrder = 1;
    else if (value == "INCREASING_OFFSET")
        linesOrder = 4;
    return true;
}

bool xIniSettings::ReadApprox(std::istream& in)
{
    if (!FindSection(in, "[APPROX]"))
        return false;
    std::string value;
    if (!ReadKey(in, kThinSheetKey, "[APPROX]", value))
        return false;
    ReadTable(in, thinSheet);
    if (!ReadKey(in, kHalfSpaceKey, "[APPROX]", value))
        return false;
    ReadTable(in, halfSpace);
    if (!ReadKey(in, kTausKey, "[APPROX]", value))
        return false;
    if (!FloatToInt(value, extraTaus))
        return RejectValue("[APPROX]", kTausKey);
    return true;
}

bool xIniSettings::ReadDynamicControls(std::istream& in)
{
    if (!FindSection(in, "[DYNAMIC CONTROLS]"))
        return false;
    std::string value;
    if (!ReadKey(in, kTitleKey, "[DYNAMIC CONTROLS]", value))
        return false;
    dynamicTitle = value;
    if (dynamicTitle.empty())
        return true;
    if (!ReadKey(in, kCommandKey, "[DYNAMIC CONTROLS]", value))
        return false;
    dynamicCommand = value;
    return true;
}

bool xIniSettings::WriteSections(std::ostream& out) const
{
    out << "[EDITOR]\n" << kNameKey << editorName << "\n\n";

    out << "[PROJECTS]\n";
    for (size_t i = 0; i < projects.size(); ++i)
        out << "Project" << i + 1 << "=" << projects[i] << '\n';
    out << '\n';

    out << "[CDI]\n"
        << kColorKey << ColorName(unresolvedColor) << '\n'
        << kExtensionKey << cdiExtension << '\n'
        << kInspectKey << (inspectAmplitudes ? "Yes" : "No") << '\n'
        << kDeviationKey << StreamFloat(amplitudeDeviation) << "\n\n";

    out << "[SYSTEM]\n"
        << kFamilyKey << FamilyName(font.family) << '\n'
        << kStyleKey << StyleName(font.style) << '\n'
        << kSizeKey << font.size << '\n'
        << kOrderKey << OrderName(linesOrder) << "\n\n";

    out << "[APPROX]\n" << kThinSheetKey << '\n';
    WriteTable(out, thinSheet);
    out << kHalfSpaceKey << '\n';
    WriteTable(out, halfSpace);
    out << kTausKey << extraTaus << '\n';

    // No blank line before this section: the suite's other modules write it so.
    out << "[DYNAMIC CONTROLS]\n"
        << kTitleKey << dynamicTitle << '\n'
        << kCommandKey << dynamicCommand << "\n\n";
    // Errors of a full disk show at the flush, not before.
    out.flush();
    return out.good();
}

const xFontRecord& xIniSettings::GetFont(xFontRecord& out) const
{
    out = font;
    return font;
}

FloatArray& xIniSettings::GetApproxTable(int kind)
{
    return kind == 2 ? halfSpace : thinSheet;
}

const std::string* xIniSettings::GetDynamicTitle() const
{
    return dynamicTitle.empty() ? nullptr : &dynamicTitle;
}

void xIniSettings::RunDynamicControl(const std::string& title) const
{
    // Without a title there is no dynamic control to run.
    if (!dynamicTitle.empty() && title == dynamicTitle)
        RunModule(dynamicCommand);
}

void CreateIni()
{
    if (!iniSettings)
        iniSettings = new xIniSettings();
}

void DestroyIni()
{
    if (iniSettings) {
        delete iniSettings;
        iniSettings = nullptr;
    }
}

const std::vector<std::string>* GetProjectList()
{
    return iniSettings ? &iniSettings->projects : nullptr;
}

void AddProject(const std::string& path)
{
    if (!iniSettings)
        return;
    std::vector<std::string>& list = iniSettings->projects;
    auto found = std::find(list.begin(), list.end(), path);
    if (found != list.end())
        std::rotate(list.begin(), found, found + 1);
    else
        list.insert(list.begin(), path);
    // A file may have given up to nine; from here on five stay.
    if (list.size() > kMaxProjects)
        list.resize(kMaxProjects);
}

void AddProject(const xFileSpec& spec)
{
    AddProject(spec.FullPath());
}
