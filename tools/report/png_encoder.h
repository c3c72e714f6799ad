#ifndef ORVEX_TOOLS_REPORT_PNG_ENCODER_H
#define ORVEX_TOOLS_REPORT_PNG_ENCODER_H

#include "pictures/picture.h"

namespace tools {

// The bytes of an 8-bit grey PNG file. Throws ToolError naming the picture.
std::string EncodePng(const Picture& picture);

} // namespace tools

#endif
