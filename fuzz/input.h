#pragma once

#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <vector>

namespace fuzz {

// Values that a target draws from its bytes. Where the bytes have run out every draw gives its first choice,
// which targets make the ordinary one: an empty input is a good measurement, and every byte takes something
// away from it.
class Input {
public:
    Input(const std::uint8_t* pBytes, std::size_t nBytes) : m_t(pBytes, nBytes) {}

    int Int(int nFirst, int nLast) { return m_t.ConsumeIntegralInRange(nFirst, nLast); }

    // Once in n values, never without bytes.
    bool OneIn(int n) { return Int(0, n - 1) == 1; }

    unsigned char Byte(unsigned char ubOrdinary = 0) {
        return static_cast<unsigned char>(ubOrdinary ^ Int(0, 255));
    }

    // -nLargest to nLargest, 0 first.
    int Around0(int nLargest) {
        const int n = Int(0, 2 * nLargest);
        return n % 2 == 0 ? n / 2 : -(n + 1) / 2;
    }

    // The ordinary coordinate, one in or near a picture of that length, or one at the numbers' limits.
    int Coordinate(int nOrdinary, int nLength) {
        constexpr std::array an = {INT_MIN, INT_MIN + 1, -65536,  -1,          0,
                                   65535,   65536,       INT_MAX, INT_MAX - 1, INT_MAX / 2};
        const int nKind = Int(0, 15);
        if (nKind < 6)
            return nOrdinary + Around0(nKind * 4);
        return nKind < 14 ? Int(-20, nLength + 20) : Pick(an);
    }

    // The ordinary value, one up to four times as large, or any bit pattern at all.
    double Real(double dOrdinary) {
        constexpr std::array ad = {0.0, -0.0, 1e-300, 1e300, -1e300, 4294967296.0};
        const int nKind = Int(0, 15);
        if (nKind < 12)
            return nKind < 6 ? dOrdinary : dOrdinary * Around0(1000) / 250;
        return nKind < 14 ? Pick(ad) : std::bit_cast<double>(m_t.ConsumeIntegral<std::uint64_t>());
    }

    float Float(float fOrdinary) { return static_cast<float>(Real(static_cast<double>(fOrdinary))); }

    template <typename Array>
    typename Array::value_type Pick(const Array& a) {
        return a[static_cast<std::size_t>(Int(0, static_cast<int>(a.size()) - 1))];
    }

    // At most nMost bytes.
    std::vector<unsigned char> Bytes(int nMost) {
        return m_t.ConsumeBytes<unsigned char>(static_cast<std::size_t>(Int(0, nMost)));
    }
    std::vector<unsigned char> Rest() { return m_t.ConsumeRemainingBytes<unsigned char>(); }

private:
    FuzzedDataProvider m_t;
};

} // namespace fuzz
