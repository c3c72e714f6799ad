#pragma once

#include "image/dark_bits.h"

#include <optional>
#include <span>

namespace orvex {

// Dark pixels per column and per row of a picture, as doubles.
struct DarkHistograms {
    Scratch<double> pCounts; // the columns', then the rows'
    PictureSize tSize;

    std::span<double> Columns() const { return {pCounts.get(), static_cast<std::size_t>(tSize.nWidth)}; }
    std::span<double> Rows() const {
        return {pCounts.get() + tSize.nWidth, static_cast<std::size_t>(tSize.nHeight)};
    }
};

// Counts the dark pixels of the rectangle, which lies in that of the bits or is empty; nothing without
// memory.
std::optional<DarkHistograms> CountDark(const DarkBits& tDark, PictureSize tSize, Rect tRect);

// The first entry that is not empty and has more than 89 of the 100 entries behind it not empty; entries
// beyond the histogram count as empty.
std::optional<int> FirstOfDenseRun(std::span<const double> adHistogram);

// The last entry, with the 100 entries before it.
std::optional<int> LastOfDenseRun(std::span<const double> adHistogram);

} // namespace orvex
