#pragma once

#include "basics/exit_codes.h"
#include "pictures/picture_size.h"
#include "product/product.h"

#include <CLI/CLI.hpp>
#include <optional>

namespace tools {

// Accepts numbers from dLowest to dHighest, and nothing that is no number.
CLI::Validator Within(double dLowest, double dHighest);

// Accepts whole numbers from 0 that fit into 64 bits, and no sign.
CLI::Validator WholeNumber();

// Accepts a name of a file or folder: any but an empty one, which a script's unset variable leaves.
CLI::Validator FileName();

// Accepts one of these words.
CLI::Validator OneOf(const std::vector<std::string>& aWords);

// Reads "1728x972", the value of an option. Throws CLI::ValidationError.
PictureSize ParsedSize(const std::string& strOption, const std::string& str);

// An option or argument that names a file or folder, szType as the help calls it.
CLI::Option& AddFile(CLI::App& tCommand, const char* szName, std::string& strFile, const std::string& strHelp,
                     const char* szType = "FILE");

// An option that counts something, from nLowest to nHighest, which szHelp tells.
CLI::Option& AddCount(CLI::App& tCommand, const char* szName, std::size_t& n, const char* szHelp,
                      std::size_t nLowest, std::size_t nHighest, const char* szType = "N");

// --jobs, one per core if not given.
CLI::Option& AddJobs(CLI::App& tCommand, std::size_t& nJobs, const char* szHelp);

// The calibration memory; a command that cannot do without it adds required().
CLI::Option& AddCalibration(CLI::App& tCommand, std::string& strFile, const char* szFor);

CLI::Option& AddJson(CLI::App& tCommand, bool& bJson);

// A product that the library is not made for: --product.
class ProductOption {
public:
    CLI::Option& AddTo(CLI::App& tCommand, const char* szWhatFor);

    bool IsGiven() const { return !m_strFile.empty(); }
    const std::string& File() const { return m_strFile; }
    Product Read() const; // the library's own if it is not given; throws ToolError

    // The file's name from anywhere; empty if it is not given.
    std::string Everywhere() const;

    // As it is given to another command, wherever that runs.
    std::vector<std::string> Arguments() const;

private:
    std::string m_strFile;
};

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

// What makes a verdict doubtful, and what becomes of it.
class DoubtOptions {
public:
    void AddTo(CLI::App& tCommand);

    // An option that was given stands in place of the limit.
    void ApplyTo(Limits& limits) const {
        limits.dMaxDifference = m_oMaxDifference.value_or(limits.dMaxDifference);
    }
    ExitCode Answer(ExitCode t) const { return m_bAccept && t == ExitCode::kDoubtful ? ExitCode::kDone : t; }

    // As they are given to another command, without the acceptance.
    std::vector<std::string> Arguments() const;

private:
    std::optional<double> m_oMaxDifference; // degrees
    bool m_bAccept = false;
};

} // namespace tools
