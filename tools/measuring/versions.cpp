#include "measuring/versions.h"

#include "Orvex_Alignment.h"

#include <cstdlib>
#include <memory>
#include <new>

namespace tools {

std::string ToolVersion() {
    return ORVEX_VERSION;
}

std::string LibraryVersion() {
    const std::unique_ptr<char, decltype(&std::free)> pVersion(getVersion(), &std::free);
    if (!pVersion)
        throw std::bad_alloc();
    return pVersion.get();
}

} // namespace tools
