#include "demo/debugger/object_value.h"

#include <array>

#include "demo/debugger/debug_target.h"
#include "demo/debugger/little_endian.h"

namespace {

constexpr std::uint32_t kValueBytes = 4;

}  // namespace

std::optional<std::uint32_t> ReadValue(DebugTarget& target, std::uint32_t space, std::uint32_t address, std::uint32_t size)
{
    if (size == 0 || size > kValueBytes) return std::nullopt;
    std::array<std::uint8_t, kValueBytes> bytes{};
    const auto used = std::span(bytes).first(size);
    if (!target.Read(space, address, used)) return std::nullopt;
    return LoadLittle(used);
}

bool WriteValue(DebugTarget& target, std::uint32_t space, std::uint32_t address, std::uint32_t size, std::uint32_t value)
{
    if (size == 0 || size > kValueBytes) return false;
    std::array<std::uint8_t, kValueBytes> bytes{};
    const auto used = std::span(bytes).first(size);
    StoreLittle(used, value);
    return target.Write(space, address, used);
}
