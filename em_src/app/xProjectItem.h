#ifndef TOLVAD_APP_XPROJECTITEM_H
#define TOLVAD_APP_XPROJECTITEM_H

#include <string>

// One project as a menu entry: the files of a project share a directory and a
// base name and differ by extension.
class xProjectItem {
public:
    xProjectItem() = default;
    xProjectItem(const std::string& directory, const std::string& baseName,
                 const std::string& title = "Latest Created File");

    // True when the project's .EMF, .EMG and .EMW files all exist as regular files.
    bool IsComplete() const;

    std::string directory;
    std::string baseName;
    std::string title = "Latest Created File";
    bool flag = false;
};

#endif
