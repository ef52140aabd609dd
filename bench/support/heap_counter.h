// What operator new hands out, for benchmarks that report memory. The program
// that links heap_counter.cpp sees every new and delete, the library's
// included; between Start and Stop it counts what is allocated less what is
// freed, and the most that was at any moment. A block counts as the allocator
// holds it: its usable size and the word in front of it. Outside that window
// nothing is counted, so timed code pays a test of a flag.
#pragma once

#include <cstddef>

namespace heap_counter {

void Start();
void Stop();
// Since Start: negative when more was freed than allocated.
std::ptrdiff_t Growth();
std::ptrdiff_t PeakGrowth();

}  // namespace heap_counter
