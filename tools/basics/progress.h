#pragma once

#include <chrono>
#include <cstddef>

namespace tools {

// One line on standard error with a bar, count, rate and time left. Shows only on a terminal, and is gone
// when the work is.
class Progress {
public:
    // nDone pieces of nTotal were there before. Not bWanted: nothing is shown anyhow.
    Progress(std::size_t nDone, std::size_t nTotal, bool bWanted = true);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step();

private:
    using Clock = std::chrono::steady_clock;

    void Draw() const;

    bool m_bShown;
    std::size_t m_nBefore, m_nDone, m_nTotal;
    Clock::time_point m_tStart = Clock::now(), m_tDrawn = m_tStart;
};

} // namespace tools
