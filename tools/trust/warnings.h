#pragma once

#include "basics/json.h"
#include "measuring/camera_measurement.h"
#include "trust/trust.h"

#include <string>
#include <vector>

namespace tools {

// Something that speaks against the numbers.
struct Warning {
    const char* szKind;              // as in the limits of trust numbers, or "different_sizes"
    std::optional<Camera> oCamera;   // none: of the pair
    std::vector<const char*> aSides; // of the frame, where it is about them
    std::optional<double> oValue;    // the worst one
    std::optional<double> oLimit;
    std::string strText; // value, limit and what to do
};

// Of one camera's picture, the gravest first.
std::vector<Warning> WarningsOf(Camera tCamera, const CameraTrust& trust);

// Of pictures that differ in size.
Warning SizeWarning(PictureSize tMaster, PictureSize tSlave);

// All but the text.
Json JsonOf(const Warning& warning);

// What rows and counts hold of a warning in that form: "slave:large_residual".
std::string KeyOf(const Json& tWarning);

// What warnings of a key have in common: N for every measured number, and no sides. Nothing for an unknown
// key.
std::optional<std::string> GeneralText(const std::string& strKey);

} // namespace tools
