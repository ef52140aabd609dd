#include "demo/debugger/value_cast.h"

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/generic_pointer.h"
#include "demo/debugger/number_arithmetic.h"
#include "demo/debugger/type_codes.h"
#include "demo/debugger/type_table.h"

namespace {

// A generic pointer holds three bytes: the space's tag and the address.
constexpr std::uint32_t kGenericBits = 0xFFFFFF;

std::uint32_t PointerBits(const Evaluated& value, const TypeInfo& from, const TypeInfo& to)
{
    const bool fromPointer = IsPointerCode(from.code);
    if (to.code == WT_GENERAL_POINTER) {
        if (from.code == WT_POINTER) return EncodeGenericPointer(from.targetSpace, value.bits);
        if (fromPointer) return value.bits;
        return static_cast<std::uint32_t>(IntegerOf({from.code, value.bits})) & kGenericBits;
    }
    // A pointer into one space keeps the address bytes it has room for; a
    // generic pointer's tag is lost, as the compiler's cast loses it.
    const std::uint32_t mask = to.size == 1 ? 0xFF : 0xFFFF;
    const auto bits = fromPointer ? value.bits : static_cast<std::uint32_t>(IntegerOf({from.code, value.bits}));
    return bits & mask;
}

}  // namespace

Evaluated CastValue(const Evaluated& value, TypeId type, const TypeTable& types)
{
    const TypeInfo* from = types.Find(value.type);
    const TypeInfo* to = types.Find(type);
    if (!from || !to || IsAggregateCode(from->code) || IsAggregateCode(to->code)) Fail(WERR_NUMERIC_TYPE);
    const bool fromPointer = IsPointerCode(from->code);
    const bool toPointer = IsPointerCode(to->code);
    if ((fromPointer && to->code == WT_FLOAT) || (toPointer && from->code == WT_FLOAT)) Fail(WERR_NUMERIC_TYPE);
    if (toPointer) return {type, WS_NUMBER, 0, PointerBits(value, *from, *to)};
    const Number number = fromPointer ? Number{WT_ULONG, value.bits} : Number{from->code, value.bits};
    return {type, WS_NUMBER, 0, Convert(number, to->code).bits};
}
