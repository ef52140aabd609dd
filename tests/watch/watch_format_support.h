// Records and rows for the watch formatting tests, and the texts the
// formatting gives for them.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "tests/support/watch_records.h"
#include "watch/watch_format.h"
#include "watch/watch_row.h"

inline std::unique_ptr<CGridRow> RowOf(const WatchRecord& record, std::uint32_t format)
{
    std::unique_ptr<CGridRow> row(MakeWatchRow("expression"));
    *RecordOf(row.get()) = record;
    row->format = format;
    return row;
}

inline std::string ValueIn(const WatchRecord& record, std::uint32_t format)
{
    return FormatValue(RowOf(record, format).get(), FALSE).str();
}

// The quick view text, checking that nothing is written past the buffer and
// that the record is left as it was.
inline std::string QuickView(const WatchRecord& record, bool assembler)
{
    constexpr std::size_t kCanaryBytes = 32;
    char buffer[kQuickViewBytes + kCanaryBytes];
    std::memset(buffer, 0xA5, sizeof buffer);
    buffer[0] = assembler ? 'A' : '\0';
    const WatchRecord before = record;
    EXPECT_EQ(QuickViewText(buffer, &record), 1);
    for (std::size_t i = kQuickViewBytes; i < sizeof buffer; ++i) {
        EXPECT_EQ(static_cast<unsigned char>(buffer[i]), 0xA5) << "byte " << i << " past the buffer was written";
    }
    EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0) << "the record was changed";
    const void* end = std::memchr(buffer, '\0', kQuickViewBytes);
    EXPECT_NE(end, nullptr) << "the text is not terminated inside the buffer";
    return end ? std::string(buffer) : std::string();
}

struct RowTexts {
    std::string value;
    std::string attribute;
    std::uint32_t format = 0;
};

// FormatRow on a row of the record in the format, whose value and attribute
// cells held other texts before.
inline RowTexts FormatRowOf(const WatchRecord& record, std::uint32_t format, BOOL bApplyDefault = FALSE)
{
    const auto row = RowOf(record, format);
    row->SetCellText(kValueColumn, "old value");
    row->SetCellText(kAttributeColumn, "old attribute");
    FormatRow(row.get(), bApplyDefault);
    return {std::string(row->CellText(kValueColumn)), std::string(row->CellText(kAttributeColumn)), row->format};
}
