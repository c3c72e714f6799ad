#include "support/failing_charts.h"
#include "support/failing_heap.h"
#include "support/record_folder.h"
#include "support/trace.h"

#include <android/log.h>
#include <gtest/gtest.h>
#include <psa/crypto.h>
#include <set>

using namespace support;

namespace {

// Allocations of at least this size are the measurement's: planes and histograms, not the standard library's.
constexpr std::size_t nCountedBytes = 1500;

struct Outcome {
    unsigned int nStatus;
    std::string strOutput;
};

Outcome RunWithFailing(int nFailing) {
    const Picture tChart = UprightChart();
    unsigned char *const pMaster = tChart.OnHeap(), *const pSlave = tChart.OnHeap();
    std::vector<unsigned char> aCalibration = Calibration();
    double dRx, dRy, dRz;
    _AFPROTECT tRecord;
    testing::internal::CaptureStdout();
    WatchHeap(nFailing, nCountedBytes);
    const unsigned int nStatus = Orvex_Alignment_ForAndroid(pMaster, pSlave, 1728, 972, 1728, 972, &dRx, &dRy,
                                                            &dRz, aCalibration.data(), &tRecord);
    StopWatching();
    std::free(pMaster);
    std::free(pSlave);
    std::fflush(stdout);
    return {nStatus, testing::internal::GetCapturedStdout()};
}

const std::string strMasterSearch =
    "Alignment Processing.....\nGet center of binary image fail for Master !!.  err=0!! Line=306.\n";
const std::string strSlaveSearch =
    "Alignment Processing.....\nGet center of binary image fail from Slave image  !!.  err=0!! Line=444.\n";

// Measures with every library as it is after loading, so that the cryptography library's start can fail too.
Trace TraceWithFailing(int nFailing, const Picture& tMaster, const Picture& tSlave) {
    unsigned char *const pMaster = tMaster.OnHeap(), *const pSlave = tSlave.OnHeap();
    std::vector<unsigned char> aCalibration = Calibration(), aFile(ORVEX_OUT_FILE_CAPACITY);
    std::array<double, 3> adAngles = {};
    std::filesystem::remove(tRecordFile);
    const unsigned char* const pOlderBuffer = m_pCMainView.pGreenBuffer;
    WatchHeap(nFailing);
    const unsigned int nStatus =
        getAlign(pMaster, pSlave, &adAngles[0], &adAngles[1], &adAngles[2], aCalibration.data(),
                 reinterpret_cast<unsigned short*>(aFile.data()));
    mbedtls_psa_stats_t tKeys = {};
    mbedtls_psa_get_stats(&tKeys);
    mbedtls_psa_crypto_free();
    StopWatching();
    EXPECT_EQ(tKeys.volatile_slots, 0u) << "keys that are never given back";
    EXPECT_EQ(FreesOfOlder(pMaster), 1);
    EXPECT_EQ(FreesOfOlder(pSlave), 1);
    EXPECT_TRUE(pOlderBuffer == nullptr || FreesOfOlder(pOlderBuffer) == 1) << "the latest run's buffer";
    const bool bBuffer = m_pCMainView.pGreenBuffer != nullptr;
    EXPECT_EQ(LivingAllocations(), bBuffer ? 1 : 0) << "only the working buffer is kept";
    EXPECT_EQ(IsLiving(m_pCMainView.pGreenBuffer), bBuffer);
    const std::vector<unsigned char> aWritten = RecordBytes();
    aFile.resize(194);
    EXPECT_TRUE(aWritten.empty() || aWritten == aFile) << "no half record, and nothing plain";
    return TraceOf(nStatus, adAngles, aFile);
}

} // namespace

TEST(MemoryFault, EachFailedAllocationEndsInItsStagesStatus) {
    ASSERT_EQ(RunWithFailing(0).nStatus, 0u);
    const int nAllocations = Allocations();
    ASSERT_EQ(nAllocations, 9) << "working buffer; per camera and pass the window's bits and their counts";
    // The host may put a buffer of its own in its place, and the heap hand out the same address again.
    std::free(m_pCMainView.pGreenBuffer);
    m_pCMainView.pGreenBuffer = static_cast<unsigned char*>(std::malloc(2000));
    ASSERT_EQ(RunWithFailing(0).nStatus, 0u);
    ASSERT_EQ(Allocations(), nAllocations);
    EXPECT_EQ(RunWithFailing(1).nStatus, 0x1010004u) << "the working buffer";
    for (int i = 2; i <= nAllocations; ++i) {
        const Outcome t = RunWithFailing(i);
        const bool bMaster = i <= 5, bSearch = i % 2 == 0; // the bits
        EXPECT_EQ(t.nStatus, !bSearch ? 0x1010006u : bMaster ? 0x1010004u : 0x1010005u) << "allocation " << i;
        if (bSearch) {
            EXPECT_EQ(t.strOutput, bMaster ? strMasterSearch : strSlaveSearch);
        }
    }
}

TEST(MemoryFault, TheExportedCentreSearchTellsItToo) {
    unsigned char* const pGrey = Picture(UprightChart()).OnHeap();
    std::vector<unsigned char> aBinary(1728 * 972, 7);
    unsigned short auwCenter[2] = {};
    DualCamAlign_LoadParameters_ForAndroid();
    WatchHeap(1, nCountedBytes);
    const int nBinarised = DualCamAlign_BinaryImage(pGrey, 1728, 972, 0.6, nullptr, aBinary.data(), 0.45,
                                                    0.45, true, auwCenter, false);
    StopWatching();
    EXPECT_EQ(nBinarised, 0);
    EXPECT_EQ(std::count(aBinary.begin(), aBinary.end(), 7), 1728 * 972);
    WatchHeap(1, nCountedBytes);
    const unsigned int nStatus = DualCamAlign_CalculateIntersectionAndAngle(
        aBinary.data(), pGrey, 1728, 972, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0.45, 0.45,
        true, auwCenter, false);
    StopWatching();
    EXPECT_EQ(nStatus, 0x1010006u);
    std::free(pGrey);
}

TEST(MemoryFault, EachFailedAllocationLosesAtMostItsOwnRun) {
    const RecordFolder tRecordFolder;
    if (!tRecordFolder.IsWritable())
        GTEST_SKIP() << "this user may not write " << tRecordFile;
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
    const Picture tChart = UprightChart();
    for (const Picture& tSlave : {tChart, Picture(Paper()), Picture(WithoutRightDown())}) {
        const Trace tWhole = TraceWithFailing(0, tChart, tSlave);
        const int nAllocations = Allocations();
        std::set<unsigned int> anStatuses;
        int nWithoutRecord = 0;
        for (int i = 1; i <= nAllocations; ++i) {
            SCOPED_TRACE("allocation " + std::to_string(i));
            const Trace t = TraceWithFailing(i, tChart, tSlave);
            anStatuses.insert(t.nStatus);
            nWithoutRecord += t.nReading == 0x3010001;
            EXPECT_TRUE(TraceWithFailing(0, tChart, tSlave) == tWhole) << "the next run is not affected";
        }
        EXPECT_EQ(anStatuses, (std::set{tWhole.nStatus, 0x1010004u, 0x1010005u, 0x1010006u}));
        std::printf("\nstatus 0x%X: %d allocations failed one by one, %d runs lost the record\n",
                    tWhole.nStatus, nAllocations, nWithoutRecord);
    }
}
