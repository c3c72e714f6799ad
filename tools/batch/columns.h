#pragma once

#include "basics/json.h"
#include "batch/row.h"

namespace tools {

// A measurement or trust number in the rows.
struct NumberColumn {
    std::string strName;  // ends in the unit: "raw_rx_deg"
    std::string strKey;   // in the object that measure prints: "raw_deg/rx"
    std::string strLabel; // for people
    bool bWhole;          // it counts something
};

// The raw angles come first.
const std::vector<NumberColumn>& NumberColumns();

// The rows' own columns in their order; a list's others follow them.
const std::vector<std::string>& BatchColumns();

// What measure's object says of this pair. Throws Json::exception if it is no such object.
BatchRow RowOfAnswer(const PairNames& tNames, const Json& tAnswer);

// A row's values in the columns' order, null where there is none; and back, from numbers or their text,
// unless the values are no row's.
std::vector<Json> CellsOf(const BatchRow& tRow);
std::optional<BatchRow> RowOfCells(const std::vector<Json>& aCells);

} // namespace tools
