#include "compare/comparison.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <optional>
#include <sstream>

namespace compare {
namespace {

struct Line {
    std::string strCase, strKind, strField, strHex;
    bool bRead;

    explicit Line(std::istream& t) {
        std::string str;
        bRead = static_cast<bool>(std::getline(t, str));
        std::istringstream(str) >> strCase >> strKind >> strField >> strHex;
    }
    std::string Name() const { return strCase + ", " + strField; }
    bool IsOfSameField(const Line& t) const {
        return strCase == t.strCase && strKind == t.strKind && strField == t.strField;
    }
};

double ValueOf(const std::string& strHex) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(std::stoull(strHex, nullptr, 16)));
}

// An element's value in words: a number is nothing to read in bits.
std::string InWords(const std::string& strKind, const std::string& strHex) {
    std::ostringstream t;
    if (strKind == "float")
        t << std::setprecision(9)
          << std::bit_cast<float>(static_cast<std::uint32_t>(std::stoull(strHex, nullptr, 16)));
    else if (strKind == "int")
        t << static_cast<std::int32_t>(std::stoull(strHex, nullptr, 16));
    else if (strHex.size() == 16 && strKind != "digest")
        t << std::setprecision(17) << ValueOf(strHex);
    else
        return strHex;
    return t.str() + " (" + strHex + ")";
}

std::size_t Digits(const std::string& strKind) {
    if (strKind == "byte")
        return 2;
    if (strKind == "short")
        return 4;
    return strKind == "int" || strKind == "float" ? 8 : 16;
}

// Both values, of an array the first element in which they differ.
std::string Apart(Line a, Line b) {
    for (auto* const p : {&a, &b})
        if (p->strHex == "0")
            p->strHex.assign(std::max(a.strHex.size(), b.strHex.size()), '0');
    if (a.strKind == "text" || a.strHex.size() != b.strHex.size())
        return a.Name() + ": " + a.strHex + " against " + b.strHex;
    const std::size_t nDigits = Digits(a.strKind), nElements = a.strHex.size() / nDigits;
    std::size_t n = 0;
    while (n + 1 < nElements && a.strHex.compare(n * nDigits, nDigits, b.strHex, n * nDigits, nDigits) == 0)
        ++n;
    const auto Element = [&](const Line& t) {
        return InWords(t.strKind, t.strHex.substr(n * nDigits, nDigits));
    };
    const std::string strElement = nElements > 1 ? '[' + std::to_string(n) + ']' : std::string();
    return a.Name() + strElement + ": " + Element(a) + " against " + Element(b);
}

// Neighbours among the doubles are neighbours here, from the lowest to the highest.
std::uint64_t Rank(double d) {
    const auto n = std::bit_cast<std::uint64_t>(d), nSign = std::uint64_t{1} << 63;
    return n & nSign ? ~n : n | nSign;
}

std::uint64_t UnitsBetween(double dOne, double dOther) {
    const std::uint64_t n = Rank(dOne), nOther = Rank(dOther);
    return n > nOther ? n - nOther : nOther - n;
}

// What the C library's atan excuses in one pair. Its result may be off by one unit in the last place; scaled
// to degrees that is up to two units, or one of single precision where the angle passes through it. What is a
// difference of such angles moves by no more than they did, and by the roundings of subtracting and
// rescaling.
class Excuses {
public:
    bool Cover(const std::string& strKind, const std::string& strOne, const std::string& strOther) {
        const auto pUnits = m_aUnits.find(strKind);
        if (pUnits == m_aUnits.end())
            return false;
        const double dOne = ValueOf(strOne), dOther = ValueOf(strOther), dApart = std::fabs(dOne - dOther);
        if (strKind == "difference")
            return m_dMoved > 0.0 && dApart <= m_dMoved + 5 * UnitOf(dOne);
        if ((strKind != "atan" && !m_bAtanDiffers) || UnitsBetween(dOne, dOther) > pUnits->second)
            return false;
        m_bAtanDiffers = true;
        m_dMoved += strKind == "atan" ? 0.0 : dApart;
        return true;
    }

private:
    static double UnitOf(double d) { return std::nextafter(std::fabs(d), HUGE_VAL) - std::fabs(d); }

    const std::map<std::string, std::uint64_t> m_aUnits = {
        {"atan", 1}, {"angle", 2}, {"single", std::uint64_t{1} << 29}, {"difference", 0}};
    bool m_bAtanDiffers = false;
    double m_dMoved = 0.0;
};

} // namespace

Comparison Compare(std::istream& tOne, std::istream& tOther, std::size_t nLeastRendered) {
    Comparison t;
    std::string strCase;
    std::optional<Excuses> tExcuses;
    for (;;) {
        const Line a(tOne), b(tOther);
        if (!a.bRead && !b.bRead)
            break;
        if (!a.IsOfSameField(b)) {
            t.aDifferences.push_back(a.Name() + " stands against " + b.Name());
            break;
        }
        if (a.strCase != strCase)
            tExcuses.emplace();
        strCase = a.strCase;
        if (a.strKind == "count")
            ++t.aCounts[a.strField];
        t.nBytes += a.strHex.size() / 2;
        if (a.strHex == b.strHex)
            continue;
        const bool bExcused = tExcuses->Cover(a.strKind, a.strHex, b.strHex);
        (bExcused ? t.aLastPlaces : t.aDifferences).push_back(Apart(a, b));
    }
    if (t.aCounts["rendered"] < nLeastRendered)
        t.aDifferences.push_back("only " + std::to_string(t.aCounts["rendered"]) + " rendered pairs, not " +
                                 std::to_string(nLeastRendered));
    return t;
}

} // namespace compare
