#include "files.h"

#include "tool_error.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <deque>
#include <filesystem>
#include <memory>
#include <system_error>
#include <unistd.h>

namespace tools {
namespace {

struct Closer {
    void operator()(std::FILE* p) const { std::fclose(p); }
};
using File = std::unique_ptr<std::FILE, Closer>;

std::string Reason() {
    return std::strerror(errno);
}

ToolError NotRead(const std::string& strFile) {
    return {strFile, "cannot be read (" + Reason() + ")", "Check the name and the permissions of the file"};
}

ToolError NotWritten(const std::string& strFile, const std::string& strReason) {
    return {strFile, "cannot be written (" + strReason + ")",
            "Choose a folder that you may write to and that has space left; no file is left half-written"};
}

// A file under its temporary name; gone again unless it took its place.
class StagedFile {
public:
    explicit StagedFile(const std::string& strTarget)
        : m_strTarget(strTarget), m_strTemporary(strTarget + ".new-" + std::to_string(getpid())) {}
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    ~StagedFile() {
        if (!m_bInPlace)
            std::remove(m_strTemporary.c_str());
    }

    void Write(const std::string& strBytes) const {
        File pFile(std::fopen(m_strTemporary.c_str(), "wb"));
        const bool bWritten =
            pFile && std::fwrite(strBytes.data(), 1, strBytes.size(), pFile.get()) == strBytes.size() &&
            std::fflush(pFile.get()) == 0 && fsync(fileno(pFile.get())) == 0 &&
            std::fclose(pFile.release()) == 0;
        if (!bWritten)
            throw NotWritten(m_strTarget, Reason());
    }

    void TakePlace() {
        m_bInPlace = std::rename(m_strTemporary.c_str(), m_strTarget.c_str()) == 0;
        if (!m_bInPlace)
            throw NotWritten(m_strTarget, Reason());
    }

private:
    std::string m_strTarget;
    std::string m_strTemporary;
    bool m_bInPlace = false;
};

// The one obstacle to taking a place that would show only after the first files took theirs.
void RefuseFolder(const std::string& strTarget) {
    std::error_code tIgnored; // whatever else is wrong with the name shows on writing
    if (std::filesystem::is_directory(strTarget, tIgnored))
        throw NotWritten(strTarget, "a folder of this name is in the way");
}

} // namespace

std::string ReadStart(const std::string& strFile, std::size_t nBytes) {
    constexpr std::size_t nChunk = std::size_t{1} << 20;
    const File pFile(std::fopen(strFile.c_str(), "rb"));
    if (!pFile)
        throw NotRead(strFile);
    std::string strBytes;
    for (std::size_t nRead = 1; nRead != 0 && strBytes.size() < nBytes;) {
        const std::size_t nOld = strBytes.size();
        strBytes.resize(std::min(nOld + nChunk, nBytes));
        nRead = std::fread(strBytes.data() + nOld, 1, strBytes.size() - nOld, pFile.get());
        strBytes.resize(nOld + nRead);
    }
    if (std::ferror(pFile.get()) != 0)
        throw NotRead(strFile);
    return strBytes;
}

std::string ReadFile(const std::string& strFile, std::size_t nLimit) {
    std::string strBytes = ReadStart(strFile, nLimit + 1);
    if (strBytes.size() > nLimit)
        throw ToolError(strFile, "holds more than " + std::to_string(nLimit) + " bytes, the most it may have",
                        "Check that this is the right file");
    return strBytes;
}

void WriteFiles(const std::vector<NewFile>& aFiles) {
    std::deque<StagedFile> aStaged;
    for (const NewFile& t : aFiles) {
        RefuseFolder(t.strFile);
        aStaged.emplace_back(t.strFile).Write(t.strBytes);
    }
    for (StagedFile& t : aStaged)
        t.TakePlace();
}

void CreateFolder(const std::string& strFolder) {
    std::error_code tError;
    std::filesystem::create_directories(strFolder, tError);
    if (tError)
        throw ToolError(strFolder, "cannot be created as a folder (" + tError.message() + ")",
                        "Name a folder that you may create or write to");
}

} // namespace tools
