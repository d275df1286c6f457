#include "model/xTROrientation.h"

namespace {

struct OrientationRow {
    int tx;
    int rx;
    uint32_t colour;
};

constexpr uint32_t kUndefinedColour = 0xBFFFFFF;

constexpr OrientationRow kOrientations[kOrientationCodeCount] = {
    {4, 4, kUndefinedColour}, // ????
    {1, 1, 0x00FF00},         // TxRx
    {1, 2, 0xFF9900},         // TxRy
    {1, 3, 0xFF00FF},         // TxRz
    {2, 1, 0xCCCC00},         // TyRx
    {2, 2, 0x9999FF},         // TyRy
    {2, 3, 0x00FFFF},         // TyRz
    {3, 1, 0xFF0000},         // TzRx
    {3, 2, 0xFFCCCC},         // TzRy
    {3, 3, 0x0000FF},         // TzRz
};

// Codes outside the table still get components: 2 on both sides, as
// older callers expect of any stray code.
constexpr int kStrayComponent = 2;

bool IsOrientationCode(int code)
{
    return code >= kFirstOrientationCode && code <= kLastOrientationCode;
}

int IndexOf(const std::vector<std::string>& list, const std::string& name)
{
    for (size_t i = 0; i < list.size(); ++i)
        if (list[i] == name)
            return static_cast<int>(i);
    return -1;
}

} // namespace

const std::vector<std::string>& OrientationNames()
{
    static const std::vector<std::string> names = {
        "????", "TxRx", "TxRy", "TxRz", "TyRx", "TyRy", "TyRz", "TzRx", "TzRy", "TzRz"};
    return names;
}

const std::vector<std::string>& ComponentNames()
{
    static const std::vector<std::string> names = {"undefined", "x", "y", "z", "t"};
    return names;
}

std::string CodeName(int code)
{
    if (!IsOrientationCode(code))
        return std::string();
    return OrientationNames()[code - kFirstOrientationCode];
}

int NameToCode(const std::string& name)
{
    const int index = IndexOf(OrientationNames(), name);
    return index <= 0 ? kFirstOrientationCode : kFirstOrientationCode + index;
}

std::string FindCodeName(const std::string& line)
{
    for (const std::string& name : OrientationNames())
        if (line.find(name) != std::string::npos)
            return name;
    return std::string();
}

int TxComponent(int code)
{
    return IsOrientationCode(code) ? kOrientations[code - kFirstOrientationCode].tx : kStrayComponent;
}

int RxComponent(int code)
{
    return IsOrientationCode(code) ? kOrientations[code - kFirstOrientationCode].rx : kStrayComponent;
}

int CodeFromComponents(int tx, int rx)
{
    if (tx < 1 || tx > 3 || rx < 1 || rx > 3)
        return kFirstOrientationCode;
    return kFirstOrientationCode + (tx - 1) * 3 + rx;
}

uint32_t OrientationColour(int code)
{
    return IsOrientationCode(code) ? kOrientations[code - kFirstOrientationCode].colour : kUndefinedColour;
}

std::string ComponentName(int component)
{
    const std::vector<std::string>& names = ComponentNames();
    if (component < 0 || component >= static_cast<int>(names.size()))
        return std::string();
    return names[component];
}

int ComponentIndex(const std::string& name)
{
    const int index = IndexOf(ComponentNames(), name);
    return index < 0 ? 0 : index;
}
