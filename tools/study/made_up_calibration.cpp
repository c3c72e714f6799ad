#include "study/made_up_calibration.h"

#include "chart/noise.h"
#include "measuring/calibration.h"

namespace tools {
namespace {

// Two pairs of big-endian 16-bit lens positions, as the autofocus record uses them.
constexpr std::size_t kPairs[] = {13, 2911};

// Apart from the streams of the pictures' noise.
constexpr std::uint64_t kStream = 0x10000;

void PutPosition(std::string& strImage, std::size_t nPlace, unsigned int nPosition) {
    strImage[nPlace] = static_cast<char>(nPosition >> 8);
    strImage[nPlace + 1] = static_cast<char>(nPosition & 0xFF);
}

} // namespace

std::string MadeUpCalibration(std::uint64_t nSeed) {
    std::string strImage(kCalibrationBytes, '\0');
    for (std::size_t i = 0; i < strImage.size(); ++i)
        strImage[i] = static_cast<char>(chart::DerivedSeed(nSeed, kStream + i) & 0xFF);
    for (const std::size_t nPair : kPairs) {
        const auto nFirst = static_cast<unsigned char>(strImage[nPair]) + 200u;
        PutPosition(strImage, nPair, nFirst);
        PutPosition(strImage, nPair + 2, nFirst + static_cast<unsigned char>(strImage[nPair + 2]) + 150u);
    }
    return strImage;
}

} // namespace tools
