// What operator new has handed out, for benchmarks that report memory. The
// program that links heap_counter.cpp counts every new and delete, the
// library's included: bytes in use now, and the most in use since the peak
// was last reset. A block counts as the allocator holds it: its usable size
// and the word in front of it.
#pragma once

#include <cstddef>

namespace heap_counter {

std::size_t InUse();
std::size_t Peak();
// The peak from here on starts at what is in use now.
void ResetPeak();

}  // namespace heap_counter
