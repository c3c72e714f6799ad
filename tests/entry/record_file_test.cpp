#include "support/failing_charts.h"
#include "support/failing_cryptography.h"
#include "support/record_folder.h"
#include "support/trace.h"

#include <android/log.h>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

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

int StatusOfReading(const std::vector<unsigned char>& aFile) {
    return TraceOf(0, {}, aFile).nReading;
}

class RecordFile : public testing::Test {
protected:
    void SetUp() override {
        __android_log_set_logger(Keep);
        g_aLog.clear();
        if (!m_tFolder.IsWritable())
            GTEST_SKIP() << "this user may not write " << tRecordFile
                         << "; allow mount namespaces or run as root to test the record file";
    }

    RecordFolder m_tFolder;
};

} // namespace

TEST_F(RecordFile, HoldsTheCallersBytesInPlaceOfOlderOnes) {
    for (const bool bPassing : {true, false}) {
        std::ofstream(tRecordFile) << std::string(1000, 'x');
        g_aLog.clear();
        const AlignResult t = Align(UprightChart(), bPassing ? UprightChart() : Paper());
        EXPECT_EQ(t.nStatus, bPassing ? 0u : 0x1010006u);
        EXPECT_EQ(RecordBytes(), t.Record());
        EXPECT_EQ(StatusOfReading(RecordBytes()), bPassing ? 0 : 0x3010003)
            << "of a failure zeros are kept, but this calibration's focus lines are not zero";
        ASSERT_EQ(g_aLog.size(), 1u);
        EXPECT_EQ(g_aLog[0].nPriority, ANDROID_LOG_INFO);
        EXPECT_EQ(g_aLog[0].strTag, "Test");
    }
}

TEST_F(RecordFile, IsWrittenOnEntryErrorsWithCalibrationOnly) {
    std::vector<unsigned char> aCalibration = Calibration();
    double d = 0.0;
    fs::remove(tRecordFile);
    EXPECT_EQ(getAlign(nullptr, nullptr, &d, &d, &d, nullptr, nullptr), 0x1020001u);
    EXPECT_FALSE(fs::exists(tRecordFile));
    EXPECT_EQ(getAlign(nullptr, nullptr, &d, &d, &d, aCalibration.data(), nullptr), 0x1020001u);
    EXPECT_EQ(RecordBytes().size(), 194u);
}

namespace {

// Somewhere the record file cannot go.
struct Place {
    const char* szName;
    int nError;
    bool (*Arrange)(); // false: not on this machine
    void (*Undo)() = [] {};
};

bool LinkTo(const fs::path& tTarget) {
    fs::create_symlink(tTarget, tRecordFile);
    return true;
}

// One of the disks that stand ready where the test runs apart from the machine.
bool LinkToDisk(const fs::path& tDisk) {
    return fs::exists(tDisk) && LinkTo(tDisk / tRecordFile.filename());
}

bool LimitFileSize(rlim_t nBytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit t = {};
    getrlimit(RLIMIT_FSIZE, &t);
    t.rlim_cur = nBytes;
    return setrlimit(RLIMIT_FSIZE, &t) == 0;
}

const Place atPlaces[] = {
    {"a folder in its place", EISDIR, [] { return fs::create_directory(tRecordFile); }},
    {"a missing folder", ENOENT, [] { return LinkTo("/sdcard/missing/AFProtect.txt"); }},
    {"a full device", ENOSPC, [] { return LinkTo("/dev/full"); }},
    {"a full disk", ENOSPC,
     [] {
         std::ofstream("/sdcard-small/filler") << std::string(1 << 20, 'x');
         return LinkToDisk("/sdcard-small");
     }},
    {"a read-only disk", EROFS, [] { return LinkToDisk("/sdcard-read-only"); }},
    {"a limit in the middle of the record", EFBIG, [] { return LimitFileSize(100); },
     [] { LimitFileSize(RLIM_INFINITY); }},
};

} // namespace

// That the pictures are freed all the same is for the leak checkers that this runs under.
TEST_F(RecordFile, ThatCannotBeWrittenOnlyWarns) {
    std::string strLeftOut;
    for (const Place& t : atPlaces) {
        SCOPED_TRACE(t.szName);
        fs::remove_all(tRecordFile);
        if (!t.Arrange()) {
            strLeftOut += std::string("; ") + t.szName;
            t.Undo();
            continue;
        }
        for (const bool bPassing : {true, false}) {
            g_aLog.clear();
            const AlignResult tResult = Align(UprightChart(), bPassing ? UprightChart() : Paper());
            EXPECT_EQ(tResult.nStatus, bPassing ? 0u : 0x1010006u);
            EXPECT_EQ(StatusOfReading(tResult.Record()), bPassing ? 0 : 0x3010003)
                << "the caller has the bytes all the same";
            ASSERT_EQ(g_aLog.size(), 2u);
            EXPECT_EQ(g_aLog[1].nPriority, ANDROID_LOG_WARN);
            EXPECT_EQ(g_aLog[1].strTag, "Test");
            EXPECT_EQ(g_aLog[1].strText,
                      "/sdcard/AFProtect.txt was not written: " + std::string(std::strerror(t.nError)));
        }
        t.Undo();
    }
    if (!strLeftOut.empty())
        GTEST_SKIP() << "without a mount namespace this user cannot arrange all places" << strLeftOut;
}

TEST_F(RecordFile, HoldsNothingAndIsNotReadWhenCryptographyFails) {
    for (const char* const szCall : {"psa_crypto_init", "psa_generate_random", "psa_hash_compute",
                                     "psa_import_key", "psa_cipher_encrypt"}) {
        SCOPED_TRACE(szCall);
        std::ofstream(tRecordFile) << "an older record";
        for (const bool bPassing : {true, false}) {
            g_aLog.clear();
            g_nFailedCalls = 0;
            g_strFailingCall = szCall;
            const AlignResult t = Align(UprightChart(), bPassing ? UprightChart() : Paper());
            g_strFailingCall.clear();
            EXPECT_GT(g_nFailedCalls, 0);
            EXPECT_EQ(t.nStatus, bPassing ? 0u : 0x1010006u);
            EXPECT_TRUE(RecordBytes().empty());
            EXPECT_EQ(t.aFile, AlignResult{}.aFile) << "nor do the caller's bytes";
            ASSERT_EQ(g_aLog.size(), 2u);
            EXPECT_EQ(g_aLog[1].strText,
                      "/sdcard/AFProtect.txt was not written: the record could not be encrypted");
        }
    }
    Align(UprightChart(), UprightChart());
    const std::vector<unsigned char> aFile = RecordBytes();
    ASSERT_EQ(aFile.size(), 194u) << "written again as soon as it works again";
    for (const char* const szCall : {"psa_hash_compute", "psa_import_key", "psa_cipher_decrypt"}) {
        g_strFailingCall = szCall;
        EXPECT_EQ(StatusOfReading(aFile), 0x3010001) << szCall;
        g_strFailingCall.clear();
    }
}
