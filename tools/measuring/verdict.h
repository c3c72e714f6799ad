#ifndef ORVEX_TOOLS_MEASURING_VERDICT_H
#define ORVEX_TOOLS_MEASURING_VERDICT_H

#include "basics/exit_codes.h"
#include "measuring/measurement.h"

namespace tools {

// Largest magnitude of a rescaled angle, and the raw angle that is rescaled to it, degrees.
constexpr double kRescaledLimit = 2.0;
constexpr double kRawLimit = 2.5;

// "-2.0 to 2.0"
std::string AllowedRange(double dLimit);

struct Verdict {
    ExitCode tExit;
    const char* szKey;
    std::string strHeadline;
    const StatusWords& tWords; // stage in which the measurement ended, and why
};

// Which camera failed, and at which corner if it failed there: "slave camera, right top corner". Empty if
// none did.
std::string PlaceOfFailure(const Measurement& t);

Verdict VerdictOf(const Measurement& t);

} // namespace tools

#endif
