#pragma once

#include "pictures/picture.h"

namespace tools {

// Two pictures side by side, as small as people still see what is wrong, as the bytes of a PNG file.
std::string ThumbnailOf(const Picture& tLeft, const Picture& tRight);

} // namespace tools
