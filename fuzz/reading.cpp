// The tool's own reading of a picture, and all that it says of a pair.

#include "measuring/parameters.h"
#include "painting.h"
#include "report/outputs.h"
#include "require.h"

#include <algorithm>
#include <cmath>

using namespace fuzz;

namespace {

constexpr View tView = {1000, 500, 475, 225};

tools::Picture AnyPicture(Input& t) {
    const Plane tPlane = PaintChart(t, tView);
    return {"", tPlane.nColumns, tPlane.nRows, {tPlane.aPixels.begin(), tPlane.aPixels.end()}};
}

std::array<tools::Point, 4> AnyCorners(Input& t) {
    std::array<tools::Point, 4> a = {{{25, 25}, {975, 25}, {25, 475}, {975, 475}}};
    for (tools::Point& tPoint : a)
        tPoint = {tPoint.dX + t.Around0(40), tPoint.dY + t.Around0(40)};
    return a;
}

void RequireVariance(double d) {
    Require(std::isfinite(d) && d >= 0, "an uncertainty is a number");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    const tools::Picture tMaster = AnyPicture(t), tSlave = AnyPicture(t);
    const tools::ChartMeasures tMeasures = tools::ChartMeasuresOf(tools::MeasuringSetup());
    const tools::ReadingOutcome tOutcome = tools::ReadCamera(tMaster, tMeasures, AnyCorners(t));
    if (tOutcome.oReading) {
        RequireVariance(tOutcome.oReading->tTiltX.dVariance);
        RequireVariance(tOutcome.oReading->tTiltY.dVariance);
        RequireVariance(tOutcome.oReading->tRoll.dVariance);
    }
    const tools::Report report =
        tools::ReportOf(tMaster, tSlave, tools::Measure(tMaster, tSlave), tools::MeasuringSetup());
    const std::string strBrief = tools::BriefTextOf(report);
    Require(std::ranges::count(strBrief, '\n') <= 20, "the short answer has at most 20 lines");
    Require(!tools::JsonTextOf(report).empty() && (!t.OneIn(8) || !tools::HtmlOf(report).empty()),
            "everything can be told");
    return 0;
}
