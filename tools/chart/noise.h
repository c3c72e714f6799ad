#pragma once

#include <cstdint>

namespace chart {

// A seed whose noise has nothing in common with the given seed's, nor with another stream's.
std::uint64_t DerivedSeed(std::uint64_t nSeed, std::uint64_t nStream);

// Unit noise by position: every (seed, index) has its own value, in whatever order they are asked for.
class Noise {
public:
    explicit Noise(std::uint64_t nSeed);

    // Mean 0, standard deviation 1, near-normal within +-6.
    float At(std::uint64_t nIndex) const;

private:
    std::uint64_t m_nKey;
};

} // namespace chart
