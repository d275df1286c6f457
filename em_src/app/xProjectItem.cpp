#include "app/xProjectItem.h"

#include "gui/xPlatform.h"

xProjectItem::xProjectItem(const std::string& directory, const std::string& baseName,
                           const std::string& title)
    : directory(directory), baseName(baseName), title(title)
{
}

bool xProjectItem::IsComplete() const
{
    // An empty directory means the current one; otherwise join with one separator.
    std::string stem = directory;
    if (!stem.empty() && stem.back() != '/')
        stem += '/';
    stem += baseName;
    for (const char* extension : {".EMF", ".EMG", ".EMW"}) {
        xFileStatus status;
        if (!Platform().StatFile(stem + extension, status) || !status.regular)
            return false;
    }
    return true;
}
