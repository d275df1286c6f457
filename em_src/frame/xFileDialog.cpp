#include "frame/xFileDialog.h"

#include "gui/xPlatform.h"

namespace {

// Puts the current directory back however the dialog ends.
class CurrentDirectoryKeeper {
public:
    CurrentDirectoryKeeper() : saved(Platform().CurrentDirectory()) {}
    ~CurrentDirectoryKeeper()
    {
        if (!saved.empty())
            Platform().SetCurrentDirectory(saved);
    }

private:
    std::string saved;
};

const size_t kNameBufferSize = 513;
const size_t kFilterLimit = 500;

} // namespace

int FileDialog(xFileSpec* spec, const std::string& prompt, bool isOpen, void* /*parent*/)
{
    if (!spec) {
        PostError("FileDialog: Empty file specification.");
        return kFileDialogFailed;
    }
    CurrentDirectoryKeeper keeper;
    std::string directory;
    if (spec->DirectoryText(directory))
        Platform().SetCurrentDirectory(directory);
    const xFileSpec saved = *spec;

    xFileDialogRequest request;
    request.isOpen = isOpen;
    request.title = prompt;
    request.directory = directory;
    if (!isOpen)
        request.suggestedName = xFileSpec::Fit(spec->name, kNameBufferSize);
    request.filterDescription = "Open file <" + spec->type + ">";
    request.filterPattern = "*." + spec->type;
    request.defaultExtension = "txt";
    // The filter description, its pattern and their separators share one buffer.
    if (request.filterDescription.size() + 10 >= kFilterLimit) {
        PostError("FileDialog: A combine length of file filter description exceeds 500");
        return kFileDialogFailed;
    }

    std::string chosen;
    int result = Platform().ChooseFile(request, chosen);
    if (result == kFileDialogCancelled) {
        *spec = saved;
        return kFileDialogCancelled;
    }
    if (result != kFileDialogChosen)
        return kFileDialogFailed;

    size_t last = chosen.rfind('/');
    std::string name = last == std::string::npos ? chosen : chosen.substr(last + 1);
    std::string chosenDirectory;
    if (last != std::string::npos)
        chosenDirectory = last == 0 ? std::string("/") : chosen.substr(0, last);
    if (!spec->SetDirectoryText(chosenDirectory)) {
        PostError("FileDialog: Cannon convert selected directory path.");
        *spec = saved;
        return kFileDialogFailed;
    }
    spec->name = xFileSpec::Fit(name, xFileSpec::kNameSize);
    return kFileDialogChosen;
}

int FileOpenDialog(xFileSpec* spec, const std::string& prompt, void* parent)
{
    return FileDialog(spec, prompt, true, parent);
}

int FileSaveDialog(xFileSpec* spec, const std::string& prompt, void* parent)
{
    int result = FileDialog(spec, prompt, false, parent);
    if (result != kFileDialogChosen)
        return result;
    // The bare name, so the test looks in the current directory and not in
    // the chosen one.
    xFileStatus status;
    if (Platform().StatFile(spec->name, status) &&
        PostAsk("Yes", "No", nullptr, "Replace existing file %s", spec->name.c_str()) == 1)
        result = kFileDialogCancelled;
    return result;
}

long GetFileAttribute(const xFileSpec* spec, int code, std::string* text)
{
    if (!spec || code < 1 || code > 14)
        return -1;
    std::string directory;
    if (!spec->DirectoryText(directory))
        return -1;
    std::string path = spec->FullPath();
    if (path.size() >= xFileSpec::kMaxPath)
        return -1;
    xFileStatus status;
    if (!Platform().StatFile(path, status))
        return -1;
    switch (code) {
    case 1:
        return status.regular ? 1 : 0;
    case 2:
        return status.ownerRead ? 1 : 0;
    case 3:
        return status.ownerWrite ? 1 : 0;
    case 4:
        return status.ownerExecute ? 1 : 0;
    case 5:
        return status.directory ? 1 : 0;
    case 6:
        return static_cast<long>(status.links);
    case 7:
        return static_cast<long>(status.size);
    case 8:
        return static_cast<long>(status.accessTime);
    case 9:
        return static_cast<long>(status.modifyTime);
    case 10:
        // The file system keeps no birth time; the status change is the nearest.
        return static_cast<long>(status.changeTime);
    case 11:
        return 0;
    default:
        if (text)
            *text = code == 12 ? directory : code == 13 ? spec->name : spec->type;
        return 1;
    }
}
