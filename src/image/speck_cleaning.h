#pragma once

#include "image/dark_bits.h"

namespace orvex {

// One sweep over the bits' rectangle, in place and in raster order: a bright pixel with more than 4 dark
// neighbours of 8 becomes dark, a dark one with fewer than 3 becomes bright. What lies outside the rectangle
// is bright. Neighbours are addressed by linear index: where the rectangle is as wide as the picture, a row's
// last pixel and the first one of the next are neighbours.
void CleanSpecks(PictureSize tSize, DarkBits* pBits);

} // namespace orvex
