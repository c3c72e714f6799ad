#pragma once

#include "Orvex_Alignment.h"

#include "chart/pair.h"
#include "support/plane.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace support {

struct Picture {
    int nColumns;
    int nRows;
    std::vector<unsigned char> aPixels;

    Picture(const chart::Shot& t) : nColumns(t.nWidth), nRows(t.nHeight), aPixels(t.aGrey) {}
    Picture(const Plane& t) : nColumns(t.nColumns), nRows(t.nRows), aPixels(t.aPixels) {}

    // A copy that getAlign may free.
    unsigned char* OnHeap() const {
        auto* const p = static_cast<unsigned char*>(std::malloc(aPixels.size()));
        std::memcpy(p, aPixels.data(), aPixels.size());
        return p;
    }
};

// Calibration memory with two plausible focus pairs.
inline std::vector<unsigned char> Calibration() {
    std::vector<unsigned char> a(ORVEX_CALIBRATION_SIZE);
    for (std::size_t i = 0; i < a.size(); ++i)
        a[i] = static_cast<unsigned char>(i * 37 + 11);
    constexpr std::array<unsigned char, 4> aFirst = {2, 88, 1, 44}, aSecond = {1, 200, 3, 9};
    std::copy(aFirst.begin(), aFirst.end(), a.begin() + 13);
    std::copy(aSecond.begin(), aSecond.end(), a.begin() + 2911);
    return a;
}

// What is not written stays as it is here.
struct AlignResult {
    static constexpr double dUntouched = 77.0;

    AlignResult() { aFile.fill(0xC3C3); }

    std::vector<unsigned char> Record() const {
        const auto* const p = reinterpret_cast<const unsigned char*>(aFile.data());
        return {p, p + 194};
    }

    unsigned int nStatus = 0;
    double dRx = dUntouched, dRy = dUntouched, dRz = dUntouched;
    std::array<unsigned short, ORVEX_OUT_FILE_CAPACITY / 2> aFile;
};

inline AlignResult Align(const Picture& tMaster, const Picture& tSlave) {
    nWidth = tMaster.nColumns;
    nHeight = tMaster.nRows;
    nWidth_Slave = tSlave.nColumns;
    nHeight_Slave = tSlave.nRows;
    std::vector<unsigned char> aCalibration = Calibration();
    AlignResult t;
    t.nStatus = getAlign(tMaster.OnHeap(), tSlave.OnHeap(), &t.dRx, &t.dRy, &t.dRz, aCalibration.data(),
                         t.aFile.data());
    return t;
}

// A pair with the given relative rotation, blur 0.8 px, noise of 2 grey levels.
inline chart::Pair NoisyPair(const chart::Pose& tMaster, const chart::Pose& tRelative, std::uint64_t nSeed) {
    chart::PairSetup t;
    t.tMasterPose = tMaster;
    t.tRelativePose = tRelative;
    t.tMasterCapture.dBlurSigma = t.tSlaveCapture.dBlurSigma = 0.8;
    t.tMasterCapture.dNoiseSigma = t.tSlaveCapture.dNoiseSigma = 2.0;
    t.tMasterCapture.nSeed = t.tSlaveCapture.nSeed = nSeed;
    return chart::RenderPair(t);
}

} // namespace support
