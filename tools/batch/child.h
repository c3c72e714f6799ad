#pragma once

#include "basics/descriptor.h"

#include <array>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tools {

struct ChildOutcome {
    int nExit;              // -1 if the process did not come to its end
    std::string strFailure; // why it did not; empty otherwise
    std::string strOut, strErr;
};

// This same program in a process of its own, with its output in pipes and nothing to read. Ctrl-C on the
// terminal does not reach it. A process that still runs is killed when its Child goes.
class Child {
public:
    // aArguments without the program's name; strFolder: where it runs.
    Child(const std::vector<std::string>& aArguments, const std::string& strFolder);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // To wait for; closed where nothing more will come.
    const std::array<Descriptor, 2>& Pipes() const { return m_aPipes; }

    // Takes what has come. True if nothing more will come.
    bool TakeOutput();

    // Kills the process; its outcome is then that reason, unless it had come to its end by itself.
    void End(const std::string& strReason);

    // Once nothing more will come.
    ChildOutcome Outcome();

private:
    std::array<Descriptor, 2> m_aPipes;
    std::array<std::string, 2> m_aOutput;
    std::string m_strEnded; // why it was killed
    pid_t m_nProcess = -1;
    int m_nError = 0; // why it could not be started
};

} // namespace tools
