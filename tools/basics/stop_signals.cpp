#include "basics/stop_signals.h"

#include <sys/signalfd.h>

namespace tools {
namespace {

// A hang-up that is ignored stays so: that is how a program is told to outlive its terminal.
bool HangUpIsIgnored() {
    struct sigaction tAction = {};
    return sigaction(SIGHUP, nullptr, &tAction) == 0 && tAction.sa_handler == SIG_IGN;
}

sigset_t Signals() {
    sigset_t t;
    sigemptyset(&t);
    sigaddset(&t, SIGINT);
    sigaddset(&t, SIGTERM);
    if (!HangUpIsIgnored())
        sigaddset(&t, SIGHUP);
    return t;
}

} // namespace

StopsHeld::StopsHeld() {
    const sigset_t tSignals = Signals();
    sigprocmask(SIG_BLOCK, &tSignals, &m_tBefore);
}

StopsHeld::~StopsHeld() {
    sigprocmask(SIG_SETMASK, &m_tBefore, nullptr);
}

StopSignals::StopSignals() {
    const sigset_t tSignals = Signals();
    m_tDescriptor = Descriptor(signalfd(-1, &tSignals, SFD_CLOEXEC | SFD_NONBLOCK));
}

StopSignals::~StopSignals() {
    while (Take() != 0) {
    }
}

int StopSignals::Take() const {
    signalfd_siginfo t = {};
    return read(Number(), &t, sizeof t) == sizeof t ? static_cast<int>(t.ssi_signo) : 0;
}

} // namespace tools
