#include "support/failing_charts.h"
#include "support/record_folder.h"
#include "support/trace.h"

#include <android/log.h>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>

using namespace support;

namespace {

Trace Measure(const Picture& tMaster, const Picture& tSlave) {
    const AlignResult t = Align(tMaster, tSlave);
    return TraceOf(t.nStatus, {t.dRx, t.dRy, t.dRz}, RecordBytes());
}

// Those that are the process's own: of programs' files the system keeps as many in memory as it likes.
long OwnPages() {
    malloc_trim(0);
    long nSize = 0, nResident = 0, nOfFiles = 0;
    std::ifstream("/proc/self/statm") >> nSize >> nResident >> nOfFiles;
    return nResident - nOfFiles;
}

} // namespace

TEST(Load, TenThousandMeasurementsGiveTheSameBitsInFlatMemory) {
    const RecordFolder tRecordFolder;
    if (!tRecordFolder.IsWritable())
        GTEST_SKIP() << "this user may not write " << tRecordFile;
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
    const chart::Pair tNoisy = NoisyPair({0.2, -0.1, 0.3}, {0.7, -0.8, 1.2}, 1),
                      tOther = NoisyPair({}, {-1, 1, -0.4}, 2);
    const Picture aPairs[][2] = {{tNoisy.tMaster, tNoisy.tSlave},
                                 {tOther.tMaster, Paper()},
                                 {tOther.tMaster, tOther.tSlave},
                                 {tNoisy.tMaster, WithoutRightDown()},
                                 {CentreAtFramesTop(), tNoisy.tSlave}};
    std::vector<Trace> aFirst;
    for (const auto& [tMaster, tSlave] : aPairs)
        aFirst.push_back(Measure(tMaster, tSlave));
    EXPECT_EQ(aFirst[0].nStatus, 0u);
    EXPECT_EQ(aFirst[0].nReading, 0);
    const long nBefore = OwnPages();
    int nDiffering = 0;
    for (int i = 0; i < 10000; ++i)
        nDiffering += Measure(aPairs[i % 5][0], aPairs[i % 5][1]) != aFirst[static_cast<std::size_t>(i % 5)];
    const long nAfter = OwnPages();
    EXPECT_EQ(nDiffering, 0);
    std::printf("own pages before %ld, after 10,000 calls %ld\n", nBefore, nAfter);
    EXPECT_LT(nAfter - nBefore, 256) << "a megabyte; a leak of 105 bytes per call would show";
}
