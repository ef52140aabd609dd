#include "demo/debugger/traffic_program.h"

#include <array>
#include <bit>
#include <cstring>

#include "demo/debugger/generic_pointer.h"
#include "demo/debugger/little_endian.h"
#include "demo/debugger/target_memory.h"
#include "demo/debugger/traffic_layout.h"
#include "watch/debug_protocol.h"

namespace Traffic {
namespace {

constexpr std::uint32_t kYellowSteps = 2;
// The reading climbs an eighth of a degree a step within this band.
constexpr float kCoolest = 18.0f;
constexpr float kWarmest = 26.0f;
constexpr float kDrift = 0.125f;

std::uint32_t Get(const TargetMemory& memory, std::uint32_t space, std::uint32_t address, std::size_t size)
{
    std::array<std::uint8_t, 4> bytes{};
    memory.Read(space, address, std::span(bytes).first(size));
    return LoadLittle(std::span(bytes).first(size));
}

void Put(TargetMemory& memory, std::uint32_t space, std::uint32_t address, std::size_t size, std::uint32_t value)
{
    std::array<std::uint8_t, 4> bytes{};
    StoreLittle(std::span(bytes).first(size), value);
    memory.Write(space, address, std::span(bytes).first(size));
}

// Lamps, bits and lights follow the phase; each light runs one phase ahead
// of the one before it.
void ShowPhase(TargetMemory& memory, std::uint32_t phase)
{
    Put(memory, WS_BIT, kRed, 1, phase == 0);
    Put(memory, WS_BIT, kGreen, 1, phase == 1);
    Put(memory, WS_BIT, kYellow, 1, phase == 2);
    for (std::uint32_t i = 0; i < kLightCount; ++i) {
        const std::uint32_t light = kLights + i * kLightBytes;
        const std::uint32_t state = (phase + i) % kPhaseCount;
        Put(memory, WS_XDATA, light + kState, 1, state);
        const std::uint32_t mask = Get(memory, WS_CODE, kLampMask + state, 1);
        for (std::uint32_t lamp = 0; lamp < kPhaseCount; ++lamp) {
            Put(memory, WS_XDATA, light + kLamps + lamp, 1, mask >> lamp & 1);
        }
    }
    Put(memory, WS_DATA, kCurrent, 2, kLights + phase * kLightBytes);
}

std::uint32_t PhaseSteps(const TargetMemory& memory, std::uint32_t phase)
{
    if (phase == 0) return Get(memory, WS_XDATA, kCfg + kRedTime, 1);
    if (phase == 1) return Get(memory, WS_XDATA, kCfg + kGreenTime, 1);
    return kYellowSteps;
}

void NextPhase(TargetMemory& memory)
{
    const std::uint32_t phase = (Get(memory, WS_DATA, kPhase, 1) + 1) % kPhaseCount;
    Put(memory, WS_DATA, kPhase, 1, phase);
    Put(memory, WS_XDATA, kCounter, 2, PhaseSteps(memory, phase));
    ShowPhase(memory, phase);
    // The log is a ring; the cursor walks it.
    const std::uint32_t cursor = Get(memory, WS_DATA, kCursor, 2);
    Put(memory, WS_XDATA, cursor, 1, phase);
    Put(memory, WS_DATA, kCursor, 2, kLog + (cursor + 1 - kLog) % kLogBytes);
}

}  // namespace

void Load(TargetMemory& memory)
{
    const std::array<std::uint8_t, kPhaseCount> lampMask{0x01, 0x04, 0x02};  // red, green, yellow lamp
    memory.LoadCode(kLampMask, lampMask);
    const char name[] = "TRAFFIC";
    memory.LoadCode(kName, std::span(reinterpret_cast<const std::uint8_t*>(name), sizeof name));

    Put(memory, WS_XDATA, kCfg + kRedTime, 1, 10);
    Put(memory, WS_XDATA, kCfg + kGreenTime, 1, 8);
    Put(memory, WS_XDATA, kCfg + kOffset, 2, static_cast<std::uint16_t>(-3));
    for (std::uint32_t i = 0; i < kLightCount; ++i) {
        Put(memory, WS_XDATA, kLights + i * kLightBytes + kLightCfg + kRedTime, 1, 10 + i);
        Put(memory, WS_XDATA, kLights + i * kLightBytes + kLightCfg + kGreenTime, 1, 8 - i);
        Put(memory, WS_XDATA, kLights + i * kLightBytes + kLightCfg + kOffset, 2, i * 100);
    }
    for (std::uint32_t i = 0; i < kTimingCount; ++i) Put(memory, WS_XDATA, kTimings + 2 * i, 2, 5 * i);
    Put(memory, WS_XDATA, kCounter, 2, PhaseSteps(memory, 0));
    Put(memory, WS_XDATA, kTotal, 4, 123456);
    Put(memory, WS_XDATA, kTemperature, 4, std::bit_cast<std::uint32_t>(21.5f));
    Put(memory, WS_DATA, kCursor, 2, kLog);
    Put(memory, WS_DATA, kLabel, 3, EncodeGenericPointer(WS_CODE, kName));
    Put(memory, WS_DATA, kSensor, 2, 0x0200);
    Put(memory, WS_IDATA, kMode, 1, 'A');
    ShowPhase(memory, 0);
}

void Step(TargetMemory& memory)
{
    const std::uint32_t ticks = Get(memory, WS_DATA, kTicks, 2) + 1;
    Put(memory, WS_DATA, kTicks, 2, ticks);
    Put(memory, WS_XDATA, kUptime, 4, Get(memory, WS_XDATA, kUptime, 4) + 1);
    Put(memory, WS_XDATA, kTotal, 4, Get(memory, WS_XDATA, kTotal, 4) + ticks);
    Put(memory, WS_DATA, kSensor, 2, 0x0200 + (ticks * 3 & 0xFF));

    float temperature = std::bit_cast<float>(Get(memory, WS_XDATA, kTemperature, 4)) + kDrift;
    if (temperature > kWarmest) temperature = kCoolest;
    Put(memory, WS_XDATA, kTemperature, 4, std::bit_cast<std::uint32_t>(temperature));

    const std::uint32_t counter = Get(memory, WS_XDATA, kCounter, 2);
    Put(memory, WS_XDATA, kTimings + 2 * (ticks % kTimingCount), 2, counter);
    if (counter <= 1) {
        NextPhase(memory);
    } else {
        Put(memory, WS_XDATA, kCounter, 2, counter - 1);
    }
}

}  // namespace Traffic
