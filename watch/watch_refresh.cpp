// Refreshing the watch after the target ran: every expression evaluated anew,
// or, for a fixed list, the service's own list mirrored.
#include <algorithm>
#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "watch/debug_service.h"
#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

namespace {

// The rows a fixed list has not placed yet, by name, in their order: the row
// an entry takes is the first of them with its name. A list that names one
// object twice gets a row for each entry rather than moving one row about,
// so the first n rows always mirror the n entries.
class RowsByName {
public:
    explicit RowsByName(CGridRowArray& rows)
    {
        for (int i = 0; i < rows.GetSize(); ++i) {
            CGridRow* row = rows.GetRow(i);
            m_unplaced[std::string(row->text)].push_back(row);
        }
    }

    // The row, or null when no unplaced row has the name.
    CGridRow* Find(const std::string& name) const
    {
        const auto found = m_unplaced.find(name);
        return found == m_unplaced.end() || found->second.empty() ? nullptr : found->second.front();
    }

    void Placed(const std::string& name, const CGridRow* row)
    {
        const auto found = m_unplaced.find(name);
        if (found != m_unplaced.end() && !found->second.empty() && found->second.front() == row) {
            found->second.pop_front();
        }
    }

private:
    std::unordered_map<std::string, std::deque<CGridRow*>> m_unplaced;
};

bool SameObject(const WatchRecord& a, const WatchRecord& b)
{
    return a.address == b.address && a.space == b.space && a.typeRef == b.typeRef && a.type == b.type;
}

}  // namespace

void CWatchGridCtrl::RefreshAll()
{
    if (fixedRows) {
        RefreshList();
        return;
    }
    CGridRowArray& rows = Rows();
    int anchorIndex = 0;
    if (GetSelectedItem() != -1 && !FindRowAt(GetSelectedItem(), &rows, &anchorIndex)) anchorIndex = 0;
    CGridRow* anchor = rows.GetRow(anchorIndex);

    int line = 0;
    for (int i = 0; i + 1 < rows.GetSize(); ++i) {
        CGridRow* row = rows.GetRow(i);
        const WatchRecord previous = *RecordOf(row);
        EvaluateRow(row);
        RefreshRow(row, &line, &previous);
        line += 1;
    }
    if (anchor && !(anchor->Flags() & GRF_EXPANDED)) SelectItem(LineOfRow(anchor));
    RepaintNow();
}

void CWatchGridCtrl::RefreshRow(CGridRow* row, int* displayIndex, const WatchRecord* previous)
{
    WatchRecord* record = RecordOf(row);
    if (!record || !displayIndex || !previous) return;
    const int shown = row->ShownLines() - 1;
    if (SameObject(*record, *previous)) {
        if (IsValueRow(row)) row->changed = record->value != previous->value;
        FormatRow(row, FALSE);
        if (shown != 0) {
            for (int i = 0; i < row->children.GetSize(); ++i) UpdateRow(row->children.GetRow(i), TRUE);
        }
        *displayIndex += shown;
        return;
    }
    // Another object: its children described the old one.
    CollapseRow(row, *displayIndex);
    InitRowCells(row);
    FormatRow(row, TRUE);
}

void CWatchGridCtrl::LoadListEntry(const WatchListEntry* entries, int i, WatchRecord* record)
{
    const WatchListEntry& entry = entries[i];
    *record = WatchRecord{};
    record->status = kListEntryStatus;
    std::copy(std::begin(entry.name), std::end(entry.name), record->name);
    record->space = entry.space;
    record->serviceData2 = entry.serviceData2;
    record->address = entry.address;
    record->type = entry.type;
    record->typeRef = entry.typeRef;
    record->size = entry.size;
    record->serviceData1 = entry.serviceData1;
    record->arrayFlag = entry.arrayFlag;
    DebugService::Request(DRQ_READ_VALUE, record);
    DebugService::Request(DRQ_GET_COUNT, record);
}

int CWatchGridCtrl::FindTopRowByName(const char* name)
{
    CGridRowArray& rows = Rows();
    for (int i = 0; i < rows.GetSize(); ++i) {
        if (rows.GetRow(i)->text == name) return i;
    }
    return -1;
}

void CWatchGridCtrl::RefreshList()
{
    std::int32_t n = 0;
    DebugService::Request(DRQ_GET_LIST_SIZE, &n);
    n = std::clamp(n, 0, kMaxWatchListEntries);
    std::vector<WatchListEntry> entries(static_cast<std::size_t>(n));
    DebugService::Request(DRQ_GET_LIST, entries.data());

    CGridRowArray& rows = Rows();
    RowsByName byName(rows);
    int line = 0;
    for (int i = 0; i < n; ++i) {
        WatchRecord record;
        LoadListEntry(entries.data(), i, &record);
        const CString name = RecordName(record);
        const int pos = rows.IndexOf(byName.Find(std::string(name)));
        if (pos == -1) {
            CGridRow* row = MakeWatchRow(name);
            *RecordOf(row) = record;
            rows.InsertRow(i, row);
            InitRowCells(row);
            FormatRow(row, FALSE);
            byName.Placed(std::string(name), row);
        } else {
            CGridRow* row = rows.GetRow(pos);
            const WatchRecord previous = *RecordOf(row);
            *RecordOf(row) = record;
            RefreshRow(row, &line, &previous);
            rows.RemoveRow(pos);
            rows.InsertRow(i, row);
            byName.Placed(std::string(name), row);
        }
        line += 1;
    }
    SetItemCountEx(line, 0);
    // What is left after the list's rows names nothing the service still lists.
    rows.DeleteRows(n, rows.GetSize() - n);
    RepaintNow();
}
