#ifndef ORVEX_TOOLS_BATCH_LIST_H
#define ORVEX_TOOLS_BATCH_LIST_H

#include "measuring/measurement.h"

namespace tools {

// One measurement to make. File names as in the list, which are relative to the list's folder.
struct BatchItem {
    std::string strId; // the row's number where the list has no such column
    std::string strMaster, strSlave, strCalibration;
    std::optional<Angles> oTruth;
    std::size_t nLine;    // in the list, from 1
    std::string strFault; // what keeps the line from naming a pair; empty otherwise
};

struct BatchList {
    std::string strFile;
    std::string strFolder;
    bool bHasIds;
    std::vector<BatchItem> aItems;
};

// Columns of the known rotation, degrees, in a list of rendered pairs.
constexpr std::array<const char*, 3> kTruthColumns = {"true_rx_deg", "true_ry_deg", "true_rz_deg"};

// Reads a table whose first line names the columns. Throws ToolError; a line at
// fault is an item that says so.
BatchList ReadBatchList(const std::string& strFile);

} // namespace tools

#endif
