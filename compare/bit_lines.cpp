#include "compare/bit_lines.h"

#include "Orvex_Alignment_Stages.h"
#include "compare/recorded_atan.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace compare {
namespace {

struct Field {
    const char* szName;
    const char* szKind;
    std::size_t nOffset, nBytes;
};

#define FIELD(Block, name)                                                                                   \
    Field{#name, KindOf<decltype(Block::name)>(), offsetof(Block, name), sizeof(Block::name)},
#define DATA(name) FIELD(DualCamAlignData, name)
#define PARAM(name) FIELD(DualCamAlignParam, name)
// clang-format off
constexpr Field atDataFields[] = {
    DATA(dRz) DATA(bInitFlag0) DATA(bInitFlag1) DATA(dCrossAngle_Master) DATA(dCrossAngle_Slave)
    DATA(afTransferredCenter) DATA(afCrossCenter_Slave) DATA(afCrossCenter_Master) DATA(afFrameExtentCopy_Master)
    DATA(dFrameExtentNorm_Slave) DATA(dFrameExtentNorm_Master) DATA(dTransferScale) DATA(afFrameExtent_Slave)
    DATA(afFrameExtent_Master) DATA(dBinaryThreshold_Master) DATA(dBinaryThreshold_Slave)
    DATA(adFrameThreshold_Master) DATA(adFrameThreshold_Slave) DATA(afCornerPoint_Master)
    DATA(afCornerPoint_Slave) DATA(adSideLength_Master) DATA(adSideLength_Slave) DATA(afFrameDiagonal_Master)
    DATA(afFrameDiagonal_Slave) DATA(fDiagonalRatio_Master) DATA(fDiagonalRatio_Slave) DATA(dTiltX_Master)
    DATA(dTiltY_Master) DATA(dTiltX_Slave) DATA(dTiltY_Slave) DATA(dRx) DATA(dRy) DATA(nCrossSpanX_Slave)
    DATA(nCrossSpanX_Master) DATA(dCrossAux0_Slave) DATA(dCrossAux0_Master) DATA(dCrossAux1_Slave)
    DATA(dCrossAux1_Master) DATA(dCrossAux2_Slave) DATA(dCrossAux2_Master) DATA(bInitFlag2) DATA(bInitFlag3)
    DATA(afCrossCenterCopy_Master) DATA(afCrossCenterCopy_Slave)};
constexpr Field atParameters[] = {
    PARAM(dBinaryRatio_Master) PARAM(dBinaryRatio_Slave) PARAM(nFrameMargin_Master) PARAM(dFrameParam0_Master)
    PARAM(dFrameParam1_Master) PARAM(dFrameParam2_Master) PARAM(dFrameParam3_Master) PARAM(dFrameParam4_Master)
    PARAM(nFrameMargin_Slave) PARAM(dFrameParam0_Slave) PARAM(dFrameParam1_Slave) PARAM(dFrameParam2_Slave)
    PARAM(dFrameParam3_Slave) PARAM(dFrameParam4_Slave) PARAM(fSlaveShift) PARAM(bShiftAlongY) PARAM(bUseSlaveShift)
    PARAM(dPixelScaleX_Slave) PARAM(dPixelScaleY_Slave) PARAM(dPixelScaleX_Master) PARAM(dPixelScaleY_Master)
    PARAM(nChartDistance) PARAM(nParamState) PARAM(dSearchWidthRatio_Slave) PARAM(dSearchWidthRatio_Master)
    PARAM(dSearchHeightRatio_Slave) PARAM(dSearchHeightRatio_Master) PARAM(anReservedParam)
    PARAM(nFrameOffsetX_Slave) PARAM(nFrameOffsetX_Master) PARAM(nFrameOffsetY_Slave) PARAM(nFrameOffsetY_Master)
    PARAM(nParamReserved0) PARAM(nParamReserved1) PARAM(dChartHalfSpanX) PARAM(dChartHalfSpanY)
    PARAM(nSensorWidth_Master) PARAM(nSensorHeight_Master) PARAM(nSensorWidth_Slave) PARAM(nSensorHeight_Slave)};
// clang-format on
#undef DATA
#undef PARAM
#undef FIELD

const char* KindOfField(const Field& t) {
    const std::string strField = t.szName;
    if (strField.starts_with("dCrossAngle"))
        return "single";
    if (strField.starts_with("dTilt"))
        return "angle";
    return strField.starts_with("dR") ? "difference" : t.szKind;
}

std::size_t ElementBytes(const std::string& strKind) {
    if (strKind == "byte")
        return 1;
    if (strKind == "short")
        return 2;
    return strKind == "int" || strKind == "float" ? 4 : 8;
}

std::uint64_t BitsOf(const std::string& strKind, const unsigned char* p) {
    std::uint64_t n = 0;
    std::memcpy(&n, p, ElementBytes(strKind)); // little-endian, as every machine that runs this
    if (strKind == "float") {
        float f = 0;
        std::memcpy(&f, p, sizeof f);
        return std::isnan(f) ? 0x7FC00000u : n;
    }
    if (strKind == "int" || strKind == "byte" || strKind == "short" || strKind == "digest")
        return n;
    double d = 0;
    std::memcpy(&d, p, sizeof d);
    return std::isnan(d) ? 0x7FF8000000000000u : n;
}

} // namespace

void BitLines::Count(const char* szWord) const {
    m_tOut << m_strCase << " count " << szWord << '\n';
}

void BitLines::Text(const std::string& strField, const std::string& strText) const {
    m_tOut << m_strCase << " text " << strField << " \"";
    for (const char ch : strText)
        if (std::isgraph(static_cast<unsigned char>(ch)) != 0)
            m_tOut << ch;
        else
            m_tOut << (ch == ' ' ? "_" : ch == '\n' ? "\\n" : "?");
    m_tOut << "\"\n";
}

void BitLines::Digest(const std::string& strField, const void* pBytes, std::size_t nBytes) const {
    std::uint64_t n = 0xCBF29CE484222325u; // FNV-1a
    for (std::size_t i = 0; i < nBytes; ++i)
        n = (n ^ static_cast<const unsigned char*>(pBytes)[i]) * 0x100000001B3u;
    Elements("digest", strField, &n, sizeof n);
}

void BitLines::Elements(const char* szKind, const std::string& strField, const void* pBytes,
                        std::size_t nBytes) const {
    const std::size_t nElement = ElementBytes(szKind);
    std::string strValue;
    for (const auto* p = static_cast<const unsigned char*>(pBytes); nBytes > 0;
         p += nElement, nBytes -= nElement) {
        char sz[20];
        std::snprintf(sz, sizeof sz, "%0*llx", static_cast<int>(2 * nElement),
                      static_cast<unsigned long long>(BitsOf(szKind, p)));
        strValue += sz;
    }
    if (!strValue.empty() && strValue.find_first_not_of('0') == std::string::npos)
        strValue = "0";
    m_tOut << m_strCase << ' ' << szKind << ' ' << strField << ' ' << strValue << '\n';
}

void BitLines::AddAtans() const {
    for (std::size_t n = 0; n < atAtanCalls.size(); ++n) {
        const std::string strCall = "atan_" + std::to_string(n);
        Add(strCall + "_argument", atAtanCalls[n].dArgument);
        Elements("atan", strCall, &atAtanCalls[n].dResult, sizeof(double));
    }
    atAtanCalls.clear();
}

void BitLines::AddWorkingBlock() const {
    const auto* const pBlock = reinterpret_cast<const unsigned char*>(&m_tDualCamAlignData);
    std::size_t nEnd = 0;
    const auto AddGap = [&](std::size_t nNext) {
        if (nNext > nEnd)
            Elements("byte", "padding_at_" + std::to_string(nEnd), pBlock + nEnd, nNext - nEnd);
    };
    const auto AddField = [&](const Field& t) {
        Elements(KindOfField(t), t.szName, pBlock + t.nOffset, t.nBytes);
    };
    const auto IsDifference = [](const Field& t) { return KindOfField(t) == std::string("difference"); };
    for (const Field& t : atDataFields) {
        AddGap(t.nOffset);
        if (!IsDifference(t))
            AddField(t);
        nEnd = t.nOffset + t.nBytes;
    }
    AddGap(sizeof m_tDualCamAlignData);
    for (const Field& t : atDataFields)
        if (IsDifference(t))
            AddField(t);
}

void BitLines::AddAngles(const std::string& strPrefix, double dRx, double dRy, double dRz) const {
    Elements("difference", strPrefix + "Rx", &dRx, sizeof dRx);
    Elements("difference", strPrefix + "Ry", &dRy, sizeof dRy);
    Elements("difference", strPrefix + "Rz", &dRz, sizeof dRz);
}

void BitLines::AddParameters() const {
    for (const Field& t : atParameters)
        Elements(t.szKind, t.szName,
                 reinterpret_cast<const unsigned char*>(&m_tDualCamAlignParam) + t.nOffset, t.nBytes);
}

} // namespace compare
