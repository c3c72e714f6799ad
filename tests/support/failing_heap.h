#pragma once

#include <cstddef>

namespace support {

// Watches the heap of the whole program, with all its libraries, and makes one allocation fail.
void WatchHeap(int nFailing, std::size_t nLeastBytes = 0); // the n-th of at least so many bytes; 0: none
void StopWatching();

// Of the time it was last watched.
int Allocations();
int LivingAllocations();              // made and not freed
bool IsLiving(const void* p);         // one of those
int FreesOfOlder(const void* pFreed); // how often this block, allocated before, was freed

} // namespace support
