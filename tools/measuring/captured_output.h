#pragma once

#include "basics/descriptor.h"

#include <string>
#include <vector>

namespace tools {

// Collects what is written to one of the process's standard streams, by whatever means, from construction
// until Lines() or destruction. The library prints and logs on its own; this keeps the tool's output clean.
class CapturedOutput {
public:
    explicit CapturedOutput(int nDescriptor);
    ~CapturedOutput();
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    // Gives the stream back and returns what was written, without empty lines.
    std::vector<std::string> Lines();

private:
    void GiveBack();

    int m_nDescriptor;
    Descriptor m_tOriginal; // until it is given back
    Descriptor m_tCapture;
};

} // namespace tools
