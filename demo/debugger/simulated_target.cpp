#include "demo/debugger/simulated_target.h"

#include "demo/debugger/traffic_program.h"

SimulatedTarget::SimulatedTarget()
{
    Traffic::Load(m_memory);
}

bool SimulatedTarget::Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out)
{
    return m_memory.Read(space, address, out);
}

bool SimulatedTarget::Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes)
{
    return m_memory.Write(space, address, bytes);
}

void SimulatedTarget::Step()
{
    Traffic::Step(m_memory);
}
