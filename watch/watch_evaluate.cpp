// Evaluating rows and making their member and element rows, through the
// debugger service.
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "platform/text/gbk.h"
#include "watch/debug_service.h"
#include "watch/short_text.h"
#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

namespace {

bool ExpandsAsElements(const WatchRecord& record)
{
    const bool noTypeRef = record.typeRef == 0 || record.typeRef == kNoTypeRef;
    return record.type == WT_ARRAY && (noTypeRef || record.arrayFlag == 1);
}

// Element i of an array the service handed back as bytes, most significant
// first. Only the 4 bytes that `value` holds are kept: the least significant
// ones, so an element wider than 4 bytes shows its low word and the record
// is never written past its field.
void ReadElement(WatchRecord& element, std::int64_t i, const std::uint8_t* data, const std::uint8_t* valid)
{
    const std::int64_t size = element.size;
    auto* valueBytes = reinterpret_cast<std::uint8_t*>(&element.value);
    for (std::int64_t j = 0; j < size; ++j) {
        const std::int64_t k = size * (i + 1) - 1 - j;
        if (j < static_cast<std::int64_t>(sizeof element.value) && data) valueBytes[j] = data[k];
        if (!data || !valid || valid[k] != 1) element.unavailable = 1;
    }
}

}  // namespace

void CWatchGridCtrl::EvaluateRow(CGridRow* row)
{
    if (!row) return;
    // The service gets its own terminated copy of the text.
    const CString expression = row->text;
    DebugService::Evaluate(expression, RecordOf(row));
}

void CWatchGridCtrl::AppendChild(CGridRow* parent, CGridRow* child)
{
    child->parent = parent;
    child->level = parent->level + 1;
    parent->children.AddRow(child);
}

void CWatchGridCtrl::FillMembers(CGridRow* row)
{
    WatchRecord* record = RecordOf(row);
    if (!record) return;
    DebugService::Request(DRQ_GET_COUNT, record);
    if (ExpandsAsElements(*record)) {
        FillElements(row);
        return;
    }
    const std::int64_t n = std::min<std::int64_t>(record->count, kMaxWatchChildren);
    for (std::int64_t i = 0; i < n; ++i) {
        WatchRecord member = *record;
        member.count = static_cast<std::int32_t>(i);
        DebugService::Request(DRQ_GET_MEMBER, &member);
        DebugService::Request(DRQ_GET_COUNT, &member);
        CGridRow* child = MakeWatchRow("");
        *RecordOf(child) = member;
        AppendChild(row, child);
        UpdateRow(child, FALSE);
    }
}

void CWatchGridCtrl::FillElements(CGridRow* row)
{
    WatchRecord* record = RecordOf(row);
    if (!record) return;
    auto elementTemplate = std::make_unique<WatchRecord>();
    ElementBlock block{record, elementTemplate.get(), nullptr, nullptr};
    DebugService::Request(DRQ_GET_ELEMENTS, &block);
    // The service's arrays are ours to free, whatever happens below.
    std::unique_ptr<std::uint8_t, decltype(&std::free)> data(block.data, &std::free);
    std::unique_ptr<std::uint8_t, decltype(&std::free)> valid(block.valid, &std::free);

    const std::int64_t size = elementTemplate->size;
    // Elements without bytes show nothing; the bytes are cut to what an 8051 holds.
    const std::int64_t n = size == 0 ? 0 : std::min<std::int64_t>(record->count, kMaxElementBytes / size);
    for (std::int64_t i = 0; i < n; ++i) {
        WatchRecord element = *elementTemplate;
        element.address += static_cast<std::uint32_t>(size * i);
        element.unavailable = 0;
        ReadElement(element, i, data.get(), valid.get());
        CopyGbkText(ShortText().Add('[').AddDecimal(i, 2).Add(']').View(), element.name, sizeof element.name);
        CGridRow* child = MakeWatchRow("");
        *RecordOf(child) = element;
        AppendChild(row, child);
        UpdateRow(child, FALSE);
    }
}

void CWatchGridCtrl::UpdateRow(CGridRow* row, BOOL bRefresh)
{
    WatchRecord* record = RecordOf(row);
    if (!record) return;
    // Member and element names are the object's own: never edited.
    row->SetCellTextEdit(kExpressionColumn, FALSE, -1);
    row->SetFlags(row->Flags() | GRF_CREATED);
    if (!bRefresh) {
        row->text = RecordName(*record);
        if (IsValueRow(row)) row->SetCellNumberEdit(kValueColumn, TRUE, -1);
        if (record->count > 0) row->SetFlags(row->Flags() | GRF_SUBPARENT | GRF_COLLAPSED);
        if (record->space != WS_NONE) {
            row->SetCellIcon(kFormatColumn, static_cast<int>(row->format));
            row->SetCellList(kFormatColumn, TRUE);
        }
        FormatRow(row, TRUE);
        return;
    }
    if (IsValueRow(row)) {
        const std::uint32_t old = record->value;
        DebugService::Request(DRQ_READ_VALUE, record);
        row->changed = record->value != old;
    }
    FormatRow(row, FALSE);
    if (row->IsExpanded()) {
        for (int i = 0; i < row->children.GetSize(); ++i) UpdateRow(row->children.GetRow(i), TRUE);
    }
}
