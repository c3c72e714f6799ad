#include "support/failing_heap.h"

#include <algorithm>
#include <array>
#include <cerrno>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);
}

namespace {

// Pointers in the order they were kept; itself without heap.
class Pointers {
public:
    void Add(const void* p) {
        if (p != nullptr && m_n < static_cast<int>(m_ap.size()))
            m_ap[static_cast<std::size_t>(m_n++)] = p;
    }
    bool Remove(const void* p) {
        const auto pEnd = m_ap.begin() + m_n, pFound = std::find(m_ap.begin(), pEnd, p);
        if (pFound == pEnd)
            return false;
        *pFound = *(pEnd - 1);
        --m_n;
        return true;
    }
    int Count(const void* p) const {
        return static_cast<int>(std::count(m_ap.begin(), m_ap.begin() + m_n, p));
    }
    int Size() const { return m_n; }
    void Clear() { m_n = 0; }

private:
    std::array<const void*, 4096> m_ap = {};
    int m_n = 0;
};

bool g_bWatching = false;
int g_nFailing = 0;
std::size_t g_nLeastBytes = 0;
int g_nAllocations = 0;
Pointers g_tLiving, g_tOlderFreed;

bool Fails(std::size_t nBytes) {
    return g_bWatching && nBytes >= g_nLeastBytes && ++g_nAllocations == g_nFailing;
}

void* Kept(void* p) {
    if (g_bWatching)
        g_tLiving.Add(p);
    return p;
}

void Forget(const void* p) {
    if (g_bWatching && p != nullptr && !g_tLiving.Remove(p))
        g_tOlderFreed.Add(p);
}

void* OutOfMemory() {
    errno = ENOMEM;
    return nullptr;
}

} // namespace

// These stand in front of the C library's, also for the shared libraries.
extern "C" void* malloc(std::size_t nBytes) {
    return Fails(nBytes) ? OutOfMemory() : Kept(__libc_malloc(nBytes));
}
extern "C" void* calloc(std::size_t nCount, std::size_t nSize) {
    return Fails(nCount * nSize) ? OutOfMemory() : Kept(__libc_calloc(nCount, nSize));
}
extern "C" void* realloc(void* p, std::size_t nBytes) {
    if (Fails(nBytes))
        return OutOfMemory();
    Forget(p);
    return Kept(__libc_realloc(p, nBytes));
}
extern "C" int posix_memalign(void** pp, std::size_t nAlignment, std::size_t nBytes) {
    *pp = Fails(nBytes) ? nullptr : Kept(__libc_memalign(nAlignment, nBytes));
    return *pp == nullptr ? ENOMEM : 0;
}
extern "C" void free(void* p) {
    Forget(p);
    __libc_free(p);
}

namespace support {

void WatchHeap(int nFailing, std::size_t nLeastBytes) {
    g_nFailing = nFailing;
    g_nLeastBytes = nLeastBytes;
    g_nAllocations = 0;
    g_tLiving.Clear();
    g_tOlderFreed.Clear();
    g_bWatching = true;
}

void StopWatching() {
    g_bWatching = false;
}

int Allocations() {
    return g_nAllocations;
}

int LivingAllocations() {
    return g_tLiving.Size();
}

bool IsLiving(const void* p) {
    return g_tLiving.Count(p) == 1;
}

int FreesOfOlder(const void* pFreed) {
    return g_tOlderFreed.Count(pFreed);
}

} // namespace support
