#include "study/study.h"

#include "basics/files.h"
#include "basics/progress.h"
#include "basics/stop_signals.h"
#include "study/rendered_pair.h"
#include "study/replacement.h"
#include "study/study_pairs.h"

#include <algorithm>
#include <filesystem>
#include <future>
#include <mutex>

namespace tools {
namespace {

NewFile ListOf(const Study& tStudy) {
    NewFile tList = {std::filesystem::path(tStudy.strFolder) / "LIST.csv", ListHeadLine()};
    for (std::size_t i = 0; i < tStudy.Pairs(); ++i)
        tList.strBytes += ListLineOf(PairOf(tStudy, i));
    return tList;
}

// As far as it shows before anything is rendered.
void RefuseOtherStudy(const Study& tStudy, const NewFile& tList) {
    RefuseToReplace({tList});
    std::error_code tIgnored; // what else is wrong with a name shows on writing
    for (std::size_t i = 0; i < tStudy.Pairs(); ++i) {
        const StudyPair tPair = PairOf(tStudy, i);
        const PairFiles tFiles = FilesOf(tStudy, tPair);
        if (std::filesystem::exists(tFiles.strFolder, tIgnored))
            RefuseToReplace(NotesOf(tPair.tOptions, tFiles, tPair.nCalibrationSeed));
    }
}

// Renders several pairs at once and writes them one after the other.
class Writing {
public:
    Writing(const Study& tStudy, const std::string& strList)
        : m_tStudy(tStudy), m_strList(strList), m_tProgress(0, tStudy.Pairs()) {}

    StudyOutcome Run() {
        std::vector<std::future<void>> aRunning;
        for (std::size_t i = 0; i < std::min(m_tStudy.nJobs, m_tStudy.Pairs()); ++i)
            aRunning.push_back(std::async(std::launch::async, [this] { WriteMany(); }));
        for (std::future<void>& t : aRunning)
            t.get();
        return {m_strList, m_nSignal, m_nWritten};
    }

private:
    void WriteMany() try {
        while (const std::optional<std::size_t> oPair = Next()) {
            const StudyPair tPair = PairOf(m_tStudy, *oPair);
            const PairFiles tFiles = FilesOf(m_tStudy, tPair);
            Write(tFiles.strFolder, RenderedFiles(tPair.tOptions, tFiles, tPair.nCalibrationSeed));
        }
    } catch (...) { // the others end, too
        const std::lock_guard tLock(m_tMutex);
        m_nNext = m_tStudy.Pairs();
        throw;
    }

    std::optional<std::size_t> Next() {
        const std::lock_guard tLock(m_tMutex);
        if (m_nSignal == 0)
            m_nSignal = m_tStop.Take();
        return m_nSignal == 0 && m_nNext < m_tStudy.Pairs() ? std::optional(m_nNext++) : std::nullopt;
    }

    // The list speaks of whole pairs as they are: it goes before one of them changes.
    void Write(const std::string& strFolder, const std::vector<NewFile>& aFiles) {
        const std::lock_guard tLock(m_tMutex);
        if (!std::ranges::all_of(aFiles, Holds)) {
            if (!m_tStudy.bOverwrite)
                RefuseToReplace(aFiles);
            CreateFolder(strFolder);
            RemoveFile(m_strList);
            WriteFiles(aFiles);
        }
        ++m_nWritten;
        m_tProgress.Step();
    }

    const Study& m_tStudy;
    const std::string& m_strList;
    const StopSignals m_tStop; // before the first thread, which inherits what it holds back
    Progress m_tProgress;
    std::mutex m_tMutex;
    std::size_t m_nNext = 0, m_nWritten = 0;
    int m_nSignal = 0;
};

} // namespace

StudyOutcome WriteStudy(const Study& tStudy) {
    const NewFile tList = ListOf(tStudy);
    if (!tStudy.bOverwrite)
        RefuseOtherStudy(tStudy, tList);
    StudyOutcome tOutcome = Writing(tStudy, tList.strFile).Run();
    if (tOutcome.nSignal == 0)
        WriteFiles({tList});
    return tOutcome;
}

} // namespace tools
