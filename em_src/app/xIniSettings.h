#ifndef TOLVAD_APP_XINISETTINGS_H
#define TOLVAD_APP_XINISETTINGS_H

#include "app/xFontRecord.h"
#include "numeric/FloatArray.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

// The suite's settings file, Varnel.INI, kept in the directory the program
// was started from. The object reads the file when it is made and writes it
// back whole when it is destroyed; between CreateIni and DestroyIni it lives
// behind the global pointer iniSettings. The editor never makes it and works
// with the null pointer and its built-in defaults.
class xIniSettings {
public:
    // Colours of unresolved items, as the platform's 32-bit values.
    enum : uint32_t {
        kWhite = 0x0BFFFFFFu,
        kBlue = 0x030000FFu,
        kGray = 0x09808080u,
        kGreen = 0x0200FF00u,
        kLightGray = 0x0AC0C0C0u
    };

    // The defaults, then whatever the file gives.
    xIniSettings();
    // Writes the file, then lets go of the members.
    virtual ~xIniSettings();
    xIniSettings(const xIniSettings&) = delete;
    xIniSettings& operator=(const xIniSettings&) = delete;

    // The whole file, in the start-up directory only. Read is true when every
    // section read cleanly; a missing file keeps the defaults quietly. Write
    // replaces the file only when the new one was written completely, through
    // a link to the file it leads to, and in place where the folder takes no
    // new file; a file that can't be saved (read-only, say) is named in a
    // warning and left as it was.
    virtual bool Write();
    virtual bool Read();

    // The sections themselves, on an open stream.
    bool ReadSections(std::istream& in);
    bool WriteSections(std::ostream& out) const;

    const xFontRecord& GetFont(xFontRecord& out) const;
    // 1 thin sheet, 2 half space, any other the thin sheet.
    FloatArray& GetApproxTable(int kind);
    // Null when no dynamic control is set up.
    const std::string* GetDynamicTitle() const;
    // Runs the dynamic command when the title is the dynamic control's.
    void RunDynamicControl(const std::string& title) const;

    std::string iniFileName = "Varnel.INI";
    // Latest projects, newest first.
    std::vector<std::string> projects;
    uint32_t unresolvedColor = kWhite;
    xFontRecord font;
    int32_t linesOrder = 0;
    std::string cdiExtension = "DOC";
    bool inspectAmplitudes = false;
    float amplitudeDeviation = 10.0f;
    // Indexed by orientation code, 101 TxRx to 109 TzRz.
    FloatArray thinSheet;
    FloatArray halfSpace;
    int32_t extraTaus = 2;
    std::string dynamicTitle;
    std::string dynamicCommand;

private:
    // One line reader for every section: the position before the last
    // next-line step, shared by the whole process.
    static std::streamoff rememberedPosition;

    static bool NextLine(std::istream& in, std::string& line);
    static bool FindSection(std::istream& in, const char* header);
    // Warns of a line that isn't what the section expects and gives it back.
    static bool RejectLine(std::istream& in, const char* label, const char* key);
    // Warns of a value that can't be read; the line is taken.
    static bool RejectValue(const char* label, const char* key);
    static bool ReadKey(std::istream& in, const char* key, const char* warning,
                        std::string& value);

    bool ReadEditor(std::istream& in);
    bool ReadProjects(std::istream& in);
    bool ReadCdi(std::istream& in);
    bool ReadSystem(std::istream& in);
    bool ReadFont(std::istream& in);
    bool ReadLinesOrder(std::istream& in);
    bool ReadApprox(std::istream& in);
    bool ReadDynamicControls(std::istream& in);
};

// The one settings object, null unless CreateIni made it.
extern xIniSettings* iniSettings;

// The command that starts the sibling module; a file name is appended to it,
// hence the trailing blank. RunModule stores the module the user picks here.
extern std::string editorName;

// Makes the object (which reads the file) unless there is one.
void CreateIni();
// Destroys the object (which writes the file), if any.
void DestroyIni();
// The latest projects; null without the object.
const std::vector<std::string>* GetProjectList();
// Puts a project in front of the list, at most 5 stay; nothing without the object.
void AddProject(const std::string& path);

struct xFileSpec;
void AddProject(const xFileSpec& spec);

#endif
