#pragma once

#include "compare/bit_lines.h"
#include "support/get_align.h"

namespace compare {

// Measures a pair with getAlign and writes every bit of what came out. szOrigin: what kind of pictures they
// are. False if a whole measurement came without atan: then another one was called than the recorded.
bool AddPair(const BitLines& tLines, const char* szOrigin, const support::Picture& tMaster,
             const support::Picture& tSlave);

} // namespace compare
