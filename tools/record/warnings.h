#pragma once

#include "measuring/record_reading.h"

#include <vector>

namespace tools {

// What of a decrypted record is not as a measurement writes it and no check of the library's reader covers:
// version, container header, reserved bytes and what follows the known fields.
std::vector<std::string> WarningsOf(const RecordReading& tReading);

} // namespace tools
