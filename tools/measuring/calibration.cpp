#include "measuring/calibration.h"

#include "basics/files.h"
#include "basics/tool_error.h"

namespace tools {
namespace {

constexpr std::size_t kLimit = 1 << 20;

} // namespace

std::string ReadCalibration(const std::string& strFile) {
    std::string strImage = ReadFile(strFile, kLimit);
    if (strImage.size() < kCalibrationBytes)
        throw ToolError(strFile,
                        "is too short for a calibration image: " + std::to_string(strImage.size()) +
                            " bytes, needed are " + std::to_string(kCalibrationBytes),
                        "Read the module's calibration memory again");
    return strImage;
}

} // namespace tools
