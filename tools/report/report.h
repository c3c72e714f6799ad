#ifndef ORVEX_TOOLS_REPORT_REPORT_H
#define ORVEX_TOOLS_REPORT_REPORT_H

#include "measuring/truth.h"
#include "measuring/verdict.h"
#include "trust/trust.h"

namespace tools {

// A picture's name and size, without its pixels.
struct PictureNote {
    std::string strFile;
    int nColumns;
    int nRows;
};

// All that one call of measure has to say.
struct Report {
    PictureNote tMaster, tSlave;
    std::string strCalibrationFile;
    std::string strRecordFile; // empty unless it was written
    Measurement tMeasurement;
    Verdict tVerdict;
    std::optional<Truth> oTruth;
    StageViews tViews;
    CameraTrust tMasterTrust, tSlaveTrust;
};

// Of both cameras.
std::vector<std::string> WarningsOf(const Report& t);

// For people.
std::string TextOf(const Report& t);

// For programs: one object.
std::string JsonTextOf(const Report& t);

} // namespace tools

#endif
