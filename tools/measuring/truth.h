#ifndef ORVEX_TOOLS_MEASURING_TRUTH_H
#define ORVEX_TOOLS_MEASURING_TRUTH_H

#include "chart/pair.h"
#include "measuring/quantities.h"

namespace tools {

// What a measurement of a rendered pair should find: the relative rotation (the slave's pose minus the
// master's) and both cameras' centres and corners.
struct Truth {
    std::string strFile;
    Quantities aTrue;
};

// Reads a file that holds TruthJson. Throws ToolError.
Truth ReadTruth(const std::string& strFile);

// The truth of a rendered pair and everything that it was rendered with.
Json TruthJson(const chart::PairSetup& tSetup);

// A number as measured, as it should be, and how far apart they are.
struct Comparison {
    Quantity tMeasured;
    Quantity tTrue;
    Quantity tDifference;
};

// One for each true quantity, in their order.
std::vector<Comparison> Compare(const Measurement& tMeasurement, const Truth& tTruth);

} // namespace tools

#endif
