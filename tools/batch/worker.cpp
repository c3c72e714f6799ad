#include "batch/worker.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tools {
namespace {

// Where the process's streams lead, and its own process group and clear signal mask.
class SpawnSetup {
public:
    explicit SpawnSetup(const std::string& strFolder) {
        posix_spawn_file_actions_init(&m_tActions);
        posix_spawn_file_actions_addchdir_np(&m_tActions, strFolder.c_str());
        posix_spawnattr_init(&m_tAttributes);
        posix_spawnattr_setflags(&m_tAttributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
        posix_spawnattr_setpgroup(&m_tAttributes, 0);
        sigset_t tNone;
        sigemptyset(&tNone);
        posix_spawnattr_setsigmask(&m_tAttributes, &tNone);
    }
    ~SpawnSetup() {
        posix_spawn_file_actions_destroy(&m_tActions);
        posix_spawnattr_destroy(&m_tAttributes);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    void Lead(int nStream, int nDescriptor) {
        posix_spawn_file_actions_adddup2(&m_tActions, nDescriptor, nStream);
    }

    int Spawn(pid_t& nProcess, char* const* aszArguments) const {
        return posix_spawn(&nProcess, "/proc/self/exe", &m_tActions, &m_tAttributes, aszArguments, environ);
    }

private:
    posix_spawn_file_actions_t m_tActions;
    posix_spawnattr_t m_tAttributes;
};

std::vector<char*> Pointers(std::vector<std::string>& aWords) {
    std::vector<char*> a(aWords.size() + 1, nullptr);
    std::ranges::transform(aWords, a.begin(), [](std::string& str) { return str.data(); });
    return a;
}

// Until the pipe is empty for now, or closed at its other end.
void Drain(Descriptor& tPipe, std::string& str) {
    std::array<char, 1 << 16> aChunk;
    ssize_t n = 0;
    while (tPipe.IsOpen() && (n = read(tPipe.Number(), aChunk.data(), aChunk.size())) > 0)
        str.append(aChunk.data(), static_cast<std::size_t>(n));
    if (n == 0 || (errno != EAGAIN && errno != EINTR))
        tPipe.Close();
}

int Reaped(pid_t nProcess) {
    int nStatus = 0;
    while (waitpid(nProcess, &nStatus, 0) == -1 && errno == EINTR) {
    }
    return nStatus;
}

} // namespace

Worker::Worker(const std::vector<std::string>& aArguments, const std::string& strFolder) {
    std::array<Descriptor, 3> aEnds; // the process's
    SpawnSetup tSetup(strFolder);
    // A socket tells of an end that is gone without a signal.
    int anEnds[2] = {-1, -1};
    m_nError = socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, anEnds) == 0 ? 0 : errno;
    m_tQuestions = Descriptor(anEnds[0]);
    aEnds[0] = Descriptor(anEnds[1]);
    for (std::size_t i = 0; i < m_aPipes.size() && m_nError == 0; ++i) {
        int anPipe[2] = {-1, -1};
        m_nError = pipe2(anPipe, O_CLOEXEC) == 0 ? 0 : errno;
        m_aPipes[i] = Descriptor(anPipe[0]);
        aEnds[i + 1] = Descriptor(anPipe[1]);
        fcntl(anPipe[0], F_SETFL, O_NONBLOCK);
    }
    for (std::size_t i = 0; i < aEnds.size(); ++i)
        tSetup.Lead(static_cast<int>(i), aEnds[i].Number());
    std::vector<std::string> aWords = {"orvex-align"};
    aWords.insert(aWords.end(), aArguments.begin(), aArguments.end());
    if (m_nError == 0)
        m_nError = tSetup.Spawn(m_nProcess, Pointers(aWords).data());
    if (m_nError != 0)
        m_nProcess = -1;
}

Worker::~Worker() {
    if (IsThere()) {
        kill(m_nProcess, SIGKILL);
        Reaped(m_nProcess);
    }
}

bool Worker::Ask(const std::vector<std::string>& aTexts) {
    std::string str;
    for (const std::string& strText : aTexts)
        str.append(strText).push_back('\0');
    m_aOutput = {};
    for (std::size_t nSent = 0; nSent < str.size();) {
        const ssize_t n = send(m_tQuestions.Number(), str.data() + nSent, str.size() - nSent, MSG_NOSIGNAL);
        if (n == -1 && errno != EINTR)
            return false;
        nSent += static_cast<std::size_t>(std::max<ssize_t>(n, 0));
    }
    return true;
}

bool Worker::TakeOutput() {
    for (std::size_t i = 0; i < m_aPipes.size(); ++i)
        Drain(m_aPipes[i], m_aOutput[i]);
    return m_aOutput[0].ends_with('\0') || (!m_aPipes[0].IsOpen() && !m_aPipes[1].IsOpen());
}

void Worker::End(const std::string& strReason) {
    m_strEnded = strReason;
    if (IsThere())
        kill(m_nProcess, SIGKILL);
}

WorkerOutcome Worker::Outcome() {
    WorkerOutcome t = {-1, "", std::move(m_aOutput[0]), std::move(m_aOutput[1])};
    if (t.strAnswer.ends_with('\0')) {
        t.strAnswer.pop_back();
        return t;
    }
    if (!IsThere()) {
        t.strFailure =
            std::string("the measuring process could not be started (") + std::strerror(m_nError) + ")";
        return t;
    }
    const int nStatus = Reaped(m_nProcess);
    m_nProcess = -1;
    if (WIFEXITED(nStatus))
        t.nExit = WEXITSTATUS(nStatus);
    else if (!m_strEnded.empty())
        t.strFailure = m_strEnded;
    else
        t.strFailure = "the measuring process was ended by signal " + std::to_string(WTERMSIG(nStatus)) +
                       " (" + strsignal(WTERMSIG(nStatus)) + ")";
    return t;
}

} // namespace tools
