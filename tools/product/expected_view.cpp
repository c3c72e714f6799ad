#include "product/expected_view.h"

#include "basics/text_table.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// Of a camera without rotation, so that all of the chart stands upright around its principal point.
std::vector<double> ViewOf(const Product& product, Camera tCamera) {
    const bool bMaster = tCamera == Camera::kMaster;
    const DualCamAlignParam& t = product.tSetup.tParameters.tBlock;
    const FrameSearch tSearch = FrameSearchOf(tCamera, t);
    const chart::Camera tView = bMaster ? MasterOf(product) : SlaveOf(product);
    const chart::Chart tChart = ChartOf(product);
    const double dScale = tView.dFocal / tChart.dDistance;
    const double dHalfWidth = tChart.dFrameHalfWidth * dScale, dHalfHeight = tChart.dFrameHalfHeight * dScale,
                 dHalfLine = tChart.dFrameLineWidth / 2 * dScale;
    // The slave's window follows the shift, as its chart does, unless that is turned off.
    const double dAside =
        bMaster || t.bUseSlaveShift != 0 ? 0 : std::fabs(static_cast<double>(t.fSlaveShift));
    const double dWindowX =
        tView.nWidth / 2.0 * (bMaster ? t.dSearchWidthRatio_Master : t.dSearchWidthRatio_Slave);
    const double dWindowY =
        tView.nHeight / 2.0 * (bMaster ? t.dSearchHeightRatio_Master : t.dSearchHeightRatio_Slave);
    const double dToBorderX = std::min(tView.dPrincipalX, tView.nWidth - 1 - tView.dPrincipalX),
                 dToBorderY = std::min(tView.dPrincipalY, tView.nHeight - 1 - tView.dPrincipalY);
    return {2 * dHalfWidth,
            2 * dHalfHeight,
            2 * dHalfLine,
            std::min(dHalfWidth - tSearch.nOffsetX, dHalfHeight - tSearch.nOffsetY) - dHalfLine,
            std::min(dWindowX - tChart.dHorizontalBarHalfLength * dScale - (t.bShiftAlongY != 0 ? 0 : dAside),
                     dWindowY - tChart.dVerticalBarHalfLength * dScale - (t.bShiftAlongY != 0 ? dAside : 0)),
            std::min(dToBorderX - dHalfWidth, dToBorderY - dHalfHeight) - dHalfLine};
}

} // namespace

std::string ExpectedViewText(const Product& product) {
    constexpr const char* kRows[] = {"frame, width",
                                     "frame, height",
                                     "frame's line, width",
                                     "start of the frame's search to the frame",
                                     "ends of the cross's bars to its search window",
                                     "frame to picture's border"};
    const std::vector<double> aMaster = ViewOf(product, Camera::kMaster),
                              aSlave = ViewOf(product, Camera::kSlave);
    std::vector<std::vector<std::string>> aRows = {{"", "master", "slave"}};
    for (std::size_t i = 0; i < aMaster.size(); ++i)
        aRows.push_back({kRows[i], Fixed(aMaster[i], 0), Fixed(aSlave[i], 0)});
    return "\nWhat follows: the chart in an upright picture, px (less than 0: beyond it)\n" + Table(aRows);
}

} // namespace tools
