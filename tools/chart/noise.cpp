#include "chart/noise.h"

namespace chart {

namespace {

// 2^64 divided by the golden ratio, odd: spreads successive counters over the whole range.
constexpr std::uint64_t kStride = 0x9E3779B97F4A7C15u;

// Three words of four 16-bit draws: with twelve uniform draws on [0, 2^16) the sum's standard deviation is
// 2^16 to one part in 10^10.
constexpr std::uint64_t kWordsPerValue = 3;
constexpr std::int32_t kMeanOfSum = 12 * 65535 / 2;
constexpr float kPerDeviation = 1.0f / 65536.0f;

constexpr std::uint64_t kEvenDraws = 0x0000FFFF0000FFFFu;

// The finishing steps of the splitmix64 generator (Steele, Lea, Flood: Fast splittable pseudorandom number
// generators, 2014), with the shifts and factors of its published variant 13.
std::uint64_t Mixed(std::uint64_t n) {
    n = (n ^ (n >> 30)) * 0xBF58476D1CE4E5B9u;
    n = (n ^ (n >> 27)) * 0x94D049BB133111EBu;
    return n ^ (n >> 31);
}

// Two sums of two draws each, in the word's halves.
std::uint64_t PairedDraws(std::uint64_t nWord) {
    return (nWord & kEvenDraws) + ((nWord >> 16) & kEvenDraws);
}

} // namespace

std::uint64_t DerivedSeed(std::uint64_t nSeed, std::uint64_t nStream) {
    return Mixed(Mixed(nSeed + kStride) + nStream);
}

Noise::Noise(std::uint64_t nSeed) : m_nKey(Mixed(nSeed + kStride)) {}

float Noise::At(std::uint64_t nIndex) const {
    const std::uint64_t nFirst = m_nKey + kStride * (kWordsPerValue * nIndex);
    const std::uint64_t nPairs = PairedDraws(Mixed(nFirst + kStride)) +
                                 PairedDraws(Mixed(nFirst + 2 * kStride)) +
                                 PairedDraws(Mixed(nFirst + 3 * kStride));
    const auto nSum = static_cast<std::int32_t>((nPairs & 0xFFFFFFFFu) + (nPairs >> 32));
    return static_cast<float>(nSum - kMeanOfSum) * kPerDeviation;
}

} // namespace chart
