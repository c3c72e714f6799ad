#include "compare/measured_pair.h"

#include "Orvex_Alignment_Stages.h"
#include "compare/recorded_atan.h"

#include <android/log.h>
#include <gtest/gtest.h>

using namespace support;

namespace compare {
namespace {

std::string g_strLog;

// The record file's own place is the machine's: that it cannot be written is no part of the measurement.
void KeepInformation(const __android_logger_data* p, const char* szText) {
    if (p->priority == ANDROID_LOG_INFO)
        g_strLog += szText;
}

// The record as its reader decrypts it: the file's own bytes differ from run to run by their random vector.
void AddRecord(const BitLines& tLines, AlignResult t) {
    std::vector<unsigned char> aCalibration = Calibration(), aRecord(622);
    int nBytes = 0, nStatus = 0;
    Orvex_SpecialAFDataTransform(aCalibration.data(), ORVEX_CALIBRATION_SIZE,
                                 reinterpret_cast<unsigned char*>(t.aFile.data()), 194, aRecord.data(),
                                 &nBytes, &nStatus);
    aRecord.resize(static_cast<std::size_t>(nBytes));
    tLines.Add("record_status", nStatus);
    tLines.Add("record", aRecord);
}

const char* Ending(unsigned int nStatus) {
    return nStatus == ORVEX_OK ? "passed" : nStatus == ORVEX_ANGLE_OUT_OF_RANGE ? "out_of_range" : "failed";
}

} // namespace

bool AddPair(const BitLines& tLines, const char* szOrigin, const Picture& tMaster, const Picture& tSlave) {
    tLines.Count(szOrigin);
    tLines.Digest("master_picture", tMaster.aPixels.data(), tMaster.aPixels.size());
    tLines.Digest("slave_picture", tSlave.aPixels.data(), tSlave.aPixels.size());
    testing::internal::CaptureStdout();
    __android_log_set_logger(KeepInformation);
    g_strLog.clear();
    atAtanCalls.clear();
    const AlignResult t = Align(tMaster, tSlave);
    std::fflush(nullptr);
    const std::string strOutput = testing::internal::GetCapturedStdout(), strEnding = Ending(t.nStatus);
    const bool bRecorded = strEnding == "failed" || !atAtanCalls.empty();
    tLines.Count(strEnding.c_str());
    tLines.Add("status", t.nStatus);
    tLines.Text("standard_output", strOutput);
    tLines.Text("log", g_strLog);
    tLines.AddAtans();
    tLines.AddWorkingBlock();
    tLines.AddAngles("returned_", t.dRx, t.dRy, t.dRz);
    AddRecord(tLines, t);
    return bRecorded;
}

} // namespace compare
