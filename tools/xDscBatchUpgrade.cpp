#include "tools/xDscBatchUpgrade.h"

#include "tools/xDscTool.h"

#include <filesystem>
#include <iostream>
#include <map>
#include <system_error>
#include <unistd.h>

xDscBatchUpgrade::xDscBatchUpgrade(xDscTool& tool, std::string directory)
    : tool(tool), directory(std::move(directory))
{
}

std::string xDscBatchUpgrade::Target(const std::string& in) const
{
    return (std::filesystem::path(directory) / std::filesystem::path(in).filename()).string();
}

int xDscBatchUpgrade::RefuseSameNames(const std::vector<std::string>& files) const
{
    std::map<std::string, std::string> firstOf;
    for (const std::string& file : files) {
        const std::string name = std::filesystem::path(file).filename().string();
        // A name ending in "/" is a directory, which the read refuses anyway.
        if (name.empty())
            continue;
        auto [first, added] = firstOf.emplace(name, file);
        if (!added)
            return xDscTool::Fail(first->second + " and " + file + " would both be written to " + Target(file) +
                                  "; nothing was written");
    }
    return xDscTool::kDone;
}

int xDscBatchUpgrade::PrepareDirectory() const
{
    std::error_code error;
    if (std::filesystem::is_directory(directory, error))
        return xDscTool::kDone;
    if (std::filesystem::exists(directory, error))
        return xDscTool::Fail("cannot write into " + directory + ": not a directory");
    if (!std::filesystem::create_directories(directory, error))
        return xDscTool::Fail("cannot create " + directory + ": " + error.message());
    return xDscTool::kDone;
}

int xDscBatchUpgrade::Run(const std::vector<std::string>& files)
{
    if (int status = RefuseSameNames(files))
        return status;
    if (int status = PrepareDirectory())
        return status;
    const bool progress = ::isatty(STDERR_FILENO) == 1;
    int status = xDscTool::kDone;
    int upgraded = 0, refused = 0, failed = 0;
    for (size_t i = 0; i < files.size(); ++i) {
        const std::string& in = files[i];
        const std::string out = Target(in);
        if (progress)
            std::cerr << '[' << i + 1 << '/' << files.size() << "] " << in << " -> " << out << std::endl;
        bool notDescriptor = false;
        const int result = tool.OnFile(in + ": ", [&] { return tool.Upgrade(in, out, &notDescriptor); });
        status = xDscTool::Worse(status, result);
        if (result == xDscTool::kDone)
            ++upgraded;
        else if (notDescriptor)
            ++refused;
        else
            ++failed;
    }
    std::cout << xDscTool::kProgram << ": " << upgraded << " upgraded, " << refused << " refused, " << failed
              << " failed" << std::endl;
    return status;
}
