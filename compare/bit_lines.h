// Lines that hold every bit of what a measurement leaves behind, one for each field of each case:
//
//   CASE KIND FIELD VALUE    the field's elements, each as the hexadecimal digits of its bits; 0 if all are
//   zero CASE count WORD          what the case is or how it ended, to be counted
//
// KIND is double, float, int, short or byte; text, escaped so that it holds no blank; or digest, a checksum
// of what is too long to be kept. Of the doubles that the C library's atan has a part in it says how, and
// they stand in this order:
//
//   atan          what atan returned; its argument comes before, as a double
//   angle         computed from that in double precision
//   single        ... and rounded to single precision
//   difference    between two of those
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <type_traits>

namespace compare {

template <typename Value>
constexpr const char* KindOf() {
    using Element = std::remove_cv_t<std::remove_all_extents_t<Value>>;
    if constexpr (std::is_floating_point_v<Element>)
        return sizeof(Element) == sizeof(double) ? "double" : "float";
    else
        return sizeof(Element) == 4 ? "int" : sizeof(Element) == 2 ? "short" : "byte";
}

class BitLines {
public:
    BitLines(std::ostream& tOut, std::string strCase) : m_tOut(tOut), m_strCase(std::move(strCase)) {}

    void Count(const char* szWord) const;
    void Text(const std::string& strField, const std::string& strText) const;
    void Digest(const std::string& strField, const void* pBytes, std::size_t nBytes) const;
    // Every NaN is written alike: its sign is the processor's own.
    void Elements(const char* szKind, const std::string& strField, const void* pBytes,
                  std::size_t nBytes) const;
    // An array, a container or a number.
    template <typename Value>
    void Add(const std::string& strField, const Value& t) const {
        if constexpr (std::is_array_v<Value> || std::is_arithmetic_v<Value>)
            Elements(KindOf<Value>(), strField, &t, sizeof t);
        else
            Elements(KindOf<typename Value::value_type>(), strField, t.data(),
                     t.size() * sizeof(typename Value::value_type));
    }

    // Every call of atan since the latest AddAtans of any case.
    void AddAtans() const;
    // m_tDualCamAlignData, every byte of it in exactly one line: what lies between the fields is a field too.
    void AddWorkingBlock() const;
    // Three angles, each a difference of others.
    void AddAngles(const std::string& strPrefix, double dRx, double dRy, double dRz) const;
    // m_tDualCamAlignParam.
    void AddParameters() const;

private:
    std::ostream& m_tOut;
    std::string m_strCase;
};

} // namespace compare
