#pragma once

#include "basics/exit_codes.h"
#include "measuring/measurement.h"

namespace tools {

// "-2.0 to 2.0"
std::string AllowedRange(double dLimit);

enum class VerdictKind { kWithinRange, kDoubtful, kOutOfRange, kNotMeasured, kNoAnswer, kUnfitInput };

// A verdict wherever it is told; how it looks on a page. Each is graver than the one before.
struct VerdictWords {
    VerdictKind tKind;
    const char* szKey; // in JSON and rows
    ExitCode tExit;
    const char* szLabel;   // of its count in a summary; nullptr: counted with that of the same exit code
    const char* szMeaning; // of its exit code
    const char* szLook;    // class of the page's banner
};
constexpr std::array<VerdictWords, 6> kVerdicts = {{
    {VerdictKind::kWithinRange, "within_range", ExitCode::kDone, "within range, no doubt",
     "measured, all angles within range, and nothing speaks against them", "pass"},
    {VerdictKind::kDoubtful, "doubtful", ExitCode::kDoubtful, "doubtful",
     "measured, all angles within range, but a reason is told that speaks against them", "doubt"},
    {VerdictKind::kOutOfRange, "out_of_range", ExitCode::kOutOfRange, "out of range",
     "measured, an angle out of range", "fail"},
    {VerdictKind::kNotMeasured, "not_measured", ExitCode::kNotMeasured, "not measured",
     "the chart could not be measured", "fail"},
    // Only in a batch: the process that measured the pair crashed or took too long.
    {VerdictKind::kNoAnswer, "no_answer", ExitCode::kNotMeasured, nullptr,
     "the measuring process gave no answer", "fail"},
    {VerdictKind::kUnfitInput, "unfit_input", ExitCode::kUnfitFile, "unreadable or unfit input",
     "a file could not be read or written, or does not fit", "fail"},
}};

constexpr const VerdictWords& DescribeVerdict(VerdictKind tKind) {
    return kVerdicts[static_cast<std::size_t>(tKind)];
}

struct Verdict {
    const VerdictWords& tVerdict;
    std::string strHeadline;
    const StatusWords& tStatus; // stage in which the measurement ended, and why
};

// Whether all three angles have a value.
bool IsMeasured(const PairResult& pair);

// Which camera failed, and at which corner if it failed there: "slave camera, right top corner". Empty if
// none did.
std::string PlaceOfFailure(const PairResult& pair);

// nDoubts: how many reasons speak against the measurement.
Verdict VerdictOf(const PairResult& pair, const Limits& limits, std::size_t nDoubts);

} // namespace tools
