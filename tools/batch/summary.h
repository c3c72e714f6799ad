#pragma once

#include "batch/row.h"
#include "batch/statistics.h"

#include <array>
#include <map>
#include <tuple>

namespace tools {

// How --repeatability reckons, for its output and for the help.
extern const char kGaugeFormulae[];

// Gathers what is told of all rows together.
class BatchSummary {
public:
    // By which the rows were judged.
    explicit BatchSummary(Limits limits) : m_limits(std::move(limits)) {}

    // The row as it was made or read back.
    void Add(const BatchItem& tItem, const BatchRow& tRow);

    // The gravest of all rows.
    ExitCode Exit() const {
        return m_tCounts.empty() ? ExitCode::kDone : DescribeVerdict(m_tCounts.rbegin()->first).tExit;
    }

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

    std::string WarningsText() const;
    std::string MarginsText() const;

    Limits m_limits;
    std::map<VerdictKind, std::size_t> m_tCounts;   // the gravest one last
    std::map<std::string, std::size_t> m_tFailures; // by status, place and words
    std::map<std::string, std::size_t> m_tUnfit;    // by reason
    std::map<std::size_t, std::string> m_tWarned;   // ids of rows measured with warnings, by line in the list
    std::map<std::string, std::size_t> m_tWarnings; // by kind
    std::array<Axis, 3> m_aAxes;
    using Least = std::tuple<double, std::size_t, std::string>; // px, line in the list, id

    std::map<std::size_t, Least> m_tMargins; // by the place of the margin in a row's numbers
};

} // namespace tools
