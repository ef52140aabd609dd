#include "demo/debugger/type_table.h"

#include <algorithm>

#include "demo/debugger/type_codes.h"
#include "watch/debug_protocol.h"

namespace {

// Sizes as an 8051 compiler lays them out: int is 16 bits, long 32.
std::uint32_t ScalarSize(std::uint32_t code)
{
    switch (code) {
    case WT_INT:
    case WT_UINT:
        return 2;
    case WT_LONG:
    case WT_ULONG:
    case WT_FLOAT:
        return 4;
    default:
        return 1;
    }
}

// A pointer into internal RAM or the paged page holds one byte, into a
// 64 KiB space two; a generic pointer adds a byte naming the space.
std::uint32_t PointerSize(std::uint32_t space)
{
    switch (space) {
    case WS_DATA:
    case WS_IDATA:
    case WS_PDATA:
    case WS_STACK:
        return 1;
    case WS_CODE:
    case WS_CONST:
    case WS_XDATA:
        return 2;
    default:
        return 3;
    }
}

TypeInfo Make(std::uint32_t code, std::uint32_t size, TypeId target = kNoType, std::uint32_t targetSpace = 0,
              std::uint32_t count = 0)
{
    TypeInfo info;
    info.code = code;
    info.size = size;
    info.target = target;
    info.targetSpace = targetSpace;
    info.count = count;
    return info;
}

}  // namespace

TypeTable::TypeTable()
{
    m_types.emplace_back();  // kNoType
    for (std::uint32_t code = WT_BIT; code <= WT_FLOAT; ++code) Add(Make(code, ScalarSize(code)));
}

TypeId TypeTable::Scalar(std::uint32_t code) const
{
    // The scalars were added first, in code order.
    return code >= WT_BIT && code <= WT_FLOAT ? code : kNoType;
}

TypeId TypeTable::Pointer(TypeId target, std::uint32_t space)
{
    const bool generic = PointerSize(space) == 3;
    const std::uint32_t code = generic ? WT_GENERAL_POINTER : WT_POINTER;
    const std::uint32_t targetSpace = generic ? WS_NONE : space;
    const auto found = std::find_if(m_types.begin(), m_types.end(), [&](const TypeInfo& type) {
        return type.code == code && type.target == target && type.targetSpace == targetSpace;
    });
    if (found != m_types.end()) return static_cast<TypeId>(found - m_types.begin());
    return Add(Make(code, PointerSize(space), target, targetSpace));
}

TypeId TypeTable::Array(TypeId element, std::uint32_t count)
{
    const TypeInfo* type = Find(element);
    const std::uint32_t size = type ? type->size * count : 0;
    return Add(Make(WT_ARRAY, size, element, 0, count));
}

TypeId TypeTable::Record(std::uint32_t code, const std::vector<std::pair<std::string, TypeId>>& fields)
{
    TypeInfo info = Make(code, 0);
    std::uint32_t offset = 0;
    for (const auto& [name, id] : fields) {
        const TypeInfo* type = Find(id);
        const std::uint32_t size = type ? type->size : 0;
        info.members.push_back({name, id, code == WT_UNION ? 0 : offset});
        offset += size;
        info.size = code == WT_UNION ? std::max(info.size, size) : offset;
    }
    return Add(std::move(info));
}

TypeId TypeTable::LaidOutRecord(std::uint32_t code, std::uint32_t size)
{
    return Add(Make(code, size));
}

void TypeTable::SetMembers(TypeId record, std::vector<TypeMember> members)
{
    if (record == kNoType || record >= m_types.size()) return;
    TypeInfo& type = m_types[record];
    if (type.code == WT_STRUCT || type.code == WT_UNION) type.members = std::move(members);
}

const TypeInfo* TypeTable::Find(TypeId id) const
{
    return id != kNoType && id < m_types.size() ? &m_types[id] : nullptr;
}

TypeId TypeTable::Add(TypeInfo info)
{
    m_types.push_back(std::move(info));
    return static_cast<TypeId>(m_types.size() - 1);
}
