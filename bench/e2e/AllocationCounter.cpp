#include "e2e/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::atomic<std::size_t> live{0};
std::atomic<std::size_t> peak{0};

void* allocate(std::size_t size) {
    void* block = std::malloc(size ? size : 1);
    if (!block)
        throw std::bad_alloc();
    const std::size_t bytes = malloc_usable_size(block);
    const std::size_t now = live.fetch_add(bytes, std::memory_order_relaxed) + bytes;
    for (std::size_t high = peak.load(std::memory_order_relaxed);
         now > high && !peak.compare_exchange_weak(high, now, std::memory_order_relaxed);) {
    }
    return block;
}

void release(void* block) noexcept {
    if (!block)
        return;
    live.fetch_sub(malloc_usable_size(block), std::memory_order_relaxed);
    std::free(block);
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
// The standard library's temporary buffers (std::stable_sort) allocate without throwing and free
// through the plain delete, so these must come from the same heap.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }

namespace orvel::bench {

std::size_t liveHeapBytes() { return live.load(std::memory_order_relaxed); }

std::size_t peakHeapBytes() { return peak.load(std::memory_order_relaxed); }

void resetPeakHeapBytes() { peak.store(live.load(std::memory_order_relaxed), std::memory_order_relaxed); }

} // namespace orvel::bench
