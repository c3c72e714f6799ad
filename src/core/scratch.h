#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace orvex {

struct FreeMemory {
    void operator()(void* p) const { std::free(p); }
};

// A zeroed array that lives for one call. Null without memory: nothing throws in this library.
template <typename Value>
using Scratch = std::unique_ptr<Value[], FreeMemory>;

template <typename Value>
Scratch<Value> MakeScratch(std::size_t nCount) {
    return Scratch<Value>(static_cast<Value*>(std::calloc(nCount, sizeof(Value))));
}

} // namespace orvex
