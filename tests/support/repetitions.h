#pragma once

namespace support {

// How often a long test repeats itself. An emulated measurement takes a multiple of the time: a tenth then.
constexpr int Repetitions(int n) {
#ifdef ORVEX_EMULATED
    return n / 10;
#else
    return n;
#endif
}

} // namespace support
