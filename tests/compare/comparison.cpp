#include "compare/comparison.h"

#include <cstdint>
#include <sstream>

namespace compare {
namespace {

struct Line {
    std::string strPair, strKind, strField, strHex;
    bool bRead;

    explicit Line(std::istream& t) {
        std::string str;
        bRead = static_cast<bool>(std::getline(t, str));
        std::istringstream(str) >> strPair >> strKind >> strField >> strHex;
    }
    std::string Name() const { return "pair " + strPair + ", " + strField; }
    bool IsOfSameField(const Line& t) const {
        return strPair == t.strPair && strKind == t.strKind && strField == t.strField;
    }
};

// Neighbours among the doubles are neighbours here, from the lowest to the highest.
std::uint64_t Rank(const std::string& strHex) {
    const std::uint64_t n = std::stoull(strHex, nullptr, 16), nSign = std::uint64_t{1} << 63;
    return n & nSign ? ~n : n | nSign;
}

bool AreNeighbours(const std::string& strOne, const std::string& strOther) {
    const std::uint64_t n = Rank(strOne) - Rank(strOther);
    return n == 1 || n == ~std::uint64_t{0};
}

} // namespace

Comparison Compare(std::istream& tOne, std::istream& tOther) {
    Comparison t;
    std::string strPair;
    for (;;) {
        const Line a(tOne), b(tOther);
        if (!a.bRead && !b.bRead)
            break;
        if (!a.IsOfSameField(b)) {
            t.aDifferences.push_back(a.Name() + " stands against " + b.Name());
            break;
        }
        t.nPairs += a.strPair != strPair;
        strPair = a.strPair;
        t.nBytes += a.strHex.size() / 2;
        if (a.strHex == b.strHex)
            continue;
        const bool bLastPlace = a.strKind == "angle" && AreNeighbours(a.strHex, b.strHex);
        (bLastPlace ? t.aLastPlaces : t.aDifferences)
            .push_back(a.Name() + ": " + a.strHex + " against " + b.strHex);
    }
    if (t.nPairs == 0)
        t.aDifferences.push_back("there is no pair to compare");
    return t;
}

} // namespace compare
