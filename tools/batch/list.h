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
    std::size_t nLine;                 // in the list, from 1
    std::string strFault;              // what keeps it from being measured; empty otherwise
    std::vector<std::string> aFurther; // values of the list's other columns, which the rows repeat
};

struct BatchList {
    std::string strFile;
    std::string strFolder;
    bool bHasIds;
    std::vector<std::string> aFurtherNames; // of the other columns, as the rows have them
    std::vector<BatchItem> aItems;
};

// With which a fault in that line begins: "line 3 of the list: "
std::string PlaceInList(std::size_t nLine);

// Reads a table whose first line names the columns, apart by commas, semicolons or tabs. Throws ToolError; a
// line at fault is an item that says so.
BatchList ReadBatchList(const std::string& strFile);

} // namespace tools
