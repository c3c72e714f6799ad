#include "basics/files.h"

#include "basics/console.h"
#include "basics/descriptor.h"
#include "basics/harmless_text.h"
#include "basics/stop_signals.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tools {
namespace {

// What the reason asks for, or else what usually helps.
std::string Advice(const char* szUsually) {
    return errno == ENAMETOOLONG ? "Give the file a shorter name" : szUsually;
}

ToolError NotRead(const std::string& strFile) {
    return {strFile, "cannot be read (" + ErrnoText() + ")",
            Advice("Check the name and the permissions of the file")};
}

// A pipe or a device may have nothing to read yet: then it says what it waits for, after two seconds.
Descriptor OpenToRead(const std::string& strFile) {
    Descriptor tFile(open(strFile.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!tFile.IsOpen())
        throw NotRead(strFile);
    pollfd t = {tFile.Number(), POLLIN, 0};
    if (poll(&t, 1, 2000) == 0) {
        Tell("waiting for data from " + Harmless(strFile));
        poll(&t, 1, -1);
    }
    fcntl(tFile.Number(), F_SETFL, 0); // from here on reading waits
    return tFile;
}

// Fewer bytes only at the end.
std::size_t ReadFull(const Descriptor& tFile, const std::string& strFile, char* pTo, std::size_t nBytes) {
    std::size_t nDone = 0;
    for (ssize_t n = 1; n != 0 && nDone < nBytes; nDone += static_cast<std::size_t>(std::max<ssize_t>(n, 0)))
        if (n = read(tFile.Number(), pTo + nDone, nBytes - nDone); n == -1 && errno != EINTR)
            throw NotRead(strFile);
    return nDone;
}

// A staged file's.
ToolError NotStaged(const std::string& strFile) {
    return NotCreated(
        strFile,
        "Choose a folder that you may write to and that has space left; no file is left half-written");
}

// A link stays a link: the file that it leads to is the one that is written.
std::string BehindLinks(const std::string& strTarget) {
    std::error_code tError;
    const std::filesystem::path t =
        std::filesystem::weakly_canonical(std::filesystem::absolute(strTarget, tError), tError);
    return tError ? strTarget : t.string();
}

mode_t Umask() {
    const mode_t n = umask(0);
    umask(n);
    return n;
}

// The mode, owner and group of the file that is replaced, or the mode of any new file. Only root may give a
// file away, and not every file system has modes: what fails leaves the file no more open than it was.
void TakeRightsOf(const std::string& strPlace, int nDescriptor) {
    struct stat t = {};
    if (stat(strPlace.c_str(), &t) == -1) {
        fchmod(nDescriptor, 0666 & ~Umask());
        return;
    }
    const bool bGroupKept =
        fchown(nDescriptor, t.st_uid, t.st_gid) == 0 || fchown(nDescriptor, getuid(), t.st_gid) == 0;
    const mode_t nOfOthers = t.st_mode & 07; // another group has what everyone has
    fchmod(nDescriptor, bGroupKept ? t.st_mode & 0777 : (t.st_mode & 0700) | nOfOthers << 3 | nOfOthers);
}

// A file under a temporary name that nobody can foresee; gone again unless it took its place.
class StagedFile {
public:
    explicit StagedFile(const std::string& strTarget)
        : m_strTarget(strTarget), m_strPlace(BehindLinks(strTarget)),
          m_strTemporary(m_strPlace + ".new-XXXXXX"),
          m_tDescriptor(mkostemp(m_strTemporary.data(), O_CLOEXEC)) {
        if (!m_tDescriptor.IsOpen())
            throw NotStaged(m_strTarget);
    }
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;
    ~StagedFile() {
        if (!m_bInPlace)
            std::remove(m_strTemporary.c_str());
    }

    void Write(const std::string& strBytes) {
        TakeRightsOf(m_strPlace, m_tDescriptor.Number());
        if (!WriteAll(m_tDescriptor.Number(), strBytes) || fsync(m_tDescriptor.Number()) != 0 ||
            !m_tDescriptor.Close())
            throw NotStaged(m_strTarget);
    }

    void TakePlace() {
        m_bInPlace = std::rename(m_strTemporary.c_str(), m_strPlace.c_str()) == 0;
        if (!m_bInPlace)
            throw NotStaged(m_strTarget);
    }

private:
    std::string m_strTarget; // as named
    std::string m_strPlace;
    std::string m_strTemporary;
    Descriptor m_tDescriptor;
    bool m_bInPlace = false;
};

// What a rename would replace, or fail on, only after the first files took their places: a folder, a device,
// a link without its file.
void RefuseNoFile(const std::string& strTarget) {
    std::error_code tError, tIgnored; // whatever else is wrong with the name shows on writing
    const std::filesystem::file_status t = std::filesystem::status(strTarget, tError);
    if (!std::filesystem::exists(t) && std::filesystem::is_symlink(strTarget, tIgnored))
        throw NotWritten(strTarget, "Create the file that it leads to, remove the link, or name another file",
                         "a link of this name leads nowhere: " + tError.message());
    if (std::filesystem::is_directory(t))
        throw NotWritten(strTarget, "Name another file", "a folder of this name is in the way");
    if (std::filesystem::exists(t) && !std::filesystem::is_regular_file(t))
        throw NotWritten(strTarget, "Name another file", "what has this name is no file");
}

} // namespace

std::string ErrnoText() {
    return std::strerror(errno);
}

ToolError NotWritten(const std::string& strFile, const std::string& strToDo, const std::string& strReason) {
    return {strFile, "cannot be written (" + strReason + ")", strToDo};
}

ToolError NotCreated(const std::string& strFile, const char* szUsually) {
    return NotWritten(strFile, errno == ENOENT ? "Create its folder first, or name a file in another one"
                                               : Advice(szUsually));
}

std::string ReadStart(const std::string& strFile, std::size_t nBytes, const CheckStart& Check) {
    constexpr std::size_t kChunk = std::size_t{1} << 16; // cleared and then read while in the cache
    const Descriptor tFile = OpenToRead(strFile);
    std::string strBytes;
    struct stat tStat = {};
    if (fstat(tFile.Number(), &tStat) == 0) // a guess: a file may grow, a pipe has no size
        strBytes.reserve(std::min(static_cast<std::size_t>(tStat.st_size) + kChunk, nBytes));
    while (strBytes.size() < nBytes) {
        const std::size_t nOld = strBytes.size();
        strBytes.resize(std::min(nOld + kChunk, nBytes));
        const std::size_t nRead = ReadFull(tFile, strFile, strBytes.data() + nOld, strBytes.size() - nOld);
        const bool bEnds = nRead < strBytes.size() - nOld;
        strBytes.resize(nOld + nRead);
        if (nOld == 0 && Check)
            Check(strBytes);
        if (bEnds)
            break;
    }
    return strBytes;
}

std::string ReadFile(const std::string& strFile, std::size_t nLimit, const CheckStart& Check) {
    std::string strBytes = ReadStart(strFile, nLimit + 1, Check);
    if (strBytes.size() > nLimit)
        throw ToolError(strFile, "holds more than " + std::to_string(nLimit) + " bytes, the most it may have",
                        "Check that this is the right file");
    return strBytes;
}

void WriteFiles(const std::vector<NewFile>& aFiles) {
    const StopsHeld tHeld; // until all are in place or their temporary names are gone
    std::deque<StagedFile> aStaged;
    for (const NewFile& t : aFiles) {
        RefuseNoFile(t.strFile);
        aStaged.emplace_back(t.strFile).Write(t.strBytes);
    }
    for (StagedFile& t : aStaged)
        t.TakePlace();
}

bool WriteAll(int nDescriptor, const std::string& str) {
    for (std::size_t nDone = 0; nDone < str.size();) {
        const ssize_t n = write(nDescriptor, str.data() + nDone, str.size() - nDone);
        if (n == -1 && errno != EINTR)
            return false;
        nDone += n > 0 ? static_cast<std::size_t>(n) : 0;
    }
    return true;
}

bool IsSameFile(const std::string& strOne, const std::string& strOther) {
    if (strOne.empty() || strOther.empty())
        return false;
    std::error_code tNotThere; // then the names alone tell
    const bool bSame = std::filesystem::equivalent(strOne, strOther, tNotThere);
    return tNotThere ? BehindLinks(strOne) == BehindLinks(strOther) : bSame;
}

void CreateFolder(const std::string& strFolder) {
    std::error_code tError;
    std::filesystem::create_directories(strFolder, tError);
    if (tError)
        throw ToolError(strFolder, "cannot be created as a folder (" + tError.message() + ")",
                        "Name a folder that you may create or write to");
}

} // namespace tools
