#pragma once

#include "batch/row.h"

namespace tools {

// What keeps a row from being within range without doubt, worded alike for all rows that share it: a failure,
// with its status, what is unfit, or the kinds of its warnings.
std::vector<std::string> ReasonsOf(const BatchItem& tItem, const BatchRow& tRow);

// A reason in words for people.
std::string WordsOf(const std::string& strReason, const Limits& limits);

} // namespace tools
