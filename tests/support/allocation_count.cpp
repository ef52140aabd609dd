#include "tests/support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__)

bool AllocationCount::Available() { return false; }
long AllocationCount::Total() { return 0; }

#else

namespace {
std::atomic<long> g_allocations{0};
}  // namespace

bool AllocationCount::Available() { return true; }
long AllocationCount::Total() { return g_allocations.load(std::memory_order_relaxed); }

void* operator new(std::size_t size)
{
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

#endif
