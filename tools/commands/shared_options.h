#pragma once

#include "pictures/picture_size.h"

#include <CLI/CLI.hpp>
#include <optional>

namespace tools {

// An option or argument that names a file or folder, szType as the help calls it.
CLI::Option& AddFile(CLI::App& tCommand, const char* szName, std::string& strFile, const std::string& strHelp,
                     const char* szType = "FILE");

// An option that counts something, from nLowest to nHighest, which szHelp tells.
CLI::Option& AddCount(CLI::App& tCommand, const char* szName, std::size_t& n, const char* szHelp,
                      std::size_t nLowest, std::size_t nHighest, const char* szType = "N");

CLI::Option& AddCalibration(CLI::App& tCommand, std::string& strFile);

CLI::Option& AddJson(CLI::App& tCommand, bool& bJson);

// Sizes of raw planes: --raw and --raw-slave.
class RawOptions {
public:
    void AddTo(CLI::App& tCommand);

    // Nothing for files that tell their size themselves. Both throw CLI::ValidationError.
    std::optional<PictureSize> MasterSize() const;
    std::optional<PictureSize> SlaveSize() const;

    // As they are given to another command.
    std::vector<std::string> Arguments() const;

private:
    std::string m_strRaw, m_strSlaveRaw;
};

} // namespace tools
