#include "demo_grid.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/text/gbk.h"

namespace {

// What the demo keeps in a row's record.
enum RecordWord { kValue, kBytes, kElements };
struct DemoRecord {
    std::uint32_t words[3];
};
// Display formats, as the format list orders them.
enum Format : std::uint32_t { kBin, kDec, kHex };
// Columns.
enum Column { kNameColumn, kValueColumn, kFormatColumn };

DemoRecord& RecordOf(CGridRow& row)
{
    if (!row.record) row.record = new GridRowRecord{};
    return *row.record->As<DemoRecord>();
}

std::string FormatValue(std::uint32_t value, int bytes, std::uint32_t format)
{
    char text[40];
    switch (format) {
    case kBin: {
        std::string bits = "0b";
        for (int bit = bytes * 8 - 1; bit >= 0; --bit) bits += (value >> bit) & 1 ? '1' : '0';
        return bits;
    }
    case kDec:
        std::snprintf(text, sizeof text, "%u", value);
        return text;
    default:
        std::snprintf(text, sizeof text, "0x%0*X", bytes * 2, value);
        return text;
    }
}

// Shows the record's value in the value column, in the row's format.
void ShowValue(CGridRow& row)
{
    const DemoRecord& record = RecordOf(row);
    std::string text;
    if (record.words[kElements]) {
        text = "[" + std::to_string(record.words[kElements]) + "]";
    } else if (row.HasChildren()) {
        text = "{...}";
    } else {
        text = FormatValue(record.words[kValue], static_cast<int>(record.words[kBytes]), row.format);
    }
    std::snprintf(row.cells[kValueColumn].text, kGridCellTextBytes, "%s", text.c_str());
}

// A variable row: a scalar (bytes > 0) editable as a number, or an aggregate.
CGridRow* MakeRow(const char* utf8Name, int level, std::uint32_t value, int bytes, std::uint32_t format,
                  std::uint32_t flags = GRF_CREATED)
{
    auto* row = new CGridRow;
    row->text = GBK(utf8Name).c_str();
    row->level = static_cast<std::uint32_t>(level);
    row->SetFlags(flags);
    row->format = format;
    DemoRecord& record = RecordOf(*row);
    record.words[kValue] = value;
    record.words[kBytes] = static_cast<std::uint32_t>(bytes);
    if (level == 0) row->SetCellTextEdit(kNameColumn, TRUE, -1);
    if (!row->HasChildren()) {
        row->SetCellNumberEdit(kValueColumn, TRUE, bytes * 2);
        row->SetCellList(kFormatColumn, TRUE);
        row->SetCellIcon(kFormatColumn, static_cast<int>(format));
    }
    ShowValue(*row);
    return row;
}

void AddChild(CGridRow* parent, CGridRow* child)
{
    child->parent = parent;
    parent->children.AddRow(child);
}

}  // namespace

BOOL DemoGrid::Create(CWnd* parent)
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | LVS_OWNERDATA;
    if (!CGridCtrl::Create(kStyle, CRect(0, 0, 250, 250), parent, 1001)) return FALSE;
    InsertColumn(kNameColumn, GBK("名称").c_str(), LVCFMT_LEFT, 200);
    InsertColumn(kValueColumn, GBK("值").c_str(), LVCFMT_LEFT, 150);
    InsertColumn(kFormatColumn, GBK("格式").c_str(), LVCFMT_LEFT, 60);
    SetGridLines(TRUE);
    return TRUE;
}

void DemoGrid::FillSampleRows()
{
    DeleteAllRows();
    Rows().AddRow(MakeRow("count", 0, 5, 1, kHex));
    CGridRow* timer = MakeRow("timer", 0, 0, 0, kHex, GRF_CREATED | GRF_PARENT | GRF_COLLAPSED);
    AddChild(timer, MakeRow("reload", 1, 0xFC18, 2, kHex));
    AddChild(timer, MakeRow("ticks", 1, 18, 1, kDec));
    // Its elements are made the first time it is expanded.
    CGridRow* phases = MakeRow("phases", 1, 0, 0, kHex, GRF_CREATED | GRF_SUBPARENT | GRF_COLLAPSED);
    RecordOf(*phases).words[kElements] = 3;
    ShowValue(*phases);
    AddChild(timer, phases);
    AddChild(timer, MakeRow("mode", 1, 1, 1, kDec));
    Rows().AddRow(timer);
    Rows().AddRow(MakeRow("P1", 0, 0xA5, 1, kBin));
    Rows().AddRow(MakeRow("lights", 0, 0x21, 1, kDec));
    SetItemCount(CountVisibleRows(Rows()));
}

CGridRow* DemoGrid::FindRowAt(int displayIndex, CGridRowArray* rows, int* counter)
{
    return FindRowInDisplayOrder(displayIndex, rows, counter);
}

void DemoGrid::UpdateRow(CGridRow* row, BOOL bRefresh)
{
    if (!row) return;
    // New rows get their cells from their record; existing ones keep them.
    if (!bRefresh) ShowValue(*row);
    Log("UpdateRow " + GbkToUtf8(static_cast<const char*>(row->text)) + (bRefresh ? " (existing)" : " (new)"));
}

void DemoGrid::FillChildren(CGridRow* row)
{
    const std::uint32_t elements = RecordOf(*row).words[kElements];
    const std::uint32_t samples[] = {0x01, 0x02, 0x04, 0x08};
    for (std::uint32_t i = 0; i < elements; ++i) {
        const std::string name = "[" + std::to_string(i) + "]";
        CGridRow* element = MakeRow(name.c_str(), row->Level() + 1, samples[i % 4], 1, kHex);
        element->cells[kValueColumn].text[0] = '\0';  // filled by UpdateRow
        AddChild(row, element);
    }
    Log("UWM_GRID_FILL_CHILDREN " + GbkToUtf8(static_cast<const char*>(row->text)) + ": " +
        std::to_string(elements) + " rows");
}

void DemoGrid::CommitEdit()
{
    CGridRow* row = GetSelectedRow();
    if (!row) return;
    const CString text = GetEditText();
    if (GetCurrentColumn() == kNameColumn) {
        row->text = text;
    } else {
        DemoRecord& record = RecordOf(*row);
        const int bits = static_cast<int>(record.words[kBytes]) * 8;
        const std::uint32_t mask = bits >= 32 ? 0xFFFFFFFFu : (1u << bits) - 1;
        record.words[kValue] = static_cast<std::uint32_t>(std::strtoul(text, nullptr, 16)) & mask;
        row->changed = TRUE;
        ShowValue(*row);
    }
    Log("UWM_GRID_EDIT_DONE \"" + GbkToUtf8(static_cast<const char*>(text)) + "\" -> " +
        GbkToUtf8(static_cast<const char*>(row->text)) + " = " + row->cells[kValueColumn].text);
    Invalidate(FALSE);
}

void DemoGrid::CommitFormat()
{
    CGridRow* row = GetSelectedRow();
    const int format = GetComboSel();
    if (!row || format < 0) return;
    row->format = static_cast<std::uint32_t>(format);
    row->SetCellIcon(kFormatColumn, format);
    ShowValue(*row);
    Log("UWM_GRID_LIST_DONE " + std::to_string(format) + " -> " + row->cells[kValueColumn].text);
    Invalidate(FALSE);
}

LRESULT DemoGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case UWM_GRID_FILL_CHILDREN:
        FillChildren(reinterpret_cast<CGridRow*>(wParam));
        return 0;
    case UWM_GRID_EDIT_DONE:
        CommitEdit();
        return 0;
    case UWM_GRID_LIST_DONE:
        CommitFormat();
        return 0;
    case UWM_EDITOR_KILLFOCUS:
        OnEditorKillFocus(static_cast<BOOL>(wParam));
        return 0;
    default:
        return CGridCtrl::WindowProc(message, wParam, lParam);
    }
}
