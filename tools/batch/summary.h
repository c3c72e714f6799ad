#ifndef ORVEX_TOOLS_BATCH_SUMMARY_H
#define ORVEX_TOOLS_BATCH_SUMMARY_H

#include "basics/exit_codes.h"
#include "batch/row.h"
#include "batch/statistics.h"

namespace tools {

// How --repeatability reckons, for its output and for the help.
extern const char szGaugeFormulae[];

// Gathers what is told of all rows together.
class BatchSummary {
public:
    // The row as it was made or read back.
    void Add(const BatchItem& tItem, const BatchRow& tRow);

    // The gravest of all rows.
    ExitCode Exit() const { return m_tExit; }

    // Counts, failures by status or reason, warnings by kind, spread of the raw angles and of their
    // deviations from a known truth.
    std::string Text() const;

    // The gauge study over rows of the same id.
    std::string RepeatabilityText() const;

private:
    struct Axis {
        std::vector<double> aRaw, aDeviations;
        Groups tById;
    };

    std::size_t CountOf(ExitCode tExit) const;
    std::string WarningsText() const;

    ExitCode m_tExit = kWithinRange;
    std::map<int, std::size_t> m_tCounts;           // by exit code
    std::map<std::string, std::size_t> m_tFailures; // by status, place and words
    std::map<std::string, std::size_t> m_tUnfit;    // by reason
    std::map<std::size_t, std::string> m_tWarned;   // ids of rows measured with warnings, by line in the list
    std::map<std::string, std::size_t> m_tWarnings; // by kind
    std::array<Axis, 3> m_aAxes;
};

} // namespace tools

#endif
