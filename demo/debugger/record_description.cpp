#include "demo/debugger/record_description.h"

#include <cstdio>

#include "demo/debugger/record_value.h"
#include "demo/debugger/type_codes.h"
#include "demo/debugger/type_table.h"

namespace {

std::int32_t MemberCount(const TypeInfo& type)
{
    if (type.code == WT_ARRAY) return static_cast<std::int32_t>(type.count);
    if (type.code == WT_STRUCT || type.code == WT_UNION) return static_cast<std::int32_t>(type.members.size());
    return 0;
}

}  // namespace

TypeId RecordType(const WatchRecord& record, const TypeTable& types)
{
    if (const TypeInfo* type = types.Find(record.typeRef); type && type->code == record.type) return record.typeRef;
    return types.Scalar(record.type);
}

void Describe(const Evaluated& what, const TypeTable& types, DebugTarget& target, WatchRecord& record)
{
    const TypeInfo* type = types.Find(what.type);
    if (!type) {
        DescribeError(WERR_NUMERIC_TYPE, record);
        return;
    }
    const TypeInfo* element = types.Find(type->target);
    record.status = 1;
    record.type = type->code;
    record.space = what.space;
    record.size = type->size;
    record.address = what.address;
    record.typeRef = IsAggregateCode(type->code) ? what.type : 0;
    // Elements that are no aggregates come in one block of bytes.
    record.arrayFlag = type->code == WT_ARRAY && element && !IsAggregateCode(element->code) ? 1 : 0;
    record.count = MemberCount(*type);
    record.unavailable = 0;
    record.errorId = 0;
    record.value = what.bits;
    RefreshValue(record, target);
}

void DescribeError(std::uint32_t errorId, WatchRecord& record)
{
    record.status = 0;
    record.type = 0;
    record.space = WS_NONE;
    record.size = 0;
    record.address = 0;
    record.typeRef = 0;
    record.arrayFlag = 0;
    record.count = 0;
    record.unavailable = 0;
    record.value = 0;
    record.errorId = errorId;
}

std::int32_t CountOf(const WatchRecord& record, const TypeTable& types)
{
    const TypeInfo* type = types.Find(RecordType(record, types));
    return type ? MemberCount(*type) : 0;
}

bool DescribeMember(WatchRecord& record, const TypeTable& types, DebugTarget& target)
{
    const TypeInfo* parent = types.Find(RecordType(record, types));
    if (!parent || record.count < 0 || record.count >= MemberCount(*parent)) return false;
    const auto index = static_cast<std::uint32_t>(record.count);
    Evaluated member{parent->target, record.space, record.address, 0};
    if (parent->code == WT_ARRAY) {
        const TypeInfo* element = types.Find(parent->target);
        member.address += index * (element ? element->size : 0);
        std::snprintf(record.name, sizeof record.name, "[%02u]", index);
    } else {
        const TypeMember& field = parent->members[index];
        member.type = field.type;
        member.address += field.offset;
        std::snprintf(record.name, sizeof record.name, "%s", field.name.c_str());
    }
    Describe(member, types, target, record);
    return true;
}
