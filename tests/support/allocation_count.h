// Counts the allocations made through operator new, for tests that check a
// path allocates nothing per item. Under the address sanitizer, which owns
// operator new, nothing is counted and Available() is false.
#pragma once

namespace AllocationCount {

bool Available();
// Allocations made by this process so far.
long Total();

}  // namespace AllocationCount

// Skips the test where allocations cannot be counted.
#define SKIP_WITHOUT_ALLOCATION_COUNT()                                                     \
    do {                                                                                  \
        if (!AllocationCount::Available()) GTEST_SKIP() << "allocations are not counted here"; \
    } while (false)
