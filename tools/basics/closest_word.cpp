#include "basics/closest_word.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tools {
namespace {

constexpr std::size_t kOtherLetters = 2;

// How many letters must be put in, left out or changed to make one word of the other; of words that differ in
// length no more than that.
std::size_t Distance(const std::string& strOne, const std::string& strOther) {
    const auto [nShort, nLong] = std::minmax({strOne.size(), strOther.size()});
    if (nLong - nShort > kOtherLetters)
        return nLong - nShort;
    std::vector<std::size_t> an(strOther.size() + 1);
    std::iota(an.begin(), an.end(), std::size_t{0});
    for (std::size_t i = 0; i < strOne.size(); ++i) {
        std::size_t nDiagonal = std::exchange(an[0], i + 1);
        for (std::size_t j = 0; j < strOther.size(); ++j) {
            const std::size_t nChanged = nDiagonal + (strOne[i] == strOther[j] ? 0 : 1);
            nDiagonal = an[j + 1];
            an[j + 1] = std::min({nChanged, an[j] + 1, nDiagonal + 1});
        }
    }
    return an.back();
}

} // namespace

std::optional<std::string> ClosestWord(const std::string& strTyped, const std::vector<std::string>& aKnown) {
    const auto p =
        std::ranges::min_element(aKnown, {}, [&](const std::string& str) { return Distance(str, strTyped); });
    return p == aKnown.end() || Distance(*p, strTyped) > kOtherLetters ? std::nullopt : std::optional(*p);
}

} // namespace tools
