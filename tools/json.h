#ifndef ORVEX_TOOLS_JSON_H
#define ORVEX_TOOLS_JSON_H

#include <nlohmann/json.hpp>

namespace tools {

// Keeps the order in which keys are added: people read the output, too.
using Json = nlohmann::ordered_json;

// As it is printed. A file's name in it may be any bytes, JSON only UTF-8.
inline std::string TextOf(const Json& t) {
    return t.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace tools

#endif
