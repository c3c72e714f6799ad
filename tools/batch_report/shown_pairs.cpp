#include "batch_report/shown_pairs.h"

#include "basics/files.h"
#include "basics/progress.h"
#include "batch/worker_pool.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fmt/format.h>

namespace tools {
namespace {

// Of others there is nothing to show, or the process that tried has ended by it.
bool CanBeShown(VerdictKind t) {
    return t > VerdictKind::kWithinRange && t < VerdictKind::kNoAnswer;
}

std::vector<std::size_t> ToShow(const ReportRows& tRows, bool bAll) {
    std::vector<std::size_t> an = bAll ? tRows.GravestFirst() : tRows.Examples();
    std::erase_if(an, [&](std::size_t n) { return !CanBeShown(tRows.All()[n].tVerdict); });
    return an;
}

} // namespace

int ShowPairs(const BatchWork& tWork, const ReportRows& tRows, const std::string& strFolder,
              std::map<std::size_t, ShownPair>& tShown) {
    if (!strFolder.empty())
        CreateFolder(strFolder);
    const std::vector<std::size_t> anRows = ToShow(tRows, !strFolder.empty()), anExamples = tRows.Examples();
    const auto Page = [&](std::size_t nRow) {
        return strFolder.empty() ? "" : (std::filesystem::absolute(strFolder) / PageName(nRow)).string();
    };
    Progress tProgress(0, anRows.size(), tWork.bProgress);
    return RunWorkers({anRows.size(), tWork.nAtOnce, anRows.size(), tWork.tTimeLimit,
                       [&] { return StartWorker(tWork, {"--show"}); },
                       [&](std::size_t n) {
                           const BatchItem& tItem = tWork.tList.aItems[anRows[n]];
                           return std::vector<std::string>{tItem.strMaster, tItem.strSlave, Page(anRows[n])};
                       },
                       [&](std::size_t n, const WorkerOutcome& tOutcome) {
                           tProgress.Step();
                           if (!tOutcome.strAnswer.starts_with("data:"))
                               return;
                           ShownPair& t = tShown[anRows[n]];
                           t.bReport = !strFolder.empty();
                           if (std::ranges::find(anExamples, anRows[n]) != anExamples.end())
                               t.strThumbnail = tOutcome.strAnswer;
                       }});
}

std::string LinkTo(const std::string& strFolder, const std::string& strPage) {
    if (strFolder.empty())
        return "";
    const std::filesystem::path tBase = std::filesystem::absolute(strPage).parent_path();
    std::string str = "./"; // so that no name begins as a scheme does
    for (const char c : std::filesystem::absolute(strFolder).lexically_relative(tBase).string())
        str += std::isalnum(static_cast<unsigned char>(c)) != 0 ||
                       std::string_view("/-_.~").find(c) != std::string::npos
                   ? std::string(1, c)
                   : fmt::format("%{:02X}", static_cast<unsigned char>(c));
    return str;
}

} // namespace tools
