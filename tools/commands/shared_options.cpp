#include "commands/shared_options.h"

#include "commands/option_checks.h"
#include "measuring/calibration.h"

#include <fmt/format.h>

namespace tools {
namespace {

constexpr char kRaw[] = "--raw", kSlaveRaw[] = "--raw-slave";

} // namespace

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

CLI::Option& AddCalibration(CLI::App& tCommand, std::string& strFile) {
    return *AddFile(
                tCommand, "--calibration", strFile,
                fmt::format("The module's calibration memory, at least {} bytes; the record's key is made "
                            "from it",
                            kCalibrationBytes))
                .required();
}

CLI::Option& AddJson(CLI::App& tCommand, bool& bJson) {
    return *tCommand.add_flag("--json", bJson, "Print one JSON object instead of text");
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

} // namespace tools
