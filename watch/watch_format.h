// The texts the watch shows for a record: its value in the row's display
// format, the attribute column (space, address, type), the default format a
// row starts in, and the quick view text a host asks for.
#pragma once

#include <cstddef>
#include <cstdint>

#include "grid/grid_row.h"
#include "platform/text/cstring.h"
#include "watch/debug_protocol.h"

// The quick view buffer a host passes: its first byte says which notation.
constexpr std::size_t kQuickViewBytes = 86;

// Names of memory space and type codes; an empty text for a code out of range.
AFX_EXT_CLASS const char* WatchSpaceName(std::uint32_t space);
AFX_EXT_CLASS const char* WatchTypeName(std::uint32_t type);

// The value in the row's display format: "" without a row or a record, or for
// a format other than binary, decimal and hexadecimal; "????" when the value
// could not be read. With bApplyDefault the row first takes its default format.
AFX_EXT_CLASS CString FormatValue(CGridRow* row, BOOL bApplyDefault);

// The value's bits, most significant first: 8 a byte of size, 1 for a bit.
// "" for no record.
AFX_EXT_CLASS CString FormatBinary(const WatchRecord* record);

// Fills the value column and the attribute column from the row's record; a
// record with status 0 shows its error message and leaves the attribute alone.
AFX_EXT_CLASS void FormatRow(CGridRow* row, BOOL bApplyDefault);

// Sets the row's display format (and its format icon) from the user's display
// setting, or from the record's type when the setting leaves it to the type.
AFX_EXT_CLASS void ApplyDefaultFormat(CGridRow* row);

// Writes the quick view text of the record into buffer (kQuickViewBytes),
// "dec,hex(space:address)": a non-zero first byte asks for assembler notation
// ("41H", a byte's binary digits too), zero for C notation ("0x41"). Returns 1;
// 0 with a null buffer or record (the buffer then holds "" when there is one).
// The record is not changed.
AFX_EXT_CLASS int QuickViewText(char* buffer, const WatchRecord* record);
