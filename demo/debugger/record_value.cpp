#include "demo/debugger/record_value.h"

#include "demo/debugger/object_value.h"
#include "demo/debugger/type_codes.h"

namespace {

bool HoldsValue(const WatchRecord& record)
{
    return record.space != WS_NUMBER && record.space != WS_NONE && !IsAggregateCode(record.type);
}

}  // namespace

void RefreshValue(WatchRecord& record, DebugTarget& target)
{
    record.unavailable = 0;
    if (IsAggregateCode(record.type)) record.value = 0;
    if (!HoldsValue(record)) return;
    const std::optional<std::uint32_t> value = ReadValue(target, record.space, record.address, record.size);
    record.unavailable = value ? 0 : 1;
    if (value) record.value = *value;
}

bool StoreValue(const WatchRecord& record, DebugTarget& target)
{
    if (!HoldsValue(record) || record.space == WS_CODE || record.space == WS_CONST) return false;
    const std::uint32_t value = record.type == WT_BIT ? record.value != 0 : record.value;
    return WriteValue(target, record.space, record.address, record.size, value);
}
