#include "batch/result_sink.h"

#include "basics/console.h"
#include "basics/files.h"
#include "basics/harmless_text.h"
#include "basics/tool_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tools {
namespace {

constexpr char kChoose[] = "Name a file in a folder that you may write to";

// Programs read the names as they are, people read them harmless.
std::string AsRead(const std::string& strLine) {
    if (isatty(STDOUT_FILENO) == 0)
        return strLine;
    return Harmless(strLine.substr(0, strLine.size() - 1)) + "\n";
}

} // namespace

ResultSink::ResultSink(const std::string& strFile, OpenMode tMode) : m_strFile(strFile) {
    if (strFile.empty())
        return;
    m_tDescriptor = Descriptor(
        open(strFile.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (tMode == OpenMode::kNew ? O_EXCL : 0), 0666));
    if (!m_tDescriptor.IsOpen() && errno == EEXIST)
        throw ToolError(strFile, "exists already",
                        "Go on with it by --resume, replace it by --overwrite, or name another file");
    if (!m_tDescriptor.IsOpen())
        throw NotCreated(strFile, kChoose);
    if (flock(m_tDescriptor.Number(), LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK)
        throw ToolError(strFile, "is being written by another batch",
                        "Let that one end or name another file");
}

void ResultSink::KeepOnly(std::size_t nBytes) {
    if (!m_tDescriptor.IsOpen())
        return;
    m_nSize = nBytes;
    // A device has no size to change.
    if (ftruncate(m_tDescriptor.Number(), static_cast<off_t>(nBytes)) == -1 && errno != EINVAL)
        throw NotWritten(m_strFile, kChoose);
    lseek(m_tDescriptor.Number(), static_cast<off_t>(nBytes), SEEK_SET);
}

void ResultSink::Write(const std::string& strLine) {
    if (!m_tDescriptor.IsOpen())
        return Print(AsRead(strLine));
    if (!WriteAll(m_tDescriptor.Number(), strLine)) {
        const int nReason = errno;
        KeepOnly(m_nSize);
        errno = nReason;
        throw NotWritten(m_strFile,
                         "Make room and go on with --resume; the file holds all rows before this one");
    }
    m_nSize += strLine.size();
}

} // namespace tools
