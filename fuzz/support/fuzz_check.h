// A promise the code under fuzzing makes, checked: when it breaks, the
// condition and its place are printed and the run aborts, so libFuzzer keeps
// the input as a finding.
#pragma once

#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                                   \
    do {                                                                                        \
        if (!(condition)) {                                                                     \
            std::fprintf(stderr, "%s:%d: broken promise: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                       \
        }                                                                                       \
    } while (0)
