#include "measuring/captured_output.h"

#include "basics/files.h"
#include "basics/tool_error.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <unistd.h>

namespace tools {
namespace {

constexpr int nNone = -1;

std::string TemporaryFolder() {
    const char* const sz = std::getenv("TMPDIR");
    return sz != nullptr && *sz != '\0' ? sz : "/tmp";
}

int Opened(int nDescriptor) {
    if (nDescriptor == nNone)
        throw ToolError(TemporaryFolder(), "no temporary file can be opened there (" + ErrnoText() + ")",
                        "Make room in it, allow writing to it, or set TMPDIR to another folder; raise the "
                        "limit of open files if that is the reason");
    return nDescriptor;
}

// A file without a name: it is gone when it is closed, even if the process dies.
int OpenNameless() {
    std::string strName = TemporaryFolder() + "/orvex-align-XXXXXX";
    const int n = Opened(mkostemp(strName.data(), O_CLOEXEC));
    unlink(strName.c_str());
    return n;
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
    : m_nDescriptor(nDescriptor), m_nOriginal(Opened(dup(nDescriptor))), m_nCapture(OpenNameless()) {
    std::fflush(nullptr);
    dup2(m_nCapture, nDescriptor);
}

CapturedOutput::~CapturedOutput() {
    GiveBack();
    close(m_nCapture);
}

void CapturedOutput::GiveBack() {
    if (m_nOriginal == nNone)
        return;
    std::fflush(nullptr);
    dup2(m_nOriginal, m_nDescriptor);
    close(m_nOriginal);
    m_nOriginal = nNone;
}

std::vector<std::string> CapturedOutput::Lines() {
    GiveBack();
    std::istringstream tText(ReadFromStart(m_nCapture));
    std::vector<std::string> aLines;
    for (std::string str; std::getline(tText, str);)
        if (!str.empty())
            aLines.push_back(str);
    return aLines;
}

} // namespace tools
