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

unsigned int RunEntry(const Picture& tMaster, const Picture& tSlave) {
    std::string strCalibration(kCalibrationBytes, '\0'); // no angle depends on it
    Angles tIgnored;
    _AFPROTECT tRecord = {};
    return Orvex_Alignment_ForAndroid(LentToStages(tMaster), LentToStages(tSlave), tMaster.nColumns,
                                      tMaster.nRows, tSlave.nColumns, tSlave.nRows, &tIgnored.dRx,
                                      &tIgnored.dRy, &tIgnored.dRz, Bytes(strCalibration), &tRecord);
}

// The entry loads its own parameters; else it does the same.
unsigned int RunStages(const Picture& tMaster, const Picture& tSlave, const DualCamAlignParam& tParameters) {
    m_pCMainView.nWidth_Master = tMaster.nColumns;
    m_pCMainView.nHeight_Master = tMaster.nRows;
    m_pCMainView.nWidth_Slave = tSlave.nColumns;
    m_pCMainView.nHeight_Slave = tSlave.nRows;
    m_tDualCamAlignParam = tParameters;
    DualCamAlign_Initial();
    if (const unsigned int nStatus = DualCamAlign_Calculation(LentToStages(tMaster), LentToStages(tSlave)))
        return nStatus;
    return DualCamAlign_FirstResultJudgement();
}

PairResult CallLibrary(const Picture& tMaster, const Picture& tSlave, const MeasuringSetup& setup) {
    PairResult pair = {};
    CapturedOutput tOutput(STDOUT_FILENO);
    pair.nStatus = setup.strProduct.empty() ? RunEntry(tMaster, tSlave)
                                            : RunStages(tMaster, tSlave, setup.tParameters.tBlock);
    pair.aDiagnostics = tOutput.Lines();
    if (pair.nStatus != ORVEX_OK) {
        pair.oFailedCamera = CameraNamedIn(pair.aDiagnostics);
        return pair;
    }
    const auto& [dRx, dRy, dRz] =
        pair.oRaw.emplace(Angles{m_tDualCamAlignData.dRx, m_tDualCamAlignData.dRy, m_tDualCamAlignData.dRz});
    pair.oRescaled = {orvex::RescaledAngle(dRx), orvex::RescaledAngle(dRy), orvex::RescaledAngle(dRz)};
    for (const AxisName& t : kAxes)
        if (setup.tLimits.IsBeyond((setup.tLimits.HoldsForRaw() ? *pair.oRaw : *pair.oRescaled).*t.pAngle))
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
    const auto& [tMeasured, tView, tReading, tFrameSearch] = tResult;
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
    const FrameSearch tSearch = FrameSearchOf(tCamera, DefaultParameters().tBlock);
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

Measurement Measure(const Picture& tMaster, const Picture& tSlave, const MeasuringSetup& setup) {
    Measurement t = {CallLibrary(tMaster, tSlave, setup), {}, {}, {}};
    // All of the working block is copied before the views' stages write to it.
    t.tMaster.tMeasured = MeasuredBy(Camera::kMaster, t.tPair);
    t.tSlave.tMeasured = MeasuredBy(Camera::kSlave, t.tPair);
    const DualCamAlignParam tParameters = m_tDualCamAlignParam;
    const StageViews tViews =
        ViewsOf({tMaster, t.tMaster.tMeasured}, {tSlave, t.tSlave.tMeasured}, tParameters);
    t.tMaster.tView = tViews.tMaster;
    t.tSlave.tView = tViews.tSlave;
    t.tMaster.tFrameSearch = FrameSearchOf(Camera::kMaster, tParameters);
    t.tSlave.tFrameSearch = FrameSearchOf(Camera::kSlave, tParameters);
    const ChartMeasures tChart = ChartMeasuresOf(setup);
    t.tMaster.tReading = ReadCamera(tMaster, tChart, KnownCorners(t.tMaster));
    t.tSlave.tReading = ReadCamera(tSlave, tChart, KnownCorners(t.tSlave));
    if (t.tMaster.tReading.oReading && t.tSlave.tReading.oReading)
        t.oSecondAngles = AnglesOf(*t.tMaster.tReading.oReading, *t.tSlave.tReading.oReading, tChart);
    return t;
}

} // namespace tools
