// The simulated target with a hole: bytes of one space in [from, to) cannot
// be read, as on a chip whose memory there does not answer.
#pragma once

#include "demo/debugger/simulated_target.h"

class PatchyTarget : public DebugTarget {
public:
    PatchyTarget(std::uint32_t space, std::uint32_t from, std::uint32_t to) : m_space(space), m_from(from), m_to(to) {}

    bool Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) override
    {
        const bool hole = space == m_space && address < m_to && address + out.size() > m_from;
        return !hole && m_inner.Read(space, address, out);
    }
    bool Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes) override
    {
        return m_inner.Write(space, address, bytes);
    }
    void Step() override { m_inner.Step(); }

private:
    SimulatedTarget m_inner;
    std::uint32_t m_space;
    std::uint32_t m_from;
    std::uint32_t m_to;
};
