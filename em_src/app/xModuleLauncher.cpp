#include "app/xModuleLauncher.h"

#include "app/xIniSettings.h"
#include "frame/xFileDialog.h"
#include "frame/xFileSpec.h"
#include "gui/xPlatform.h"

void RunModule(const std::string& command)
{
    xPlatform& platform = Platform();
    if (platform.StartCommand(command))
        return;
    platform.Beep();
    if (PostAsk("Yes", "No", nullptr, "%s", "Select the module to execute?") != 0)
        return;

    xFileSpec spec;
    spec.type = "EXE";
    if (FileOpenDialog(&spec, "Module Selection") != kFileDialogChosen)
        return;
    std::string path;
    if (!spec.DirectoryText(path))
        path.clear();
    if (!path.empty() && path.back() != '/')
        path += '/';
    path += spec.name;
    editorName = path + " ";
    // The user chose this one, by its whole path; if it won't start either
    // there is nothing more to ask.
    platform.StartProgram(path, {});
}
