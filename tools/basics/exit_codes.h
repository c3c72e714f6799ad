#pragma once

namespace tools {

// What a station's script acts on.
enum class ExitCode {
    kDone = 0, // also: within range; a record accepted
    kOutOfRange = 1,
    kNotMeasured = 2, // also: a record refused
    kUnfitFile = 3,
    kDoubtful = 4,    // within range, but something speaks against it
    kWrongUsage = 64, // as sysexits.h has it, clear of the answers
    kSignal = 128,    // plus the number of the signal that stopped the program, as shells have it
};

constexpr ExitCode StoppedBy(int nSignal) {
    return static_cast<ExitCode>(static_cast<int>(ExitCode::kSignal) + nSignal);
}

} // namespace tools
