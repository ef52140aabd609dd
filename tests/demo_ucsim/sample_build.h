// The sample program built once per test run into a temporary folder, and
// the addresses of its global functions from its debug information. Tests
// call SkipReason() first: s51 and sdcc may not be installed.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "demo/debugger/ucsim/ucsim_process.h"

// Why these tests cannot run here, or empty when they can.
std::string SkipReason();
// The built traffic.ihx; builds it on first use.
const std::string& SampleHex();
// The code address of a global C function, from the build's debug information.
std::optional<std::uint32_t> FunctionAddress(const std::string& name);
// s51 started on the sample.
std::unique_ptr<UcsimProcess> StartSample(bool captureUart = true);
// Whether a child with this id is still there to signal (a zombie counts).
bool ChildExists(pid_t pid);

#define SKIP_WITHOUT_TOOLCHAIN()                                         \
    do {                                                                 \
        if (const std::string reason = SkipReason(); !reason.empty()) {  \
            GTEST_SKIP() << reason;                                      \
        }                                                                \
    } while (false)
