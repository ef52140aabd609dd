// A target that is no chip: the 8051's memories in this process, running the
// sample traffic-light program one main-loop pass per step.
#pragma once

#include "demo/debugger/debug_target.h"
#include "demo/debugger/target_memory.h"

class SimulatedTarget : public DebugTarget {
public:
    // Loaded and started: memory holds what the program's start-up leaves.
    SimulatedTarget();

    bool Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) override;
    bool Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes) override;
    void Step() override;

private:
    TargetMemory m_memory;
};
