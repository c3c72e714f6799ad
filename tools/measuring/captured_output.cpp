#include "measuring/captured_output.h"

#include "basics/files.h"
#include "basics/tool_error.h"

#include <array>
#include <cstdio>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

namespace tools {
namespace {

Descriptor Opened(int nDescriptor) {
    if (nDescriptor == -1)
        throw ToolError("the library's output", "cannot be caught (" + ErrnoText() + ")",
                        "Raise the limit of open files, or close other programs");
    return Descriptor(nDescriptor);
}

std::string ReadFromStart(int nFile) {
    std::array<char, 4096> aChunk;
    std::string str;
    lseek(nFile, 0, SEEK_SET);
    for (ssize_t n = 0; (n = read(nFile, aChunk.data(), aChunk.size())) > 0;)
        str.append(aChunk.data(), static_cast<std::size_t>(n));
    return str;
}

} // namespace

CapturedOutput::CapturedOutput(int nDescriptor)
    : m_nDescriptor(nDescriptor), m_tOriginal(Opened(dup(nDescriptor))),
      m_tCapture(Opened(memfd_create("captured output", MFD_CLOEXEC))) {
    std::fflush(nullptr);
    dup2(m_tCapture.Number(), nDescriptor);
}

CapturedOutput::~CapturedOutput() {
    GiveBack();
}

void CapturedOutput::GiveBack() {
    if (!m_tOriginal.IsOpen())
        return;
    std::fflush(nullptr);
    dup2(m_tOriginal.Number(), m_nDescriptor);
    m_tOriginal.Close();
}

std::vector<std::string> CapturedOutput::Lines() {
    GiveBack();
    std::istringstream tText(ReadFromStart(m_tCapture.Number()));
    std::vector<std::string> aLines;
    for (std::string str; std::getline(tText, str);)
        if (!str.empty())
            aLines.push_back(str);
    return aLines;
}

} // namespace tools
