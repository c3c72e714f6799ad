#include "commands/options.h"

#include "basics/text_table.h"
#include "measuring/calibration.h"
#include "product/file.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <thread>

namespace tools {
namespace {

constexpr char kRaw[] = "--raw", kSlaveRaw[] = "--raw-slave";

} // namespace

CLI::Validator Within(double dLowest, double dHighest) {
    const auto Check = [=](const std::string& str) {
        const std::optional<double> o = ParsedNumber(str);
        const bool bWithin = o && *o >= dLowest && *o <= dHighest;
        return bWithin ? std::string()
                       : fmt::format("\"{}\" is not a number from {:g} to {:g}", str, dLowest, dHighest);
    };
    return {Check, "", ""};
}

CLI::Validator WholeNumber() {
    const auto Check = [](const std::string& str) {
        const bool bWhole =
            !str.empty() && str.size() <= 18 && str.find_first_not_of("0123456789") == str.npos;
        return bWhole ? std::string() : "\"" + str + "\" is not a whole number from 0, of at most 18 digits";
    };
    return {Check, "", ""};
}

CLI::Validator FileName() {
    const auto Check = [](const std::string& str) {
        return str.empty() ? std::string("the name is empty, as an unset variable leaves it") : std::string();
    };
    return {Check, "", ""};
}

CLI::Validator OneOf(const std::vector<std::string>& aWords) {
    const std::string strWords = Listed(aWords, " or ");
    const auto Check = [=](const std::string& str) {
        const bool bFound = std::ranges::find(aWords, str) != aWords.end();
        return bFound ? std::string() : "\"" + str + "\" is not " + strWords;
    };
    return {Check, "", ""};
}

PictureSize ParsedSize(const std::string& strOption, const std::string& str) {
    PictureSize t = {};
    char cRest = 0;
    // NOLINTBEGIN(cert-err34-c): nine digits cannot overflow
    const bool bRead =
        str.size() < 20 && std::sscanf(str.c_str(), "%9dx%9d%c", &t.nColumns, &t.nRows, &cRest) == 2;
    // NOLINTEND(cert-err34-c)
    if (!bRead || t.nColumns < 1 || t.nRows < 1 || t.nColumns > kMaxSide || t.nRows > kMaxSide ||
        PixelsOf(t) > kMaxGivenPixels)
        throw CLI::ValidationError(strOption, fmt::format("\"{}\" is not a width x height such as 1728x972 "
                                                          "with sides of 1 to {} px and at most {} px in all",
                                                          str, kMaxSide, kMaxGivenPixels));
    return t;
}

CLI::Option& AddFile(CLI::App& tCommand, const char* szName, std::string& strFile, const std::string& strHelp,
                     const char* szType) {
    return *tCommand.add_option(szName, strFile, strHelp)->check(FileName())->type_name(szType);
}

CLI::Option& AddCount(CLI::App& tCommand, const char* szName, std::size_t& n, const char* szHelp,
                      std::size_t nLowest, std::size_t nHighest, const char* szType) {
    return *tCommand.add_option(szName, n, szHelp)
                ->check(Within(static_cast<double>(nLowest), static_cast<double>(nHighest)))
                ->check(WholeNumber())
                ->type_name(szType);
}

CLI::Option& AddJobs(CLI::App& tCommand, std::size_t& nJobs, const char* szHelp) {
    nJobs = std::max(1u, std::thread::hardware_concurrency());
    return *AddCount(tCommand, "--jobs", nJobs, szHelp, 1, 1024)
                .default_str(fmt::format("one per core, here {}", nJobs));
}

CLI::Option& AddCalibration(CLI::App& tCommand, std::string& strFile, const char* szFor) {
    return AddFile(tCommand, "--calibration", strFile,
                   fmt::format("The module's calibration memory as read out of it, at least {} bytes: {}",
                               kCalibrationBytes, szFor));
}

CLI::Option& AddJson(CLI::App& tCommand, bool& bJson) {
    return *tCommand.add_flag("--json", bJson, "Print one JSON object instead of text");
}

CLI::Option& ProductOption::AddTo(CLI::App& tCommand, const char* szWhatFor) {
    return AddFile(tCommand, "--product", m_strFile,
                   fmt::format("A product that differs from the one that the library is made for: {}. The "
                               "file's values are those that \"parameters\" tells",
                               szWhatFor));
}

Product ProductOption::Read() const {
    return IsGiven() ? ReadProduct(m_strFile) : Product();
}

std::vector<std::string> ProductOption::Arguments() const {
    return IsGiven() ? std::vector{"--product=" + Everywhere()} : std::vector<std::string>();
}

std::string ProductOption::Everywhere() const {
    return IsGiven() ? std::filesystem::absolute(m_strFile).lexically_normal().string() : "";
}

void RawOptions::AddTo(CLI::App& tCommand) {
    CLI::Option* const pRaw =
        tCommand
            .add_option(kRaw, m_strRaw,
                        "All pictures are raw: the first width x height bytes of each file are the plane, as "
                        "in a YUV 4:2:0 or NV21 frame. Size in px, such as 1728x972")
            ->type_name("WxH");
    tCommand
        .add_option(kSlaveRaw, m_strSlaveRaw,
                    "With --raw: size of the slave's plane in px. Default: that of --raw")
        ->needs(pRaw)
        ->type_name("WxH");
}

std::optional<PictureSize> RawOptions::MasterSize() const {
    return m_strRaw.empty() ? std::nullopt : std::optional(ParsedSize(kRaw, m_strRaw));
}

std::optional<PictureSize> RawOptions::SlaveSize() const {
    return m_strSlaveRaw.empty() ? MasterSize() : std::optional(ParsedSize(kSlaveRaw, m_strSlaveRaw));
}

std::vector<std::string> RawOptions::Arguments() const {
    std::vector<std::string> a;
    if (!m_strRaw.empty())
        a.push_back(fmt::format("{}={}", kRaw, m_strRaw));
    if (!m_strSlaveRaw.empty())
        a.push_back(fmt::format("{}={}", kSlaveRaw, m_strSlaveRaw));
    return a;
}

void DoubtOptions::AddTo(CLI::App& tCommand) {
    tCommand
        .add_option(
            "--max-difference", m_oMaxDifference,
            "Degrees by which the library's angle and the tool's second reading may differ, twice the "
            "latter's uncertainty counted, before the verdict is doubtful")
        ->check(Within(0, 90))
        ->type_name("DEG")
        ->default_str(fmt::format("{:g}, or the product's", Limits().dMaxDifference));
    tCommand.add_flag("--accept-doubtful", m_bAccept,
                      "Return 0 for a doubtful verdict, which is told all the same");
}

std::vector<std::string> DoubtOptions::Arguments() const {
    if (!m_oMaxDifference)
        return {};
    return {fmt::format("--max-difference={}", *m_oMaxDifference)};
}

} // namespace tools
