#pragma once

#include <random>

namespace support {

// The same numbers in every standard library: its engines are fixed, its distributions are not. Two calls in
// the arguments of one function or on both sides of an operator come in the compiler's order: between braces
// they come in the written one.
class Random {
public:
    explicit Random(unsigned int nSeed) : m_tEngine(nSeed) {}
    int Int(int nFirst, int nLast) {
        return nFirst + static_cast<int>(m_tEngine() % static_cast<unsigned int>(nLast - nFirst + 1));
    }
    double Real(double dFirst, double dLast) {
        return dFirst + (dLast - dFirst) * (static_cast<double>(m_tEngine()) / 4294967295.0);
    }

private:
    std::mt19937 m_tEngine;
};

} // namespace support
