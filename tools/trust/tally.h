#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tools {

// How often each whole number below kNumbers comes up in a walk over pixels. Neighbours are counted apart:
// one that equals the one before it need not wait for its count.
template <std::size_t kNumbers>
class Tally {
public:
    void Add(std::size_t nPlace, std::size_t nNumber) { ++m_aan[nPlace % kApart][nNumber]; }

    std::size_t operator[](std::size_t nNumber) const {
        std::size_t n = 0;
        for (const auto& an : m_aan)
            n += an[nNumber];
        return n;
    }

private:
    static constexpr std::size_t kApart = 4;
    std::array<std::array<std::uint32_t, kNumbers>, kApart> m_aan = {};
};

} // namespace tools
