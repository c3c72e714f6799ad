#ifndef ORVEX_TOOLS_MEASURING_CAMERA_H
#define ORVEX_TOOLS_MEASURING_CAMERA_H

namespace tools {

enum class Camera { kMaster, kSlave };

constexpr const char* NameOf(Camera tCamera) {
    return tCamera == Camera::kMaster ? "master" : "slave";
}

} // namespace tools

#endif
