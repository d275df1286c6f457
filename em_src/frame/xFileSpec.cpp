#include "frame/xFileSpec.h"

#include "gui/xPlatform.h"

#include <algorithm>

xFileSpec::xFileSpec() : directory(Platform().StartupDirectory()), creator("????") {}

bool xFileSpec::DirectoryText(std::string& text) const
{
    if (directory.empty())
        return false;
    text = directory;
    return true;
}

bool xFileSpec::SetDirectoryText(const std::string& text)
{
    if (text.empty() || text.size() >= kMaxPath || text.find('\0') != std::string::npos)
        return false;
    directory = text;
    // A directory stored on Windows names its separators with backslashes.
    std::replace(directory.begin(), directory.end(), '\\', '/');
    return true;
}

std::string xFileSpec::FullPath() const
{
    std::string text;
    if (!DirectoryText(text))
        return name;
    if (text.back() != '/')
        text += '/';
    return text + name;
}

void xFileSpec::SetPath(const std::string& path)
{
    std::string text = path;
    std::replace(text.begin(), text.end(), '\\', '/');
    size_t last = text.rfind('/');
    if (last == std::string::npos) {
        directory = Platform().CurrentDirectory();
        name = Fit(text, kNameSize);
        return;
    }
    name = Fit(text.substr(last + 1), kNameSize);
    if (!SetDirectoryText(last == 0 ? std::string("/") : text.substr(0, last)))
        directory = Platform().CurrentDirectory();
}

std::string xFileSpec::Fit(const std::string& text, size_t fieldSize)
{
    std::string fitted = text.substr(0, text.find('\0'));
    if (fieldSize > 0 && fitted.size() > fieldSize - 1)
        fitted.resize(fieldSize - 1);
    return fitted;
}
