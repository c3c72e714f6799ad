#ifndef ORVEX_TOOLS_JSON_H
#define ORVEX_TOOLS_JSON_H

#include <nlohmann/json.hpp>

namespace tools {

// Keeps the order in which keys are added: people read the output, too.
using Json = nlohmann::ordered_json;

} // namespace tools

#endif
