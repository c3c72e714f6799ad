#pragma once

#include "basics/json.h"
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
        return m_tIds.empty() ? ExitCode::kDone : DescribeVerdict(m_tIds.rbegin()->first).tExit;
    }

    // Counts, the ids of all rows that are not within range, failures by status or reason, warnings by kind,
    // spread of the raw angles and of their deviations from a known truth.
    std::string Text() const;

    // The gauge study over rows of the same id.
    std::string RepeatabilityText() const;

    // Both for programs.
    Json AsJson(bool bRepeatability) const;

private:
    struct Axis {
        std::vector<double> aRaw, aDeviations;
        Groups tById;
    };

    using Counts = std::map<std::string, std::size_t>;
    using Ids = std::map<std::size_t, std::string>; // by line in the list

    std::string CountsText() const;
    std::string WarningsText() const;
    std::string MarginsText() const;

    // Six times the repeatability over the width of the raw angle's allowed range, percent.
    double ShareOf(const GaugeStudy& tStudy) const;

    Limits m_limits;
    std::map<VerdictKind, Ids> m_tIds; // the gravest one last
    Counts m_tFailures;                // by status, place and words
    Counts m_tUnfit;                   // by reason
    Ids m_tWarned;                     // measured with warnings
    Counts m_tWarnings;                // by key
    std::array<Axis, 3> m_aAxes;
    using Least = std::tuple<double, std::size_t, std::string>; // px, line in the list, id

    std::map<std::size_t, Least> m_tMargins; // by the place of the margin in a row's numbers
};

} // namespace tools
