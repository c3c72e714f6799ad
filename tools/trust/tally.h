#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tools {

// How often each whole number below kNumbers comes up in a walk over pixels. Neighbours are counted apart:
// one that equals the one before it need not wait for its count.
template <std::size_t kNumbers>
class Tally {
public:
    // Numbers in the order of the walk.
    template <typename Number>
    void Add(std::span<const Number> a) {
        std::size_t n = 0;
        for (; n + kApart <= a.size(); n += kApart)
            for (std::size_t i = 0; i < kApart; ++i)
                ++m_aan[i][a[n + i]];
        for (; n < a.size(); ++n)
            ++m_aan[0][a[n]];
    }

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
