// What the debugger service needs of a target: bytes of a memory space, and
// a way to let the program run a little. The simulated target and a real
// 8051 under a simulator both sit behind it, so it stays this small.
#pragma once

#include <cstdint>
#include <span>

class DebugTarget {
public:
    virtual ~DebugTarget() = default;

    // Copies bytes from a space (a WatchSpace code) starting at address. In
    // the bit space each byte stands for one bit, 0 or 1. False when a byte
    // lies outside the space or the space has no memory; out then holds
    // nothing to rely on.
    virtual bool Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) = 0;
    // Stores bytes into a space; false, storing nothing, when the space is
    // read-only or a byte lies outside it. A bit takes any non-zero byte as 1.
    virtual bool Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes) = 0;
    // Lets the program run one step.
    virtual void Step() = 0;
};
