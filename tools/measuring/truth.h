#pragma once

#include "measuring/quantities.h"

namespace tools {

// What a measurement of a rendered pair should find: the relative rotation (the slave's pose minus the
// master's) and both cameras' centres and corners.
struct Truth {
    std::string strFile;
    Quantities aTrue;
};

// What a truth file holds, in the order of the measurement's list.
Quantities TrueQuantities(const Angles& tRelative, const CameraTruth& tMaster, const CameraTruth& tSlave);

// Reads a file that holds them. Throws ToolError.
Truth ReadTruth(const std::string& strFile);

// A number as measured, as it should be, and how far apart they are.
struct Comparison {
    Quantity tMeasured;
    Quantity tTrue;
    Quantity tDifference;
};

// One for each true quantity, in their order.
std::vector<Comparison> Compare(const Quantities& aMeasured, const Truth& tTruth);

} // namespace tools
