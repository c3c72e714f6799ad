#pragma once

#include "basics/descriptor.h"

#include <array>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tools {

// What came of one question.
struct WorkerOutcome {
    int nExit;              // of a process that ended in place of an answer; else -1
    std::string strFailure; // why there is no answer, where no exit code tells it; empty otherwise
    std::string strAnswer, strErr;
};

// This same program in a process of its own that answers one question after the other, each of some texts.
// Every text of a question or an answer ends in a zero byte. Ctrl-C on the terminal does not reach it. A
// process that still runs is killed when its Worker goes.
class Worker {
public:
    // aArguments without the program's name; strFolder: where it runs.
    Worker(const std::vector<std::string>& aArguments, const std::string& strFolder);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // False if the process is no longer there to be asked.
    bool Ask(const std::vector<std::string>& aTexts);

    // Answers and words aside; to wait for; closed where nothing more will come.
    const std::array<Descriptor, 2>& Pipes() const { return m_aPipes; }

    // Takes what has come. True if the answer is there, or will not come.
    bool TakeOutput();

    // Kills the process; the outcome is then that reason, unless it had come to its end by itself.
    void End(const std::string& strReason);

    // Of the last question, once its answer is there or will not come.
    WorkerOutcome Outcome();

    // Whether it may be asked again.
    bool IsThere() const { return m_nProcess != -1; }

private:
    Descriptor m_tQuestions;
    std::array<Descriptor, 2> m_aPipes;
    std::array<std::string, 2> m_aOutput;
    std::string m_strEnded; // why it was killed
    pid_t m_nProcess = -1;
    int m_nError = 0; // why it could not be started
};

} // namespace tools
