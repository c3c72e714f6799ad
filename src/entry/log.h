#pragma once

namespace orvex {

// Tag of every line that the library writes to the Android log.
constexpr char szLogTag[] = "Test";

} // namespace orvex
