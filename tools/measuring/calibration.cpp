#include "measuring/calibration.h"

#include "Orvex_Alignment.h"
#include "basics/files.h"
#include "basics/tool_error.h"

#include <fmt/format.h>

namespace tools {
namespace {

static_assert(kCalibrationBytes == ORVEX_CALIBRATION_SIZE);

constexpr std::size_t kLimit = 1 << 20;

} // namespace

std::string ReadCalibration(const std::string& strFile) {
    std::string strImage = ReadFile(strFile, kLimit);
    if (strImage.size() < kCalibrationBytes)
        throw ToolError(strFile,
                        fmt::format("is too short for a calibration image: {} bytes, needed are {}",
                                    strImage.size(), kCalibrationBytes),
                        "Read the module's calibration memory again");
    return strImage;
}

} // namespace tools
