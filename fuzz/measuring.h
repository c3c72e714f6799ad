#pragma once

#include "Orvex_Alignment_Stages.h"
#include "require.h"
#include "support/documented_status.h"

#include <array>
#include <cstring>

namespace fuzz {

struct Trace {
    unsigned int nStatus;
    std::array<unsigned char, sizeof(DualCamAlignData)> aData;

    bool operator==(const Trace&) const = default;
};

// Measures twice, the second time with other rubbish left in the working block, and compares the two.
template <typename Measure>
unsigned int RequireSameTwice(Measure&& MeasureOnce) {
    const auto Traced = [&](int nRubbish) {
        std::memset(&m_tDualCamAlignData, nRubbish, sizeof m_tDualCamAlignData);
        Trace t = {MeasureOnce(), {}};
        std::memcpy(t.aData.data(), &m_tDualCamAlignData, sizeof m_tDualCamAlignData);
        return t;
    };
    const Trace tFirst = Traced(0x5A);
    Require(support::IsDocumented(tFirst.nStatus), "the status is a documented one");
    Require(Traced(0xA5) == tFirst, "the same pictures give the same working block");
    return tFirst.nStatus;
}

} // namespace fuzz
