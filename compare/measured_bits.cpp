// Measures pairs of all kinds and prints every bit of what came out, a line for each field of each pair:
//
//   PAIR bytes FIELD HEX    as they lie in memory
//   PAIR count WORD         what the pair is or how it ended, to be counted
//
// and of the doubles that the C library's atan has a part in the bits as one number, in this order:
//
//   PAIR atan FIELD HEX          what atan returned; its argument comes before, as bytes
//   PAIR angle FIELD HEX         computed from that in double precision
//   PAIR single FIELD HEX        ... and rounded to single precision
//   PAIR difference FIELD HEX    between two of those
//
// PART OF: of the pairs only the PARTth of every OF, from 0, so that several processes can share the work.
#include "Orvex_Alignment_Stages.h"
#include "compare/comparison.h"
#include "compare/recorded_atan.h"
#include "support/checksum.h"
#include "support/failing_charts.h"
#include "support/get_align.h"
#include "support/varied_pairs.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

using namespace support;

namespace {

struct Field {
    const char* szName;
    std::size_t nOffset, nBytes;
};

#define FIELD(name)                                                                                          \
    { #name, offsetof(DualCamAlignData, name), sizeof(DualCamAlignData::name) }
constexpr Field atFields[] = {FIELD(dRz),
                              FIELD(bInitFlag0),
                              FIELD(bInitFlag1),
                              FIELD(dCrossAngle_Master),
                              FIELD(dCrossAngle_Slave),
                              FIELD(afTransferredCenter),
                              FIELD(afCrossCenter_Slave),
                              FIELD(afCrossCenter_Master),
                              FIELD(afFrameExtentCopy_Master),
                              FIELD(dFrameExtentNorm_Slave),
                              FIELD(dFrameExtentNorm_Master),
                              FIELD(dTransferScale),
                              FIELD(afFrameExtent_Slave),
                              FIELD(afFrameExtent_Master),
                              FIELD(dBinaryThreshold_Master),
                              FIELD(dBinaryThreshold_Slave),
                              FIELD(adFrameThreshold_Master),
                              FIELD(adFrameThreshold_Slave),
                              FIELD(afCornerPoint_Master),
                              FIELD(afCornerPoint_Slave),
                              FIELD(adSideLength_Master),
                              FIELD(adSideLength_Slave),
                              FIELD(afFrameDiagonal_Master),
                              FIELD(afFrameDiagonal_Slave),
                              FIELD(fDiagonalRatio_Master),
                              FIELD(fDiagonalRatio_Slave),
                              FIELD(dTiltX_Master),
                              FIELD(dTiltY_Master),
                              FIELD(dTiltX_Slave),
                              FIELD(dTiltY_Slave),
                              FIELD(dRx),
                              FIELD(dRy),
                              FIELD(nCrossSpanX_Slave),
                              FIELD(nCrossSpanX_Master),
                              FIELD(dCrossAux0_Slave),
                              FIELD(dCrossAux0_Master),
                              FIELD(dCrossAux1_Slave),
                              FIELD(dCrossAux1_Master),
                              FIELD(dCrossAux2_Slave),
                              FIELD(dCrossAux2_Master),
                              FIELD(bInitFlag2),
                              FIELD(bInitFlag3),
                              FIELD(afCrossCenterCopy_Master),
                              FIELD(afCrossCenterCopy_Slave)};
#undef FIELD

const char* KindOf(const std::string& strField) {
    if (strField.starts_with("dCrossAngle"))
        return "single";
    if (strField.starts_with("dTilt"))
        return "angle";
    return strField.starts_with("dR") ? "difference" : "bytes";
}

class Lines {
public:
    explicit Lines(unsigned int nPair) : m_nPair(nPair) {}

    void Count(const char* szWord) const { std::printf("%03u count %s\n", m_nPair, szWord); }
    void Double(const char* szKind, const std::string& strField, double d) const {
        std::printf("%03u %s %s %016llx\n", m_nPair, szKind, strField.c_str(),
                    static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(d)));
    }
    void Bytes(const std::string& strField, const void* pBytes, std::size_t nBytes) const {
        std::printf("%03u bytes %s ", m_nPair, strField.c_str());
        for (const auto* p = static_cast<const unsigned char*>(pBytes); nBytes > 0; --nBytes)
            std::printf("%02x", *p++);
        std::printf("\n");
    }
    void Checksum(const std::string& strField, const unsigned char* pBytes, std::size_t nBytes) const {
        const std::uint64_t nChecksum = AddedTo(nEmptyChecksum, pBytes, nBytes);
        Bytes(strField, &nChecksum, sizeof nChecksum);
    }

private:
    unsigned int m_nPair;
};

void PrintAtans(const Lines& tLines) {
    for (std::size_t n = 0; n < atAtanCalls.size(); ++n) {
        const std::string strCall = "atan_" + std::to_string(n);
        tLines.Bytes(strCall + "_argument", &atAtanCalls[n].dArgument, sizeof(double));
        tLines.Double("atan", strCall, atAtanCalls[n].dResult);
    }
}

void PrintField(const Lines& tLines, const Field& t) {
    const unsigned char* const pField = reinterpret_cast<unsigned char*>(&m_tDualCamAlignData) + t.nOffset;
    const std::string strKind = KindOf(t.szName);
    if (strKind == "bytes")
        return tLines.Bytes(t.szName, pField, t.nBytes);
    double d = 0;
    std::memcpy(&d, pField, sizeof d);
    tLines.Double(strKind.c_str(), t.szName, d);
}

// Every byte of the block in exactly one line; what lies between the fields is a field too.
void PrintBlock(const Lines& tLines) {
    const auto* const pBlock = reinterpret_cast<const unsigned char*>(&m_tDualCamAlignData);
    std::size_t nEnd = 0;
    const auto PrintGap = [&](std::size_t nNext) {
        if (nNext > nEnd)
            tLines.Bytes("padding_at_" + std::to_string(nEnd), pBlock + nEnd, nNext - nEnd);
    };
    const auto IsDifference = [](const Field& t) { return KindOf(t.szName) == std::string("difference"); };
    for (const Field& t : atFields) {
        PrintGap(t.nOffset);
        if (!IsDifference(t))
            PrintField(tLines, t);
        nEnd = t.nOffset + t.nBytes;
    }
    PrintGap(sizeof m_tDualCamAlignData);
    for (const Field& t : atFields)
        if (IsDifference(t))
            PrintField(tLines, t);
}

// The record as its reader decrypts it: the file's own bytes differ from run to run by their random vector.
void PrintRecord(const Lines& tLines, AlignResult t) {
    std::vector<unsigned char> aCalibration = Calibration();
    std::array<unsigned char, 622> aRecord = {};
    int nBytes = 0, nStatus = 0;
    Orvex_SpecialAFDataTransform(aCalibration.data(), ORVEX_CALIBRATION_SIZE,
                                 reinterpret_cast<unsigned char*>(t.aFile.data()), 194, aRecord.data(),
                                 &nBytes, &nStatus);
    tLines.Bytes("record_status", &nStatus, sizeof nStatus);
    tLines.Bytes("record", aRecord.data(), static_cast<std::size_t>(nBytes));
}

const char* Ending(unsigned int nStatus) {
    return nStatus == ORVEX_OK ? "passed" : nStatus == ORVEX_ANGLE_OUT_OF_RANGE ? "out_of_range" : "failed";
}

// False if a whole measurement came without atan: then another one was called than the recorded.
bool PrintPair(unsigned int nPair, const char* szOrigin, const Picture& tMaster, const Picture& tSlave) {
    const Lines tLines(nPair);
    tLines.Count(szOrigin);
    tLines.Checksum("master_picture", tMaster.aPixels.data(), tMaster.aPixels.size());
    tLines.Checksum("slave_picture", tSlave.aPixels.data(), tSlave.aPixels.size());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr(); // the log
    atAtanCalls.clear();
    const AlignResult t = Align(tMaster, tSlave);
    std::fflush(nullptr);
    testing::internal::GetCapturedStderr();
    const std::string strOutput = testing::internal::GetCapturedStdout(), strEnding = Ending(t.nStatus);
    tLines.Count(strEnding.c_str());
    tLines.Bytes("status", &t.nStatus, sizeof t.nStatus);
    tLines.Bytes("standard_output", strOutput.data(), strOutput.size());
    PrintAtans(tLines);
    PrintBlock(tLines);
    tLines.Double("difference", "returned_Rx", t.dRx);
    tLines.Double("difference", "returned_Ry", t.dRy);
    tLines.Double("difference", "returned_Rz", t.dRz);
    tLines.Bytes("m_tDualCamAlignParam", &m_tDualCamAlignParam, sizeof m_tDualCamAlignParam);
    tLines.Bytes("m_tTested", &m_tTested, sizeof m_tTested);
    PrintRecord(tLines, t);
    return std::fflush(stdout) == 0 && (strEnding == "failed" || !atAtanCalls.empty());
}

// Pairs from nFirst on: each failing chart as master, then as slave, beside a good one.
bool PrintDrawnPair(unsigned int nPair, unsigned int nFirst) {
    const Picture tGood = UprightChart(), tFailing = FailingCharts()[(nPair - nFirst) / 2].tPicture;
    const bool bMaster = (nPair - nFirst) % 2 == 0;
    return PrintPair(nPair, "drawn", bMaster ? tFailing : tGood, bMaster ? tGood : tFailing);
}

bool PrintRenderedPair(unsigned int nPair) {
    const chart::Pair t = VariedPair(nPair);
    return PrintPair(nPair, "rendered", t.tMaster, t.tSlave);
}

} // namespace

int main(int nArguments, char** pszArguments) {
    const unsigned long nPart = nArguments == 3 ? std::strtoul(pszArguments[1], nullptr, 10) : 0;
    const unsigned long nParts = nArguments == 3 ? std::strtoul(pszArguments[2], nullptr, 10) : 1;
    if (nPart >= nParts) {
        std::fprintf(stderr, "measured_bits: PART must be a number below OF, as in \"measured_bits 0 2\"\n");
        return 64;
    }
    const unsigned int nRendered = compare::nRenderedPairs;
    const auto nFailing = static_cast<unsigned int>(FailingCharts().size());
    for (unsigned long n = nPart; n < nRendered + 2 * nFailing; n += nParts) {
        const auto nPair = static_cast<unsigned int>(n);
        if (nPair < nRendered ? PrintRenderedPair(nPair) : PrintDrawnPair(nPair, nRendered))
            continue;
        std::fprintf(stderr, "pair %03u: not written, or measured without the recorded atan\n", nPair);
        return 1;
    }
    return 0;
}
