// Measures pairs of all kinds and prints every bit of what came out, a line for each field of each pair:
//
//   PAIR KIND FIELD HEX     kind "bytes": as they lie in memory; kind "angle": a double's bits as one number
//
// PART OF: of the pairs only the PARTth of every OF, so that several processes can share the work.
#include "Orvex_Alignment_Stages.h"
#include "support/checksum.h"
#include "support/failing_charts.h"
#include "support/get_align.h"
#include "support/varied_pairs.h"

#include <algorithm>
#include <bit>
#include <cstdio>
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

// What the C library's atan had a part in.
bool IsAngle(const std::string& strField) {
    return strField.starts_with("dR") || strField.starts_with("dTilt") || strField.starts_with("dCrossAngle");
}

class Lines {
public:
    explicit Lines(unsigned int nPair) : m_nPair(nPair) {}

    void Angle(const std::string& strField, double d) const {
        std::printf("%03u angle %s %016llx\n", m_nPair, strField.c_str(),
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

// Every byte of the block in exactly one line; what lies between the fields is a field too.
void PrintBlock(const Lines& tLines) {
    const auto* const pBlock = reinterpret_cast<const unsigned char*>(&m_tDualCamAlignData);
    std::size_t nEnd = 0;
    const auto PrintGap = [&](std::size_t nNext) {
        if (nNext > nEnd)
            tLines.Bytes("padding_at_" + std::to_string(nEnd), pBlock + nEnd, nNext - nEnd);
    };
    for (const Field& t : atFields) {
        PrintGap(t.nOffset);
        double dAngle;
        if (IsAngle(t.szName)) {
            std::memcpy(&dAngle, pBlock + t.nOffset, sizeof dAngle);
            tLines.Angle(t.szName, dAngle);
        } else {
            tLines.Bytes(t.szName, pBlock + t.nOffset, t.nBytes);
        }
        nEnd = t.nOffset + t.nBytes;
    }
    PrintGap(sizeof m_tDualCamAlignData);
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

void PrintPair(unsigned int nPair, const Picture& tMaster, const Picture& tSlave) {
    const Lines tLines(nPair);
    tLines.Checksum("master_picture", tMaster.aPixels.data(), tMaster.aPixels.size());
    tLines.Checksum("slave_picture", tSlave.aPixels.data(), tSlave.aPixels.size());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr(); // the log
    const AlignResult t = Align(tMaster, tSlave);
    std::fflush(nullptr);
    testing::internal::GetCapturedStderr();
    const std::string strOutput = testing::internal::GetCapturedStdout();
    tLines.Bytes("status", &t.nStatus, sizeof t.nStatus);
    tLines.Bytes("standard_output", strOutput.data(), strOutput.size());
    tLines.Angle("returned_Rx", t.dRx);
    tLines.Angle("returned_Ry", t.dRy);
    tLines.Angle("returned_Rz", t.dRz);
    PrintBlock(tLines);
    tLines.Bytes("m_tDualCamAlignParam", &m_tDualCamAlignParam, sizeof m_tDualCamAlignParam);
    tLines.Bytes("m_tTested", &m_tTested, sizeof m_tTested);
    PrintRecord(tLines, t);
}

} // namespace

int main(int nArguments, char** pszArguments) {
    const unsigned int nPart = nArguments == 3 ? static_cast<unsigned int>(std::atoi(pszArguments[1])) : 0;
    const unsigned int nParts = nArguments == 3 ? static_cast<unsigned int>(std::atoi(pszArguments[2])) : 1;
    const std::vector<FailingChart> aFailing = FailingCharts();
    const unsigned int nVaried = 80, nFailing = static_cast<unsigned int>(aFailing.size());
    for (unsigned int nPair = nPart; nPair < nVaried + 2 * nFailing; nPair += nParts) {
        if (nPair < nVaried) {
            const chart::Pair t = VariedPair(nPair);
            PrintPair(nPair, t.tMaster, t.tSlave);
            continue;
        }
        const Picture tGood = UprightChart(), tFailing = aFailing[(nPair - nVaried) / 2].tPicture;
        const bool bMaster = (nPair - nVaried) % 2 == 0;
        PrintPair(nPair, bMaster ? tFailing : tGood, bMaster ? tGood : tFailing);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
