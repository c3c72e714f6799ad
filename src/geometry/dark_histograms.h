#pragma once

#include "core/plane.h"
#include "core/scratch.h"

#include <optional>
#include <span>

namespace orvex {

// Dark pixels per column and per row, as doubles.
struct DarkHistograms {
    Scratch<double> pColumns;
    Scratch<double> pRows;
    PictureSize tSize;

    std::span<double> Columns() const { return {pColumns.get(), static_cast<std::size_t>(tSize.nWidth)}; }
    std::span<double> Rows() const { return {pRows.get(), static_cast<std::size_t>(tSize.nHeight)}; }
};

// Counts the pixels of value 0 inside the rectangle; nothing without memory.
std::optional<DarkHistograms> CountDark(PlaneView tBinary, Rect tRect);

// The first entry that is not empty and has more than 89 of the 100 entries behind it not empty; entries
// beyond the histogram count as empty.
std::optional<int> FirstOfDenseRun(std::span<const double> adHistogram);

// The last entry, with the 100 entries before it.
std::optional<int> LastOfDenseRun(std::span<const double> adHistogram);

} // namespace orvex
