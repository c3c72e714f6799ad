#ifndef ORVEX_TOOLS_STUDY_TRUTH_JSON_H
#define ORVEX_TOOLS_STUDY_TRUTH_JSON_H

#include "basics/json.h"
#include "chart/pair.h"

namespace tools {

// The truth of a rendered pair and everything that it was rendered with.
Json TruthJson(const chart::PairSetup& tSetup);

} // namespace tools

#endif
