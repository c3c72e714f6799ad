#pragma once

namespace support {

// Whether the public header knows the number as a measurement's status, of one that got its pictures.
inline bool IsDocumented(unsigned int n) {
    return n == 0 || (n >= 0x1010004 && n <= 0x1010016) || (n >= 0x101001A && n <= 0x1010022) ||
           n == 0x1020015;
}

} // namespace support
