#pragma once

#include "Orvex_Alignment_Stages.h"
#include "support/get_align.h"

namespace support {

// All that getAlign leaves behind, as bytes; the record as its reader sees it, because its encryption never
// repeats: without it if it could not be encrypted.
struct Trace {
    unsigned int nStatus;
    std::array<double, 3> adAngles;
    std::array<unsigned char, sizeof(DualCamAlignData)> aData;
    int nReading;
    std::array<unsigned char, 622> aRecord;

    bool operator==(const Trace&) const = default;
};

// aFile: the record's bytes, as in the file or in pOutFile.
inline Trace TraceOf(unsigned int nStatus, const std::array<double, 3>& adAngles,
                     std::vector<unsigned char> aFile) {
    Trace t = {nStatus, adAngles, {}, 0, {}};
    std::memcpy(t.aData.data(), &m_tDualCamAlignData, sizeof m_tDualCamAlignData);
    std::vector<unsigned char> aCalibration = Calibration();
    int nLength = 0;
    Orvex_SpecialAFDataTransform(aCalibration.data(), ORVEX_CALIBRATION_SIZE, aFile.data(),
                                 static_cast<int>(aFile.size()), t.aRecord.data(), &nLength, &t.nReading);
    return t;
}

} // namespace support
