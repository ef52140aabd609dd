// What a real target adds to DebugTarget: code breakpoints, running to them
// and the program counter. The simulated target has no code to stop in, so
// this lives apart from DebugTarget and only a real target implements it.
#pragma once

#include <cstdint>
#include <optional>

class ExecutionControl {
public:
    virtual ~ExecutionControl() = default;

    // A breakpoint at a code address; true when it is set (or already was).
    virtual bool SetBreakpoint(std::uint32_t address) = 0;
    // False when there was none at address.
    virtual bool ClearBreakpoint(std::uint32_t address) = 0;
    // Runs the program until a breakpoint stops it, and returns then: true
    // when it stopped, false when it did not within the target's bound.
    virtual bool Run() = 0;
    // Where the program stopped; nothing when the target cannot say.
    virtual std::optional<std::uint32_t> ProgramCounter() = 0;
};
