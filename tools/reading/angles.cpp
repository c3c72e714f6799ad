#include "reading/angles.h"

#include <cmath>

namespace tools {
namespace {

UncertainNumber Difference(UncertainNumber tSlave, UncertainNumber tMaster) {
    return {tSlave.dValue - tMaster.dValue, tSlave.dVariance + tMaster.dVariance};
}

} // namespace

UncertainNumber Rescaled(UncertainNumber tRaw) {
    constexpr double kKept = 0.2, kFactor = 1.8 / 2.3;
    if (std::fabs(tRaw.dValue) < 1)
        return tRaw;
    const double dMagnitude = (std::fabs(tRaw.dValue) - kKept) * kFactor + kKept;
    return {std::copysign(dMagnitude, tRaw.dValue), tRaw.dVariance * kFactor * kFactor};
}

UncertainAngles AnglesOf(const CameraReading& tMaster, const CameraReading& tSlave) {
    UncertainAngles t;
    t.aRaw = {Difference(tSlave.tTiltX, tMaster.tTiltX), Difference(tSlave.tTiltY, tMaster.tTiltY),
              Difference(tSlave.tRoll, tMaster.tRoll)};
    for (std::size_t i = 0; i < t.aRaw.size(); ++i)
        t.aRescaled[i] = Rescaled(t.aRaw[i]);
    return t;
}

} // namespace tools
