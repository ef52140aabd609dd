#include "bench/support/heap_counter.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {

// The benchmarks run on one thread.
bool g_counting = false;
std::ptrdiff_t g_growth = 0;
std::ptrdiff_t g_peak = 0;

std::ptrdiff_t Held(void* p)
{
    return static_cast<std::ptrdiff_t>(malloc_usable_size(p) + sizeof(std::size_t));
}

void* Counted(void* p)
{
    if (!p) throw std::bad_alloc();
    if (g_counting) {
        g_growth += Held(p);
        if (g_growth > g_peak) g_peak = g_growth;
    }
    return p;
}

void Release(void* p) noexcept
{
    if (!p) return;
    if (g_counting) g_growth -= Held(p);
    std::free(p);
}

}  // namespace

namespace heap_counter {

void Start()
{
    g_growth = 0;
    g_peak = 0;
    g_counting = true;
}

void Stop() { g_counting = false; }
std::ptrdiff_t Growth() { return g_growth; }
std::ptrdiff_t PeakGrowth() { return g_peak; }

}  // namespace heap_counter

// The other forms of new and delete reach these through the standard library.
void* operator new(std::size_t size)
{
    return Counted(std::malloc(size ? size : 1));
}

void* operator new(std::size_t size, std::align_val_t align)
{
    const auto a = static_cast<std::size_t>(align);
    return Counted(std::aligned_alloc(a, (size + a - 1) / a * a));
}

void operator delete(void* p) noexcept
{
    Release(p);
}

void operator delete(void* p, std::size_t) noexcept
{
    Release(p);
}

void operator delete(void* p, std::align_val_t) noexcept
{
    Release(p);
}

void operator delete(void* p, std::size_t, std::align_val_t) noexcept
{
    Release(p);
}
