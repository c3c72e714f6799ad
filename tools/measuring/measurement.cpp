#include "measuring/measurement.h"

#include "Orvex_Alignment.h"
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

// The library frees the pictures that it measures.
unsigned char* MallocCopy(const std::vector<unsigned char>& aBytes) {
    auto* const p = static_cast<unsigned char*>(std::malloc(aBytes.size()));
    if (p == nullptr)
        throw std::bad_alloc();
    std::ranges::copy(aBytes, p);
    return p;
}

void SetSizes(const Picture& tMaster, const Picture& tSlave) {
    ::nWidth = tMaster.nColumns;
    ::nHeight = tMaster.nRows;
    ::nWidth_Slave = tSlave.nColumns;
    ::nHeight_Slave = tSlave.nRows;
}

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

// Tag, time, process and thread of a log line say nothing about the measurement.
std::string WithoutLogHead(const std::string& strLine) {
    int nHead = 0; // stays 0 for a line without head
    std::sscanf(strLine.c_str(), "Test %*c %*d-%*d %*d:%*d:%*d %*d %*d %n", &nHead);
    return strLine.substr(static_cast<std::size_t>(nHead));
}

// The record file on the card of a phone. Most PCs have no such place, so that its absence is no failure.
bool IsMissingCard(const std::string& strLine) {
    return strLine.find("/sdcard/") != strLine.npos;
}

void SortLog(const std::vector<std::string>& aLines, PairResult& pair) {
    for (const std::string& strLine : aLines) {
        const std::string str = WithoutLogHead(strLine);
        if (IsMissingCard(str))
            pair.aNotes.push_back(str +
                                  "; the measurement does not need it, and a PC usually has no such folder");
        else if (!str.empty())
            pair.aLog.push_back(str);
    }
}

// The library tells only by the bytes whether it could encrypt the record.
std::string RecordIn(const std::string& strBytes) {
    return IsRecordFile(strBytes) ? strBytes : std::string();
}

PairResult CallLibrary(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration) {
    std::string strCalibrationCopy = strCalibration;
    PairResult pair = {};
    Angles tRescaled;
    std::array<unsigned short, ORVEX_OUT_FILE_CAPACITY / 2> aunRecord = {};
    SetSizes(tMaster, tSlave);
    {
        CapturedOutput tOutput(STDOUT_FILENO), tLog(STDERR_FILENO);
        pair.nStatus = getAlign(
            MallocCopy(tMaster.aGrey), MallocCopy(tSlave.aGrey), &tRescaled.dRx, &tRescaled.dRy,
            &tRescaled.dRz, reinterpret_cast<unsigned char*>(strCalibrationCopy.data()), aunRecord.data());
        pair.aDiagnostics = tOutput.Lines();
        SortLog(tLog.Lines(), pair);
    }
    pair.strRecord = RecordIn({reinterpret_cast<const char*>(aunRecord.data()), kRecordFileBytes});
    if (pair.nStatus != ORVEX_OK && pair.nStatus != ORVEX_ANGLE_OUT_OF_RANGE) {
        pair.oFailedCamera = CameraNamedIn(pair.aDiagnostics);
    } else {
        pair.oRaw = RecordedAngles();
        pair.oRescaled = tRescaled;
    }
    return pair;
}

CameraMeasurement MeasuredBy(Camera tCamera, PairResult& pair) {
    CameraMeasurement measured = RecordedCamera(tCamera, StageReached(tCamera, pair));
    if (pair.oFailedCamera == tCamera && measured.tReached == Stage::kCornerPoints)
        pair.pFailedCorner = MissingCorner(measured);
    return measured;
}

} // namespace

const CornerName* MissingCorner(const CameraMeasurement& measured) {
    for (std::size_t i = 0; i < kCorners.size(); ++i)
        if (!measured.aoCorners[i])
            return &kCorners[i];
    return nullptr;
}

PictureSize LeastSizeOf(Camera tCamera) {
    constexpr int kBorder = 3; // px that a search starts before the picture's border
    const FrameSearch tSearch = FrameSearchOf(tCamera, DefaultParameters());
    return {2 * (tSearch.nOffsetX + kBorder), 2 * (tSearch.nOffsetY + kBorder)};
}

Measurement Measure(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration) {
    Measurement measurement = {CallLibrary(tMaster, tSlave, strCalibration), {}, {}};
    // All of the working block is copied before the views' stages write to it.
    measurement.tMaster.tMeasured = MeasuredBy(Camera::kMaster, measurement.tPair);
    measurement.tSlave.tMeasured = MeasuredBy(Camera::kSlave, measurement.tPair);
    const DualCamAlignParam tParameters = m_tDualCamAlignParam;
    const StageViews tViews = ViewsOf({tMaster, measurement.tMaster.tMeasured},
                                      {tSlave, measurement.tSlave.tMeasured}, tParameters);
    measurement.tMaster.tView = tViews.tMaster;
    measurement.tSlave.tView = tViews.tSlave;
    return measurement;
}

} // namespace tools
