#pragma once

#include "basics/json.h"
#include "measuring/camera_measurement.h"
#include "trust/trust.h"

#include <string>
#include <vector>

namespace tools {

// Something that speaks against the numbers.
struct Warning {
    const char* szKind; // as in the limits of trust numbers and the kinds of a pair's warnings
    std::optional<Camera> oCamera = {};   // none: of the pair
    std::vector<const char*> aSides = {}; // of the frame, where it is about them
    const char* szAxis = nullptr;         // where it is about an angle
    std::optional<double> oValue = {};    // the worst one
    std::optional<double> oLimit = {};
    std::string strText; // value, limit and what to do
    int nRank = 0;       // the gravest first
    bool bDoubt = true;  // a measurement that has it is not to be relied on
};

// Of one camera's picture, the gravest first; of a pair that was not measured what may be the cause.
std::vector<Warning> WarningsOf(Camera tCamera, const CameraTrust& trust);

// All but the text.
Json JsonOf(const Warning& warning);

// What rows and counts hold of a warning in that form: "slave:large_residual".
std::string KeyOf(const Json& tWarning);

// What warnings of a key have in common: N for every measured number, and no sides. Nothing for an unknown
// key.
std::optional<std::string> GeneralText(const std::string& strKey, const Limits& limits = {});

} // namespace tools
