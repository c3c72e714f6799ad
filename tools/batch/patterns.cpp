#include "batch/patterns.h"

#include "basics/harmless_text.h"
#include "basics/tool_error.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <set>

namespace tools {
namespace {

namespace fs = std::filesystem;

std::string NameOf(std::string strPattern, const std::string& strId) {
    return strPattern.replace(strPattern.find('*'), 1, strId);
}

// What * stands for in the names that are there: a character at least and no slash, nor a dot in front of
// all, which hides a file.
std::set<std::string> IdsOf(const std::string& strPattern) {
    const std::size_t nStar = strPattern.find('*'), nStart = strPattern.rfind('/', nStar) + 1;
    const std::string strFolder = strPattern.substr(0, nStart),
                      strHead = strPattern.substr(nStart, nStar - nStart),
                      strTail = strPattern.substr(nStar + 1, strPattern.find('/', nStar) - nStar - 1);
    std::error_code tError, tNotThere;
    std::set<std::string> tIds;
    for (const fs::directory_entry& t : fs::directory_iterator(strFolder.empty() ? "." : strFolder, tError)) {
        const std::string strName = t.path().filename();
        const bool bFits = strName.size() > strHead.size() + strTail.size() && strName.starts_with(strHead) &&
                           strName.ends_with(strTail) && !(strHead.empty() && strName.starts_with('.'));
        const std::string strId =
            bFits ? strName.substr(strHead.size(), strName.size() - strHead.size() - strTail.size()) : "";
        const fs::file_status tStatus = fs::status(NameOf(strPattern, strId), tNotThere);
        if (bFits && fs::exists(tStatus) && !fs::is_directory(tStatus))
            tIds.insert(strId);
    }
    if (tError)
        throw ToolError(strFolder, "cannot be read as a folder (" + tError.message() + ")",
                        "Check the pattern");
    return tIds;
}

} // namespace

BatchList ListOfPatterns(const std::string& strMaster, const std::string& strSlave) {
    const std::set<std::string> tMasters = IdsOf(strMaster), tSlaves = IdsOf(strSlave);
    std::set<std::string> tAll = tMasters;
    tAll.insert(tSlaves.begin(), tSlaves.end());
    if (tAll.size() == tMasters.size() + tSlaves.size())
        throw ToolError(
            strMaster,
            fmt::format(
                "makes no pair with {}: of the files that are there {} fit the first and {} the second",
                strSlave, tMasters.size(), tSlaves.size()),
            "Check the patterns: * must stand for the same in the names of both pictures");
    BatchList tList = {strMaster, ".", true, {}, {}};
    for (const std::string& strId : tAll) {
        const PairNames tNames = {strId, NameOf(strMaster, strId), NameOf(strSlave, strId), ""};
        const bool bBoth = tMasters.contains(strId) && tSlaves.contains(strId);
        const std::string& strAlone = tMasters.contains(strId) ? tNames.strMaster : tNames.strSlave;
        tList.aItems.push_back(
            {tNames,
             std::nullopt,
             tList.aItems.size() + 1,
             bBoth ? ""
                   : Harmless(strAlone) + ": has no partner: the other picture of this pair is not there.",
             {}});
    }
    return tList;
}

} // namespace tools
