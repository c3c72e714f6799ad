#include "product/product.h"

namespace tools {
namespace {

chart::Camera CameraOf(PictureSize size, double dFocal) {
    return {size.nColumns, size.nRows, dFocal, (size.nColumns - 1) / 2.0, (size.nRows - 1) / 2.0};
}

} // namespace

chart::Chart ChartOf(const Product& product) {
    const ChartMeasures tMeasures = ChartMeasuresOf(product.tSetup);
    chart::Chart t = product.tChart;
    t.dDistance = tMeasures.dDistance;
    t.dFrameHalfWidth = tMeasures.dHalfSpanX;
    t.dFrameHalfHeight = tMeasures.dHalfSpanY;
    return t;
}

chart::Camera MasterOf(const Product& product) {
    return CameraOf(product.tSetup.tParameters.tMaster, product.dMasterFocal);
}

chart::Camera SlaveOf(const Product& product) {
    const DualCamAlignParam& tBlock = product.tSetup.tParameters.tBlock;
    chart::Camera t = CameraOf(product.tSetup.tParameters.tSlave, product.dSlaveFocal);
    (tBlock.bShiftAlongY != 0 ? t.dPrincipalY : t.dPrincipalX) += static_cast<double>(tBlock.fSlaveShift);
    return t;
}

} // namespace tools
