#include "measuring/measurement.h"

#include "Orvex_Alignment.h"
#include "entry/angle_range.h"
#include "measuring/calibration.h"
#include "measuring/captured_output.h"
#include "measuring/parameters.h"
#include "measuring/record_reading.h"
#include "measuring/stage_views.h"
#include "measuring/working_record.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <unistd.h>

namespace tools {
namespace {

// The status does not tell the cameras apart; the line that goes with it does.
std::optional<Camera> CameraNamedIn(const std::vector<std::string>& aLines) {
    for (const std::string& str : aLines) {
        if (str.find("Master") != str.npos)
            return Camera::kMaster;
        if (str.find("Slave") != str.npos)
            return Camera::kSlave;
    }
    return std::nullopt;
}

// How far one camera came, as the stage in which it failed or which was not begun.
Stage StageReached(Camera tCamera, const PairResult& pair) {
    const Stage tStage = DescribeStatus(pair.nStatus).tStage;
    if (tStage > Stage::kCornerPoints || pair.oFailedCamera == tCamera)
        return tStage;
    const bool bMasterWasPassed = tCamera == Camera::kMaster && pair.oFailedCamera == Camera::kSlave;
    return bMasterWasPassed ? Stage::kAngles : Stage::kEntry;
}

unsigned char* Bytes(std::string& str) {
    return reinterpret_cast<unsigned char*>(str.data());
}

PairResult CallLibrary(const Picture& tMaster, const Picture& tSlave) {
    std::string strCalibration(kCalibrationBytes, '\0'); // no angle depends on it
    PairResult pair = {};
    Angles tRaw;
    _AFPROTECT tRecord = {};
    CapturedOutput tOutput(STDOUT_FILENO);
    pair.nStatus = Orvex_Alignment_ForAndroid(LentToStages(tMaster), LentToStages(tSlave), tMaster.nColumns,
                                              tMaster.nRows, tSlave.nColumns, tSlave.nRows, &tRaw.dRx,
                                              &tRaw.dRy, &tRaw.dRz, Bytes(strCalibration), &tRecord);
    pair.aDiagnostics = tOutput.Lines();
    if (pair.nStatus != ORVEX_OK) {
        pair.oFailedCamera = CameraNamedIn(pair.aDiagnostics);
        return pair;
    }
    pair.oRaw = tRaw;
    pair.oRescaled = {orvex::RescaledAngle(tRaw.dRx), orvex::RescaledAngle(tRaw.dRy),
                      orvex::RescaledAngle(tRaw.dRz)};
    const auto& [dRx, dRy, dRz] = *pair.oRescaled;
    if (orvex::IsOutOfRange(dRx) || orvex::IsOutOfRange(dRy) || orvex::IsOutOfRange(dRz))
        pair.nStatus = ORVEX_ANGLE_OUT_OF_RANGE;
    return pair;
}

// The library frees the pictures that it measures.
unsigned char* MallocCopy(const std::vector<unsigned char>& aBytes) {
    auto* const p = static_cast<unsigned char*>(std::malloc(aBytes.size()));
    if (p == nullptr)
        throw std::bad_alloc();
    std::ranges::copy(aBytes, p);
    return p;
}

CameraMeasurement MeasuredBy(Camera tCamera, PairResult& pair) {
    CameraMeasurement measured = RecordedCamera(tCamera, StageReached(tCamera, pair));
    if (pair.oFailedCamera == tCamera && measured.tReached == Stage::kCornerPoints)
        pair.oFailedCorner = MissingCorner(measured);
    return measured;
}

} // namespace

std::optional<std::array<Point, 4>> KnownCorners(const CameraResult& tResult) {
    const auto& [tMeasured, tView, tReading] = tResult;
    std::array<Point, 4> aCorners = {};
    for (std::size_t i = 0; i < aCorners.size(); ++i)
        if (tMeasured.aoCorners[i])
            aCorners[i] = *tMeasured.aoCorners[i];
        else if (tView.oFrameEdge)
            aCorners[i] = tView.oFrameEdge->Corners()[i];
        else
            return std::nullopt;
    return aCorners;
}

std::optional<std::size_t> MissingCorner(const CameraMeasurement& measured) {
    for (std::size_t i = 0; i < kCorners.size(); ++i)
        if (!measured.aoCorners[i])
            return i;
    return std::nullopt;
}

PictureSize LeastSizeOf(Camera tCamera) {
    constexpr int kBorder = 3; // px that a search starts before the picture's border
    const FrameSearch tSearch = FrameSearchOf(tCamera, DefaultParameters());
    return {2 * (tSearch.nOffsetX + kBorder), 2 * (tSearch.nOffsetY + kBorder)};
}

std::string RecordOf(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration) {
    std::string strCopy = strCalibration;
    Angles tIgnored;
    std::array<unsigned short, ORVEX_OUT_FILE_CAPACITY / 2> aunRecord = {};
    ::nWidth = tMaster.nColumns;
    ::nHeight = tMaster.nRows;
    ::nWidth_Slave = tSlave.nColumns;
    ::nHeight_Slave = tSlave.nRows;
    const CapturedOutput tOutput(STDOUT_FILENO), tLog(STDERR_FILENO);
    getAlign(MallocCopy(tMaster.aGrey), MallocCopy(tSlave.aGrey), &tIgnored.dRx, &tIgnored.dRy, &tIgnored.dRz,
             Bytes(strCopy), aunRecord.data());
    // The library tells only by the bytes whether it could encrypt the record.
    const std::string strRecord(reinterpret_cast<const char*>(aunRecord.data()), kRecordFileBytes);
    return IsRecordFile(strRecord) ? strRecord : "";
}

Measurement Measure(const Picture& tMaster, const Picture& tSlave) {
    Measurement t = {CallLibrary(tMaster, tSlave), {}, {}, {}};
    // All of the working block is copied before the views' stages write to it.
    t.tMaster.tMeasured = MeasuredBy(Camera::kMaster, t.tPair);
    t.tSlave.tMeasured = MeasuredBy(Camera::kSlave, t.tPair);
    const DualCamAlignParam tParameters = m_tDualCamAlignParam;
    const StageViews tViews =
        ViewsOf({tMaster, t.tMaster.tMeasured}, {tSlave, t.tSlave.tMeasured}, tParameters);
    t.tMaster.tView = tViews.tMaster;
    t.tSlave.tView = tViews.tSlave;
    const ChartMeasures tChart = ChartMeasuresOf(tParameters);
    t.tMaster.tReading = ReadCamera(tMaster, tChart, KnownCorners(t.tMaster));
    t.tSlave.tReading = ReadCamera(tSlave, tChart, KnownCorners(t.tSlave));
    if (t.tMaster.tReading.oReading && t.tSlave.tReading.oReading)
        t.oSecondAngles = AnglesOf(*t.tMaster.tReading.oReading, *t.tSlave.tReading.oReading, tChart);
    return t;
}

} // namespace tools
