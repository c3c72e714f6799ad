#include "Orvex_Alignment_Stages.h"
#include "support/failing_charts.h"
#include "support/get_align.h"

#include <android/log.h>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using namespace support;
namespace fs = std::filesystem;

namespace {

struct LogLine {
    int nPriority;
    std::string strTag;
    std::string strText;
};

std::vector<LogLine> g_aLog;

void Keep(const __android_logger_data* p, const char* szText) {
    g_aLog.push_back({p->priority, p->tag, szText});
}

const fs::path tFolder = "/sdcard";
const fs::path tRecordFile = tFolder / "AFProtect.txt";

class RecordFile : public testing::Test {
protected:
    void SetUp() override {
        __android_log_set_logger(Keep);
        g_aLog.clear();
        std::error_code tError;
        m_bCreated = fs::create_directory(tFolder, tError);
        if (!fs::is_directory(tFolder) || !std::ofstream(tRecordFile, std::ios::app))
            GTEST_SKIP() << "this user may not write " << tRecordFile
                         << "; run as root to test the record file";
    }
    void TearDown() override {
        std::error_code tError;
        fs::remove_all(tRecordFile, tError);
        if (m_bCreated)
            fs::remove(tFolder, tError);
    }

    static std::vector<unsigned char> FileBytes() {
        std::ifstream t(tRecordFile, std::ios::binary);
        return {std::istreambuf_iterator<char>(t), {}};
    }

    // Status of the reader for the file under the calibration memory; pRecord receives the record.
    static int StatusOfReading(std::vector<unsigned char> aFile, std::vector<unsigned char> aCalibration,
                               _AFPROTECT* pRecord) {
        std::vector<unsigned char> aRecord(622);
        int nLength = 0, nStatus = -1;
        const int nResult = Orvex_SpecialAFDataTransform(
            aCalibration.data(), static_cast<int>(aCalibration.size()), aFile.data(),
            static_cast<int>(aFile.size()), aRecord.data(), &nLength, &nStatus);
        EXPECT_EQ(nResult, nStatus == 0 ? 1 : 0);
        if (nStatus != 0x3010001) {
            EXPECT_EQ(nLength, 151);
        }
        std::memcpy(pRecord, aRecord.data(), sizeof *pRecord);
        return nStatus;
    }

    bool m_bCreated = false;
};

} // namespace

TEST_F(RecordFile, HoldsTheCallersBytesAndReadsBack) {
    chart::PairSetup tSetup;
    tSetup.tRelativePose = {0.4, -0.5, 1.3};
    const chart::Pair tPair = chart::RenderPair(tSetup);
    const AlignResult t = Align(tPair.tMaster, tPair.tSlave);
    ASSERT_EQ(t.nStatus, 0u);
    const std::vector<unsigned char> aFile = FileBytes();
    ASSERT_EQ(aFile.size(), 194u);
    EXPECT_EQ(std::memcmp(aFile.data(), t.aFile.data(), aFile.size()), 0);

    _AFPROTECT tRecord;
    ASSERT_EQ(StatusOfReading(aFile, Calibration(), &tRecord), 0);
    const DualCamAlignData& tData = m_tDualCamAlignData;
    EXPECT_EQ(tRecord.swShiftY,
              static_cast<short>(tData.afCrossCenter_Slave[1] - tData.afCrossCenter_Master[1]));
    std::vector<unsigned char> aOtherFile = aFile, aOther = Calibration();
    aOtherFile[2] ^= 1;
    EXPECT_EQ(StatusOfReading(aOtherFile, Calibration(), &tRecord), 0x3010001);
    aOtherFile = aFile;
    aOtherFile[20] ^= 8; // in the initialisation vector: the same bit of the first plain block
    EXPECT_EQ(StatusOfReading(aOtherFile, Calibration(), &tRecord), 0x3010002);
    aOther[2914] ^= 1;
    EXPECT_NE(StatusOfReading(aFile, aOther, &tRecord), 0);

    // One info line with the angles before they are rescaled.
    char szExpected[200];
    std::snprintf(szExpected, sizeof szExpected, "\nRx = %3.6f\nRy = %3.6f\nRz = %3.6f\n", tData.dRx,
                  tData.dRy, tData.dRz);
    ASSERT_EQ(g_aLog.size(), 1u);
    EXPECT_EQ(g_aLog[0].nPriority, ANDROID_LOG_INFO);
    EXPECT_EQ(g_aLog[0].strTag, "Test");
    EXPECT_EQ(g_aLog[0].strText, szExpected);
    EXPECT_LT(t.dRz, 1.1) << "the caller's angle is rescaled";
}

TEST_F(RecordFile, IsRewrittenWithZerosWhenTheMeasurementFails) {
    std::ofstream(tRecordFile) << std::string(1000, 'x');
    const AlignResult t = Align(Paper(), Paper());
    ASSERT_EQ(t.nStatus, 0x1010006u);
    _AFPROTECT tRecord;
    const std::vector<unsigned char> aFile = FileBytes();
    ASSERT_EQ(aFile.size(), 194u);
    EXPECT_EQ(StatusOfReading(aFile, Calibration(), &tRecord), 0x3010003) << "no module has zero floats";
    const _AFPROTECT tZero = {};
    EXPECT_EQ(std::memcmp(&tRecord, &tZero, sizeof tZero), 0);
    ASSERT_EQ(g_aLog.size(), 1u);
    EXPECT_EQ(g_aLog[0].strText, "\nError code : 16842758\n");
}

TEST_F(RecordFile, IsWrittenOnEntryErrorsWithCalibrationOnly) {
    std::vector<unsigned char> aCalibration = Calibration();
    double d = 0.0;
    fs::remove(tRecordFile);
    EXPECT_EQ(getAlign(nullptr, nullptr, &d, &d, &d, nullptr, nullptr), 0x1020001u);
    EXPECT_FALSE(fs::exists(tRecordFile));
    EXPECT_EQ(getAlign(nullptr, nullptr, &d, &d, &d, aCalibration.data(), nullptr), 0x1020001u);
    EXPECT_EQ(FileBytes().size(), 194u);
}

TEST_F(RecordFile, ThatCannotBeWrittenOnlyWarns) {
    fs::remove(tRecordFile);
    fs::create_directory(tRecordFile); // a folder in its place
    const AlignResult t = Align(UprightChart(), UprightChart());
    EXPECT_EQ(t.nStatus, 0u);
    EXPECT_NE(t.aFile[0], 0) << "the caller has the bytes all the same";
    ASSERT_EQ(g_aLog.size(), 2u);
    EXPECT_EQ(g_aLog[1].nPriority, ANDROID_LOG_WARN);
    EXPECT_EQ(g_aLog[1].strTag, "Test");
    EXPECT_EQ(g_aLog[1].strText,
              "/sdcard/AFProtect.txt was not written: " + std::string(std::strerror(EISDIR)));
}
