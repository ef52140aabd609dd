// A watch row is a grid row whose record is the WatchRecord the debugger
// service last filled for it. These helpers read the row as the watch does.
#pragma once

#include "grid/grid_row.h"
#include "platform/text/cstring.h"
#include "watch/debug_protocol.h"

// Display formats of a watch row, and the order of the format list.
enum WatchFormat : std::uint32_t {
    WF_BINARY = 0,
    WF_DECIMAL = 1,
    WF_HEXADECIMAL = 2,
};

// Columns of the watch grid.
enum WatchColumn : int {
    kExpressionColumn = 0,
    kValueColumn = 1,
    kFormatColumn = 2,
    kAttributeColumn = 3,
    kWatchColumnCount = 4,
};

// The row's record; a row made elsewhere without one gets a zero-filled one,
// so that every watch row has a record to read.
AFX_EXT_CLASS WatchRecord* RecordOf(CGridRow* row);
AFX_EXT_CLASS const WatchRecord* RecordOf(const CGridRow* row);

// A new row with the given text and a zero-filled record.
AFX_EXT_CLASS CGridRow* MakeWatchRow(const char* text);

// A structure, union or array: its value is its members.
AFX_EXT_CLASS bool IsAggregate(const CGridRow* row);
// A row whose value can be edited, is re-read on refresh and marks a change.
AFX_EXT_CLASS bool IsValueRow(const CGridRow* row);

// The record's name, read no further than its field even when the service
// left it unterminated.
AFX_EXT_CLASS CString RecordName(const WatchRecord& record);
