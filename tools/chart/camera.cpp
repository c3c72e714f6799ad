#include "chart/camera.h"

#include <algorithm>

namespace chart {

namespace {

constexpr double kSlaveRisePx = 24.217;

double CentreOf(int nPixels) {
    return (nPixels - 1.0) / 2.0;
}

} // namespace

Camera DefaultMaster() {
    return {};
}

Camera DefaultSlave() {
    Camera tCamera;
    tCamera.dPrincipalY -= kSlaveRisePx;
    return tCamera;
}

Camera ScaledTo(const Camera& tCamera, int nWidth, int nHeight) {
    const double dRatioX = static_cast<double>(nWidth) / tCamera.nWidth;
    const double dRatioY = static_cast<double>(nHeight) / tCamera.nHeight;
    const double dRatio = std::min(dRatioX, dRatioY);
    return {nWidth, nHeight, tCamera.dFocal * dRatio,
            CentreOf(nWidth) + (tCamera.dPrincipalX - CentreOf(tCamera.nWidth)) * dRatio,
            CentreOf(nHeight) + (tCamera.dPrincipalY - CentreOf(tCamera.nHeight)) * dRatio};
}

} // namespace chart
