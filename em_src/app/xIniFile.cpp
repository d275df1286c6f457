#include "app/xIniFile.h"

#include "app/xIniSettings.h"

xIniFile::xIniFile(xIniSettings& settings, const std::string& directory, const std::string& name)
    : settings(settings)
{
    fileKind = 0;
    // A missing settings file is the normal first start, not an error.
    reportMissing = false;
    SetFileParts(name.c_str(), directory.c_str(), nullptr);
}

void xIniFile::Read()
{
    sectionsRead = inStream != nullptr && settings.ReadSections(*inStream);
}
