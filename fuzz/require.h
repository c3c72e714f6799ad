#pragma once

#include <cstdio>
#include <cstdlib>

namespace fuzz {

// What a target promises of every input; the fuzzer keeps the input that breaks it.
inline void Require(bool bHolds, const char* szPromise) {
    if (bHolds)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", szPromise);
    std::abort();
}

} // namespace fuzz
