#include "demo/debugger/generic_pointer.h"

#include "watch/debug_protocol.h"

namespace {

constexpr std::uint32_t kXdataTag = 0x00;
constexpr std::uint32_t kDataTag = 0x40;
constexpr std::uint32_t kPdataTag = 0x60;
constexpr std::uint32_t kCodeTag = 0x80;

}  // namespace

std::uint32_t EncodeGenericPointer(std::uint32_t space, std::uint32_t address)
{
    std::uint32_t tag = kXdataTag;
    if (space == WS_CODE || space == WS_CONST) tag = kCodeTag;
    if (space == WS_DATA || space == WS_IDATA || space == WS_STACK) tag = kDataTag;
    if (space == WS_PDATA) tag = kPdataTag;
    return tag << 16 | (address & 0xFFFF);
}

std::optional<PointerTarget> DecodeGenericPointer(std::uint32_t value)
{
    const std::uint32_t address = value & 0xFFFF;
    switch (value >> 16 & 0xFF) {
    case kXdataTag:
        return PointerTarget{WS_XDATA, address};
    case kDataTag:
        return PointerTarget{WS_IDATA, address};
    case kPdataTag:
        return PointerTarget{WS_PDATA, address};
    case kCodeTag:
        return PointerTarget{WS_CODE, address};
    default:
        return std::nullopt;
    }
}
