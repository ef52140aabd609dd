#include "bench/support/heap_counter.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {

// The benchmarks run on one thread.
std::size_t g_inUse = 0;
std::size_t g_peak = 0;

std::size_t Held(void* p)
{
    return malloc_usable_size(p) + sizeof(std::size_t);
}

void* Counted(void* p)
{
    if (!p) throw std::bad_alloc();
    g_inUse += Held(p);
    if (g_inUse > g_peak) g_peak = g_inUse;
    return p;
}

void Release(void* p) noexcept
{
    if (!p) return;
    g_inUse -= Held(p);
    std::free(p);
}

}  // namespace

namespace heap_counter {

std::size_t InUse() { return g_inUse; }
std::size_t Peak() { return g_peak; }
void ResetPeak() { g_peak = g_inUse; }

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
