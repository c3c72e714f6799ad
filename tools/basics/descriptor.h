#pragma once

#include <unistd.h>
#include <utility>

namespace tools {

// An open file, pipe or the like, which ends with it; -1 for none.
class Descriptor {
public:
    explicit Descriptor(int n = -1) : m_n(n) {}
    Descriptor(Descriptor&& t) noexcept : m_n(std::exchange(t.m_n, -1)) {}
    Descriptor& operator=(Descriptor&& t) noexcept {
        std::swap(m_n, t.m_n);
        return *this;
    }
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return m_n; }
    bool IsOpen() const { return m_n != -1; }

    // False with the reason in errno; nothing is open afterwards in any case.
    bool Close() { return !IsOpen() || close(std::exchange(m_n, -1)) == 0; }

private:
    int m_n;
};

} // namespace tools
