#include "tools/xDscCheck.h"

#include "frame/xEMEditDesc.h"
#include "model/xTROrientation.h"
#include "tools/xDscTool.h"

#include <nlohmann/json.hpp>

#include <iostream>

xDscCheck::xDscCheck(xDscTool& tool) : tool(tool) {}

int xDscCheck::Run(const std::vector<std::string>& files, bool json)
{
    std::vector<Result> results;
    int status = xDscTool::kDone;
    for (const std::string& file : files) {
        Result result = CheckFile(file);
        status = xDscTool::Worse(status, result.status);
        if (json)
            results.push_back(std::move(result));
        else
            PrintLines(result);
    }
    if (json)
        PrintJson(results, status);
    return status;
}

xDscCheck::Result xDscCheck::CheckFile(const std::string& path)
{
    Result result;
    result.file = path;
    bool fatal = false;
    result.status = tool.OnFile(path + ": ", [&] {
        xEMEditDesc document;
        if (int status = tool.ReadDescriptor(path, document))
            return status;
        result.failures = xCardChecks::Run(document);
        return result.failures.empty() ? int(xDscTool::kDone) : int(xDscTool::kIncomplete);
    }, &fatal);
    switch (result.status) {
    case xDscTool::kDone: result.state = "complete"; break;
    case xDscTool::kIncomplete: result.state = "incomplete"; break;
    case xDscTool::kFailed: result.state = "unreadable"; break;
    default: result.state = fatal ? "fatal" : "refused"; break;
    }
    return result;
}

void xDscCheck::PrintLines(const Result& result)
{
    for (const xCardChecks::Failure& failure : result.failures)
        std::cout << result.file << ": " << CodeName(failure.code) << ": " << failure.title << ": "
                  << failure.message << '\n';
    std::cout.flush();
}

void xDscCheck::PrintJson(const std::vector<Result>& results, int status)
{
    nlohmann::json findings = nlohmann::json::array();
    nlohmann::json files = nlohmann::json::array();
    for (const Result& result : results) {
        for (const xCardChecks::Failure& failure : result.failures)
            findings.push_back({{"file", result.file},
                                {"orientation", CodeName(failure.code)},
                                {"card", failure.title},
                                {"message", failure.message}});
        files.push_back({{"file", result.file}, {"status", result.status}, {"state", result.state}});
    }
    const nlohmann::json document = {{"findings", findings}, {"files", files}, {"status", status}};
    // Names of old files need not be UTF-8; such bytes are replaced, not fatal.
    std::cout << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}
