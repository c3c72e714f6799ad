#include "batch/measuring.h"

#include "basics/progress.h"
#include "batch/worker_pool.h"

#include <map>

namespace tools {
namespace {

// For each of those that run at once: so many rows may be measured behind one that is not. Fewer would leave
// cores idle behind a pair that takes a little longer, more would be lost when the batch is stopped.
constexpr std::size_t kAheadPerJob = 8;

class Rows {
public:
    Rows(const BatchWork& tWork, ResultSink& tSink) : m_tWork(tWork), m_tSink(tSink), m_nNext(tWork.nFirst) {}

    void Add(std::size_t nRow, BatchRow tRow) {
        tRow.aFurther = m_tWork.tList.aItems[nRow].aFurther;
        m_tWork.Take(nRow, tRow);
        m_tWaiting[nRow] = LineOf(m_tWork.tForm, tRow);
        for (auto p = m_tWaiting.find(m_nNext); p != m_tWaiting.end(); p = m_tWaiting.find(++m_nNext)) {
            m_tSink.Write(p->second);
            m_tWaiting.erase(p);
        }
    }

    std::size_t Written() const { return m_nNext; }

private:
    const BatchWork& m_tWork;
    ResultSink& m_tSink;
    std::size_t m_nNext;
    std::map<std::size_t, std::string> m_tWaiting;
};

} // namespace

std::unique_ptr<Worker> StartWorker(const BatchWork& tWork, const std::vector<std::string>& aFurther) {
    std::vector<std::string> a = {kMeasureEach};
    a.insert(a.end(), tWork.aOptions.begin(), tWork.aOptions.end());
    a.insert(a.end(), aFurther.begin(), aFurther.end());
    return std::make_unique<Worker>(a, tWork.tList.strFolder);
}

MeasuredRows MeasureRows(const BatchWork& tWork, ResultSink& tSink) {
    const std::vector<BatchItem>& aItems = tWork.tList.aItems;
    Rows tRows(tWork, tSink);
    std::vector<std::size_t> anFit;
    for (std::size_t i = tWork.nFirst; i < aItems.size(); ++i)
        if (aItems[i].strFault.empty())
            anFit.push_back(i);
        else
            tRows.Add(i, FaultyRow(aItems[i]));
    Progress tProgress(aItems.size() - anFit.size(), aItems.size(), tWork.bProgress);
    const int nSignal = RunWorkers({anFit.size(), tWork.nAtOnce, kAheadPerJob * tWork.nAtOnce,
                                    tWork.tTimeLimit, [&] { return StartWorker(tWork); },
                                    [&](std::size_t n) {
                                        const BatchItem& tItem = aItems[anFit[n]];
                                        return std::vector<std::string>{tItem.strMaster, tItem.strSlave};
                                    },
                                    [&](std::size_t n, const WorkerOutcome& tOutcome) {
                                        tRows.Add(anFit[n], RowOf(aItems[anFit[n]], tOutcome));
                                        tProgress.Step();
                                    }});
    return {tRows.Written(), nSignal};
}

} // namespace tools
