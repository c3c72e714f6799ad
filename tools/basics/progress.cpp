#include "basics/progress.h"

#include "basics/text_table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fmt/format.h>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tools {
namespace {

constexpr std::size_t kLargestBar = 40;

std::size_t TerminalColumns() {
    winsize t = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &t) == 0 && t.ws_col > 0 ? t.ws_col : 80;
}

// "1:05:09", "0:07"
std::string Duration(double dSeconds) {
    const long n = std::lround(dSeconds);
    return n < 3600 ? fmt::format("{}:{:02}", n / 60, n % 60)
                    : fmt::format("{}:{:02}:{:02}", n / 3600, n / 60 % 60, n % 60);
}

std::string Bar(std::size_t nDone, std::size_t nTotal, std::size_t nWidth) {
    std::string str(nWidth, '-');
    std::fill_n(str.begin(), nWidth * nDone / nTotal, '#');
    return "[" + str + "]";
}

} // namespace

Progress::Progress(std::size_t nDone, std::size_t nTotal, bool bWanted)
    : m_bShown(bWanted && isatty(STDERR_FILENO) != 0 && nTotal > 0), m_nBefore(nDone), m_nDone(nDone),
      m_nTotal(nTotal) {
    if (m_bShown)
        Draw();
}

Progress::~Progress() {
    if (m_bShown)
        std::fputs("\r\033[K", stderr);
}

void Progress::Step() {
    ++m_nDone;
    if (!m_bShown || Clock::now() - m_tDrawn < std::chrono::milliseconds(100))
        return;
    m_tDrawn = Clock::now();
    Draw();
}

void Progress::Draw() const {
    const double dSeconds = std::chrono::duration<double>(Clock::now() - m_tStart).count();
    const auto dDone = static_cast<double>(m_nDone - m_nBefore);
    std::string str = fmt::format("{}/{}", m_nDone, m_nTotal);
    if (dDone > 0)
        str += fmt::format("  {}/s  {} left", Fixed(dDone / dSeconds, 1),
                           Duration(static_cast<double>(m_nTotal - m_nDone) * dSeconds / dDone));
    const std::size_t nTaken = str.size() + 4, nColumns = TerminalColumns();
    if (nTaken < nColumns)
        str = Bar(m_nDone, m_nTotal, std::min(kLargestBar, nColumns - nTaken)) + " " + str;
    std::fprintf(stderr, "\r%s\033[K", str.c_str());
    std::fflush(stderr);
}

} // namespace tools
