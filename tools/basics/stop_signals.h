#pragma once

#include "basics/descriptor.h"

#include <csignal>

namespace tools {

// Puts off what asks the program to stop (Ctrl-C, termination, hang-up) while it exists.
class StopsHeld {
public:
    StopsHeld();
    ~StopsHeld();
    StopsHeld(const StopsHeld&) = delete;
    StopsHeld& operator=(const StopsHeld&) = delete;

private:
    sigset_t m_tBefore;
};

// Takes note of such a wish instead, so that long work ends between two pieces of it.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    // Readable once a signal has come.
    int Number() const { return m_tDescriptor.Number(); }

    // The signal that has come since the last call, or 0. Does not wait.
    int Take() const;

private:
    StopsHeld m_tHeld;
    Descriptor m_tDescriptor;
};

} // namespace tools
