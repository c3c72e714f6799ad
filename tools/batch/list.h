#pragma once

#include "basics/geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace tools {

// A pair by its names, as kPairColumns has them: files as in the list, which are relative to its folder.
struct PairNames {
    std::string strId; // the row's number where the list has no such column
    std::string strMaster, strSlave, strCalibration;
};

// One measurement to make.
struct BatchItem : PairNames {
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

// Reads a table whose first line names the columns. Throws ToolError; a line at fault is an item that says
// so.
BatchList ReadBatchList(const std::string& strFile);

} // namespace tools
