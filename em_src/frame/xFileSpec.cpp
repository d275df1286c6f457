#include "frame/xFileSpec.h"

#include "gui/xPlatform.h"

#include <algorithm>
#include <cctype>

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
    std::string path = text;
    // A directory stored on Windows names its separators with backslashes.
    std::replace(path.begin(), path.end(), '\\', '/');
    // A relative directory is taken from the current one now: opening a file
    // makes its directory current, and from there the relative text would
    // name another place. A drive letter stays as it was written.
    bool drive = path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
    if (path[0] != '/' && !drive) {
        std::string current = Platform().CurrentDirectory();
        if (current.empty())
            return false;
        if (current.back() != '/')
            current += '/';
        path = current + path;
        if (path.size() >= kMaxPath)
            return false;
    }
    directory = path;
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
