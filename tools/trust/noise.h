#pragma once

#include "pictures/picture.h"

namespace tools {

// Standard deviation of the camera's noise, grey levels: from how far each pixel lies off the mean of its two
// neighbours in the row, by the median over the whole picture, so that edges take no part. Nothing for a
// picture of less than three columns.
std::optional<double> ReadNoise(const Picture& tPicture);

} // namespace tools
