#include "watch/watch_row.h"

#include "platform/text/field_text.h"

WatchRecord* RecordOf(CGridRow* row)
{
    if (!row) return nullptr;
    if (!row->record) row->record = new GridRowRecord{};
    return row->record->As<WatchRecord>();
}

const WatchRecord* RecordOf(const CGridRow* row)
{
    return row && row->record ? row->record->As<WatchRecord>() : nullptr;
}

CGridRow* MakeWatchRow(const char* text)
{
    auto* row = new CGridRow;
    row->text = text ? text : "";
    RecordOf(row);
    return row;
}

bool IsAggregate(const CGridRow* row)
{
    const WatchRecord* record = RecordOf(row);
    if (!record) return false;
    return record->type == WT_ARRAY || (record->typeRef != 0 && record->typeRef != kNoTypeRef);
}

bool IsValueRow(const CGridRow* row)
{
    const WatchRecord* record = RecordOf(row);
    if (!record) return false;
    if (record->type == WT_POINTER || record->type == WT_GENERAL_POINTER) return true;
    return record->space <= WS_BIT && !IsAggregate(row);
}

CString RecordName(const WatchRecord& record)
{
    const std::string_view name = FieldText(record.name);
    return CString(name.data(), static_cast<int>(name.size()));
}
