#ifndef ORVEX_ENTRY_LOG_H
#define ORVEX_ENTRY_LOG_H

namespace orvex {

// Tag of every line that the library writes to the Android log.
constexpr char szLogTag[] = "Test";

} // namespace orvex

#endif
