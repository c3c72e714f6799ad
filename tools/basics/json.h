#pragma once

#include <nlohmann/json.hpp>

namespace tools {

// Keeps the order in which keys are added: people read the output, too.
using Json = nlohmann::ordered_json;

constexpr int kOneLine = -1; // in place of an indentation

// As it is printed. A file's name in it may be any bytes, JSON only UTF-8; what is not ASCII is escaped, so
// that the whole name is there and commands no terminal.
inline std::string TextOf(const Json& json, int nIndent = 2) {
    return json.dump(nIndent, ' ', true, Json::error_handler_t::replace) + "\n";
}

} // namespace tools
