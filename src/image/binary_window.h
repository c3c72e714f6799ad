#pragma once

#include "image/centre_window.h"

namespace orvex {

constexpr unsigned char ubDark = 0;
constexpr unsigned char ubBright = 255;

// Grey threshold from the window's four corner patches, which show the chart's white: dRatio times their
// mean.
double CornerPatchThreshold(PlaneView tGrey, CentreWindow tWindow, double dRatio);

// Bytes of white that must lie before and behind a plane whose specks are cleaned: neighbours are addressed
// by linear index, and those beyond the plane count as white.
constexpr std::size_t GuardBytes(PictureSize tSize) {
    return static_cast<std::size_t>(tSize.nWidth) + 1;
}

// Inside the closed window: bright where the grey value reaches the threshold, else dark. pBinary is white.
void BinariseWindow(PlaneView tGrey, CentreWindow tWindow, double dThreshold, unsigned char* pBinary);

// One sweep over the closed window, in place and in raster order: a bright pixel with more than 4 dark
// neighbours of 8 becomes dark, a dark one with fewer than 3 becomes bright. At the picture's left and right
// border the neighbour is the far end of the adjacent row, as linear addressing gives it.
void CleanSpecks(PictureSize tSize, CentreWindow tWindow, unsigned char* pBinary);

} // namespace orvex
