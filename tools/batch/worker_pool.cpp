#include "batch/worker_pool.h"

#include "basics/stop_signals.h"

#include <algorithm>
#include <list>
#include <poll.h>

namespace tools {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A measurement takes a fraction of it.
constexpr std::chrono::milliseconds kPatience(2000);

struct Running {
    std::size_t nJob;
    std::unique_ptr<Worker> pWorker;
    Clock::time_point tLimit;
};

// What poll is to wait until then: nothing for what is over.
int MillisecondsUntil(Clock::time_point t) {
    const auto tLeft = std::chrono::ceil<std::chrono::milliseconds>(t - Clock::now());
    return static_cast<int>(std::clamp(tLeft, 0ms, std::chrono::milliseconds(1h)).count());
}

class Pool {
public:
    explicit Pool(const PoolWork& tWork) : m_tWork(tWork) {}

    int Run() {
        for (StartMore(); !m_aRunning.empty(); StartMore()) {
            Wait();
            if (MustEndNow())
                break;
            TakeDone();
            EndOverdue();
        }
        return m_nSignal;
    }

private:
    // Those that run are in the order of their jobs.
    bool MayStart() const {
        return m_nSignal == 0 && m_nNext < m_tWork.nJobs && m_aRunning.size() < m_tWork.nAtOnce &&
               (m_aRunning.empty() || m_nNext - m_aRunning.front().nJob < m_tWork.nAhead);
    }

    void StartMore() {
        for (; MayStart(); ++m_nNext)
            m_aRunning.push_back({m_nNext, Asked(m_nNext), Clock::now() + m_tWork.tTimeLimit});
    }

    // By a worker that has nothing to do, or by a new one.
    std::unique_ptr<Worker> Asked(std::size_t nJob) {
        const std::vector<std::string> aQuestion = m_tWork.QuestionOf(nJob);
        while (!m_aIdle.empty()) {
            std::unique_ptr<Worker> p = std::move(m_aIdle.back());
            m_aIdle.pop_back();
            if (p->Ask(aQuestion))
                return p;
        }
        std::unique_ptr<Worker> p = m_tWork.Start();
        p->Ask(aQuestion); // one that does not take it has no answer either
        return p;
    }

    void Wait() const {
        std::vector<pollfd> aWaiting = {{m_tStop.Number(), POLLIN, 0}};
        for (const Running& t : m_aRunning)
            for (const Descriptor& tPipe : t.pWorker->Pipes())
                aWaiting.push_back({tPipe.Number(), POLLIN, 0});
        poll(aWaiting.data(), aWaiting.size(), MillisecondsUntil(NextEvent()));
    }

    Clock::time_point NextEvent() const {
        Clock::time_point tNext = m_nSignal == 0 ? Clock::time_point::max() : m_tPatienceEnds;
        for (const Running& t : m_aRunning)
            tNext = std::min(tNext, t.tLimit);
        return tNext;
    }

    // The second signal, or the first one's patience is over.
    bool MustEndNow() {
        const int nSignal = m_tStop.Take();
        if (m_nSignal != 0)
            return nSignal != 0 || Clock::now() >= m_tPatienceEnds;
        m_nSignal = nSignal;
        m_tPatienceEnds = Clock::now() + kPatience;
        return false;
    }

    void TakeDone() {
        std::erase_if(m_aRunning, [this](Running& t) {
            if (!t.pWorker->TakeOutput())
                return false;
            m_tWork.Done(t.nJob, t.pWorker->Outcome());
            if (t.pWorker->IsThere())
                m_aIdle.push_back(std::move(t.pWorker));
            return true;
        });
    }

    // Killed once; that it is gone shows at its pipes.
    void EndOverdue() {
        for (Running& t : m_aRunning)
            if (Clock::now() >= t.tLimit) {
                t.pWorker->End("the measuring process gave no answer within " +
                               std::to_string(m_tWork.tTimeLimit.count()) + " s and was ended");
                t.tLimit = Clock::time_point::max();
            }
    }

    StopSignals m_tStop;
    const PoolWork& m_tWork;
    std::size_t m_nNext = 0;
    std::list<Running> m_aRunning;
    std::vector<std::unique_ptr<Worker>> m_aIdle;
    int m_nSignal = 0;
    Clock::time_point m_tPatienceEnds;
};

} // namespace

int RunWorkers(const PoolWork& tWork) {
    return Pool(tWork).Run();
}

} // namespace tools
