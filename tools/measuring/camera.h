#pragma once

namespace tools {

enum class Camera { kMaster, kSlave };

constexpr const char* NameOf(Camera tCamera) {
    return tCamera == Camera::kMaster ? "master" : "slave";
}

} // namespace tools
