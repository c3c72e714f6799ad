#include "support/get_align.h"

#include <gtest/gtest.h>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
}

namespace {

// Allocations of at least this size are the measurement's: planes and histograms, not the standard library's.
constexpr std::size_t nCountedBytes = 1500;

bool g_bCounting = false;
int g_nAllocations = 0;
int g_nFailing = 0; // fails the n-th counted allocation; 0 fails none

bool Fails(std::size_t nBytes) {
    return g_bCounting && nBytes >= nCountedBytes && ++g_nAllocations == g_nFailing;
}

} // namespace

// This program's own allocator stands in front of the C library's, also for the shared library.
extern "C" void* malloc(std::size_t nBytes) {
    return Fails(nBytes) ? nullptr : __libc_malloc(nBytes);
}
extern "C" void* calloc(std::size_t nCount, std::size_t nSize) {
    return Fails(nCount * nSize) ? nullptr : __libc_calloc(nCount, nSize);
}

namespace {

struct Outcome {
    unsigned int nStatus;
    std::string strOutput;
};

Outcome RunWithFailing(int nFailing) {
    const support::Picture tChart = support::UprightChart();
    unsigned char *const pMaster = tChart.OnHeap(), *const pSlave = tChart.OnHeap();
    std::vector<unsigned char> aCalibration = support::Calibration();
    nWidth = nWidth_Slave = 1728;
    nHeight = nHeight_Slave = 972;
    double dRx, dRy, dRz;
    _AFPROTECT tRecord;
    testing::internal::CaptureStdout();
    g_nFailing = nFailing;
    g_nAllocations = 0;
    g_bCounting = true;
    const unsigned int nStatus = Orvex_Alignment_ForAndroid(pMaster, pSlave, 1728, 972, 1728, 972, &dRx, &dRy,
                                                            &dRz, aCalibration.data(), &tRecord);
    g_bCounting = false;
    std::free(pMaster);
    std::free(pSlave);
    std::fflush(stdout);
    return {nStatus, testing::internal::GetCapturedStdout()};
}

const std::string strMasterSearch =
    "Alignment Processing.....\nGet center of binary image fail for Master !!.  err=0!! Line=306.\n";
const std::string strSlaveSearch =
    "Alignment Processing.....\nGet center of binary image fail from Slave image  !!.  err=0!! Line=444.\n";

} // namespace

TEST(MemoryFault, EachFailedAllocationEndsInItsStagesStatus) {
    ASSERT_EQ(RunWithFailing(0).nStatus, 0u);
    const int nAllocations = g_nAllocations;
    ASSERT_EQ(nAllocations, 17)
        << "working buffer; per camera a plane and four lists, then a plane and two lists";
    EXPECT_EQ(RunWithFailing(1).nStatus, 0x1010004u) << "the working buffer";
    for (int i = 2; i <= nAllocations; ++i) {
        const Outcome t = RunWithFailing(i);
        const bool bMaster = i <= 9;
        const bool bSearch = i == 2 || i == 7 || i == 10 || i == 15; // the scratch planes
        EXPECT_EQ(t.nStatus, !bSearch ? 0x1010006u : bMaster ? 0x1010004u : 0x1010005u) << "allocation " << i;
        if (bSearch) {
            EXPECT_EQ(t.strOutput, bMaster ? strMasterSearch : strSlaveSearch);
        }
        EXPECT_EQ(RunWithFailing(0).nStatus, 0u) << "the next run is not affected";
    }
}
