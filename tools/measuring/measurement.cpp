#include "measuring/measurement.h"

#include "Orvex_Alignment.h"
#include "measuring/captured_output.h"
#include "measuring/record_reading.h"
#include "measuring/working_record.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <unistd.h>

namespace tools {
namespace {

// The library frees the pictures that it measures.
unsigned char* MallocCopy(const std::string& strBytes) {
    auto* const p = static_cast<unsigned char*>(std::malloc(strBytes.size()));
    if (p == nullptr)
        throw std::bad_alloc();
    std::ranges::copy(strBytes, p);
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
Stage StageReached(Camera tCamera, const Measurement& t) {
    const Stage tStage = WordsOf(t.nStatus).tStage;
    if (tStage > Stage::kCorners || t.oFailedCamera == tCamera)
        return tStage;
    const bool bMasterWasPassed = tCamera == Camera::kMaster && t.oFailedCamera == Camera::kSlave;
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

void SortLog(const std::vector<std::string>& aLines, Measurement& t) {
    for (const std::string& strLine : aLines) {
        const std::string str = WithoutLogHead(strLine);
        if (IsMissingCard(str))
            t.aNotes.push_back(str +
                               "; the measurement does not need it, and a PC usually has no such folder");
        else if (!str.empty())
            t.aLog.push_back(str);
    }
}

// The library tells only by the bytes whether it could encrypt the record.
std::string RecordIn(const std::string& strBytes) {
    return IsRecordFile(strBytes) ? strBytes : std::string();
}

} // namespace

const char* NameOf(Camera tCamera) {
    return tCamera == Camera::kMaster ? "master" : "slave";
}

bool WasBegun(Camera tCamera, const Measurement& t) {
    return StageReached(tCamera, t) > Stage::kEntry;
}

const CornerName* MissingCorner(const CameraMeasurement& t) {
    const auto p = std::ranges::find_if(kCorners, [&](const CornerName& n) { return !t.aoCorners[n.nSlot]; });
    return p != kCorners.end() ? &*p : nullptr;
}

Measurement Measure(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration) {
    Measurement t = {};
    std::string strCalibrationCopy = strCalibration;
    Angles tRescaled = {};
    std::array<unsigned short, ORVEX_OUT_FILE_CAPACITY / 2> aunRecord = {};
    SetSizes(tMaster, tSlave);
    {
        CapturedOutput tOutput(STDOUT_FILENO), tLog(STDERR_FILENO);
        t.nStatus = getAlign(MallocCopy(tMaster.strGrey), MallocCopy(tSlave.strGrey), &tRescaled.dRx,
                             &tRescaled.dRy, &tRescaled.dRz,
                             reinterpret_cast<unsigned char*>(strCalibrationCopy.data()), aunRecord.data());
        t.aDiagnostics = tOutput.Lines();
        SortLog(tLog.Lines(), t);
    }
    t.strRecord = RecordIn({reinterpret_cast<const char*>(aunRecord.data()), kRecordFileBytes});
    if (t.nStatus != ORVEX_OK && t.nStatus != ORVEX_ANGLE_OUT_OF_RANGE) {
        t.oFailedCamera = CameraNamedIn(t.aDiagnostics);
    } else {
        t.oRaw = RecordedAngles();
        t.oRescaled = tRescaled;
    }
    t.tMaster = RecordedCamera(Camera::kMaster, StageReached(Camera::kMaster, t));
    t.tSlave = RecordedCamera(Camera::kSlave, StageReached(Camera::kSlave, t));
    return t;
}

} // namespace tools
