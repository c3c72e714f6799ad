#pragma once

#include "measuring/quantities.h"
#include "trust/trust.h"

#include <span>
#include <string>
#include <vector>

namespace tools {

// When a number is warned of.
enum class Warned { kAbove, kBelow, kAtMost }; // its value lies above the limit, below, at most at it

// A trust number's limit.
struct TrustLimit {
    const char* szKind; // of the warning
    Warned tWarned;
    double dLimit;
    int nRank;             // lower ones spoil what the higher ones read, and come first
    const char* szJsonKey; // of the limit in JSON; nullptr where another number's says it
    const char* szHelp;    // with {limit}: "a residual above {limit} px"; nullptr likewise
    const char* szWarning; // what, how much and what to do, with {limit}, {value} and other measured numbers
    double dOfFailure = dLimit;                            // the limit where it may be the cause of a failure
    std::string (*WhereOf)(const Soundness& t) = nullptr;  // {where}
    double (*FollowsFrom)(const FrameSearch& t) = nullptr; // the limit, in place of the others
};

// What a number is told of: each side, or the picture, whatever the side.
enum class Of { kSide, kPicture };

// One number of the tool's own reading wherever it is told: quantities, limits in JSON, help and warnings all
// go by their table.
struct TrustNumber {
    Of tOf;
    const char* szKey;   // ends in the unit; nullptr if only its limit is told
    const char* szWords; // for people
    const char* szUnit;
    int nDecimals;
    std::optional<double> (*ValueOf)(const CameraTrust& trust, std::size_t nSide); // side: as kSides
    std::optional<TrustLimit> oLimit = {};
};

std::span<const TrustNumber> TrustNumbers();

// The one that holds for a camera.
double LimitFor(const TrustLimit& tLimit, const CameraTrust& trust);

// "at most", "at least" or "more than"
const char* BoundOf(const TrustLimit& tLimit);

// Of those that a product may set, as the table has it.
double UsualLimit(const TrustLimit& tLimit);

// Whichever row has it; nullptr if none has.
const TrustLimit* LimitOf(std::string_view strKey);

// By how much the number of a side is worse than allowed; nothing if it is not.
std::optional<double> Excess(const TrustNumber& tNumber, const TrustLimit& tLimit, const CameraTrust& trust,
                             std::size_t nSide);

Quantities QuantitiesOf(const CameraTrust& trust);

// Both ends of each side's fitted line, px. Apart from the others: people look at them in the report.
Quantities LinesOf(const CameraTrust& trust);

// The limits in words: "a residual above 0.3 px, ... and ..."
std::string TrustLimitsHelp();

// The limits that hold for a camera, by their keys.
Json TrustLimitsJson(const CameraTrust& trust);

} // namespace tools
