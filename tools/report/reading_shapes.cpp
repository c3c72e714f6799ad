#include "report/reading_shapes.h"

#include <fmt/format.h>

namespace tools {
namespace {

// A line nearly along the rows is read on columns, and the other way round.
Point PointOn(bool bAlongRows, double dAlong, double dAcross) {
    return bAlongRows ? Point{dAlong, dAcross} : Point{dAcross, dAlong};
}

struct Paths {
    std::string strLines, strLeftOut;
};

void Add(const LineReading& t, bool bAlongRows, Paths& tPaths) {
    const Point tFrom = PointOn(bAlongRows, t.tAlong.dFirst, t.tLine.At(t.tAlong.dFirst)),
                tTo = PointOn(bAlongRows, t.tAlong.dLast, t.tLine.At(t.tAlong.dLast));
    tPaths.strLines += fmt::format("M{:.2f} {:.2f}L{:.2f} {:.2f}", tFrom.dX, tFrom.dY, tTo.dX, tTo.dY);
    for (const LinePoint& tOut : t.aLeftOut) {
        const Point tAt = PointOn(bAlongRows, tOut.dAlong, tOut.dAcross);
        tPaths.strLeftOut += fmt::format("M{:.2f} {:.2f}h0", tAt.dX, tAt.dY);
    }
}

} // namespace

std::string ReadingShapes(const std::string& strCamera, const CameraReading& tReading) {
    Paths tPaths;
    for (std::size_t n = 0; n < kChartLines; ++n)
        Add(tReading.aLines[n], n < kHalfSides ? kSides[n / 2].bAlongRows : n == kHorizontalBar, tPaths);
    return fmt::format(
        "<path id=\"{0}-second\" d=\"{1}\"><title>second reading's lines</title></path>\n"
        "<path id=\"{0}-left-out\" class=\"out\" d=\"{2}\"><title>centres that the second reading "
        "left out</title></path>\n",
        strCamera, tPaths.strLines, tPaths.strLeftOut);
}

std::optional<Point> PlaceOfFailure(const CameraReport& tCamera, const PairResult& pair,
                                    const StatusWords& tStatus) {
    if (pair.oFailedCamera != tCamera.tCamera)
        return std::nullopt;
    const StageView& tView = tCamera.tView;
    const std::string_view strName = tStatus.szName;
    const auto Says = [&](const char* sz) { return strName.find(sz) != strName.npos; };
    if (pair.oFailedCorner && tCamera.tReading.oReading)
        return tCamera.tReading.oReading->aCorners[*pair.oFailedCorner].tPlace;
    if (pair.oFailedCorner && tView.oFrameEdge)
        return tView.oFrameEdge->Corners()[*pair.oFailedCorner];
    if (tStatus.tStage == Stage::kFrameLocation && tView.oFrameStart)
        return tView.oFrameStart->Corners()[(Says("LOWER") ? 2u : 0u) + (Says("RIGHT") ? 1u : 0u)];
    if (!tView.oSearchWindow || tStatus.tStage != Stage::kCross)
        return std::nullopt;
    const auto& [dLeft, dTop, dRight, dBottom] = *tView.oSearchWindow; // a bar ends about halfway to its edge
    const double dX = (dRight - dLeft) / 4 *
                      (Says("LEFT")    ? -1
                       : Says("RIGHT") ? 1
                                       : 0),
                 dY = (dBottom - dTop) / 4 *
                      (Says("UPPER")   ? -1
                       : Says("LOWER") ? 1
                                       : 0);
    return Point{(dLeft + dRight) / 2 + dX, (dTop + dBottom) / 2 + dY};
}

} // namespace tools
