#pragma once

#include "require.h"

#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

// A file that no disk holds, for readers that take a name.
class MemoryFile {
public:
    MemoryFile() : m_nFile(memfd_create("input", 0)) { Require(m_nFile >= 0, "a file in memory"); }
    ~MemoryFile() { close(m_nFile); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void Hold(std::string_view str) const {
        const bool bHeld = ftruncate(m_nFile, 0) == 0 &&
                           pwrite(m_nFile, str.data(), str.size(), 0) == static_cast<ssize_t>(str.size());
        Require(bHeld, "the file holds the input");
    }
    std::string Name() const { return "/proc/self/fd/" + std::to_string(m_nFile); }

private:
    int m_nFile;
};

} // namespace fuzz
