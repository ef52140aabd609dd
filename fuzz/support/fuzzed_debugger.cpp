#include "fuzz/support/fuzzed_debugger.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "fuzz/support/fuzz_check.h"

namespace {

// A record or list entry given as raw bytes instead of field by field.
constexpr std::uint8_t kRawForm = 0xFF;
// Field bytes from here up pick a hostile value from a table.
constexpr std::uint8_t kHostileCodes = 0xF0;
// Counts from here up are the largest: rare, since each costs 64 Ki rows.
constexpr std::uint8_t kHugeCountCodes = 0xFB;

// Small counts mostly, now and then one a service should never give, and
// rarely one past every cap.
constexpr std::int32_t kHostileCounts[kHugeCountCodes - kHostileCodes] = {
    -1, -2, INT_MIN, -65536, 0, 33, 64, 100, 255, 256, 1000,
};
constexpr std::int32_t kHugeCounts[256 - kHugeCountCodes] = {65535, 65536, 65537, INT_MAX, 2000000000};
constexpr std::uint32_t kHostileSizes[16] = {
    3, 5, 7, 12, 16, 255, 256, 4096, 32768, 65535, 65536, 65537, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF,
};
constexpr std::uint32_t kHostileSpaces[16] = {
    11, 12, 42, 64, 100, 128, 200, 254, 256, 1000, 65535, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF, WS_NONE,
};
// The messages a service may name, then ids with no string or another string.
constexpr std::uint32_t kErrorIds[20] = {
    WERR_WRONG_EXPRESSION, WERR_EXPRESSION_FORMAT, WERR_ILLEGAL_CHARACTER, WERR_NUMERIC_TYPE, WERR_MISSING_OPEN,
    WERR_MISSING_CLOSE, WERR_DIVISION_BY_ZERO, WERR_UNDEFINED, WERR_STRING_TOO_LONG, WERR_QUOTES,
    WERR_NOT_BIT_ADDRESSABLE, WERR_NO_SPACE, WERR_READ_FAILED, WERR_INVALID_POINTER,
    0, 1, 7, 32062, 52073, 0xFFFFFFFF,
};
// Names short enough to repeat, so that rows and list entries share them.
constexpr const char* kShortNames[8] = {"a", "b", "s", "x", "[00]", "p->q", "\xB1\xED", ""};

std::int32_t CountCode(std::uint8_t b)
{
    if (b >= kHugeCountCodes) return kHugeCounts[b - kHugeCountCodes];
    return b < kHostileCodes ? (b & 0x1F) : kHostileCounts[b - kHostileCodes];
}

std::uint32_t SizeCode(std::uint8_t b)
{
    return b < kHostileCodes ? b % 9 : kHostileSizes[b - kHostileCodes];
}

std::uint32_t SpaceCode(std::uint8_t b)
{
    return b < kHostileCodes ? b % kWatchSpaceCount : kHostileSpaces[b - kHostileCodes];
}

std::uint32_t TypeRefCode(std::uint8_t b)
{
    return b == 0xFF ? kNoTypeRef : b;
}

// A length byte and that many bytes, the field left unterminated when they
// fill it; a longer length picks a short name.
void ReadName(OpStream& input, char* field, std::size_t fieldBytes)
{
    std::memset(field, 0, fieldBytes);
    const std::uint8_t length = input.Byte();
    if (length <= fieldBytes) {
        input.Copy(field, length);
        return;
    }
    const char* name = kShortNames[(length - fieldBytes - 1) % std::size(kShortNames)];
    std::memcpy(field, name, std::strlen(name));
}

}  // namespace

FuzzedDebugger::~FuzzedDebugger()
{
    if (GetSafeHwnd()) DestroyWindow();
}

BOOL FuzzedDebugger::CreateService(CWnd* parent)
{
    return Create(nullptr, "debugger", WS_CHILD, CRect(0, 0, 0, 0), parent, 0);
}

LRESULT FuzzedDebugger::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != UWM_DEBUG_REQUEST) return CWnd::WindowProc(message, wParam, lParam);
    if (wParam > kLastDebugRequest) {
        Evaluate(reinterpret_cast<const char*>(wParam), reinterpret_cast<WatchRecord*>(lParam));
    } else {
        Answer(static_cast<unsigned>(wParam), lParam);
    }
    return 0;
}

bool FuzzedDebugger::ReadRecord(WatchRecord& record)
{
    std::uint8_t form = 0;
    if (!m_input || !m_input->Next(form)) return false;
    OpStream& input = *m_input;
    record = WatchRecord{};
    if (form == kRawForm) {
        input.Copy(&record, sizeof record);
        return true;
    }
    if (!(form & 1)) {
        record.errorId = kErrorIds[input.Byte() % std::size(kErrorIds)];
        ReadName(input, record.name, sizeof record.name);
        return true;
    }
    record.status = 1;
    record.unavailable = (form >> 1) & 1;
    record.arrayFlag = (form >> 2) & 1;
    record.type = input.Byte();  // 42 and above name no type
    record.space = SpaceCode(input.Byte());
    record.size = SizeCode(input.Byte());
    record.address = (form & 8) ? input.U32() : input.U16();
    record.typeRef = TypeRefCode(input.Byte());
    record.count = CountCode(input.Byte());
    record.value = input.U32();
    ReadName(input, record.name, sizeof record.name);
    return true;
}

bool FuzzedDebugger::ReadListEntry(WatchListEntry& entry)
{
    std::uint8_t form = 0;
    if (!m_input || !m_input->Next(form)) return false;
    OpStream& input = *m_input;
    entry = WatchListEntry{};
    if (form == kRawForm) {
        input.Copy(&entry, sizeof entry);
        return true;
    }
    entry.arrayFlag = form & 1;
    ReadName(input, entry.name, sizeof entry.name);
    entry.space = static_cast<std::uint8_t>(SpaceCode(input.Byte()));
    entry.type = input.Byte();
    entry.size = static_cast<std::uint16_t>(SizeCode(input.Byte()));
    entry.address = input.U16();
    entry.typeRef = TypeRefCode(input.Byte());
    return true;
}

std::int32_t FuzzedDebugger::ReadCount()
{
    std::uint8_t b = 0;
    return m_input && m_input->Next(b) ? CountCode(b) : 0;
}

void FuzzedDebugger::Evaluate(const char* expression, WatchRecord* record)
{
    // The watch always hands over a terminated text and a record to fill.
    FUZZ_CHECK(record != nullptr);
    FUZZ_CHECK(std::strlen(expression) < 0x100000);
    if (ReadRecord(*record)) return;
    *record = WatchRecord{};
    record->errorId = WERR_UNDEFINED;
}

void FuzzedDebugger::Answer(unsigned code, LPARAM lParam)
{
    switch (code) {
    case DRQ_WRITE_VALUE: {
        auto* record = reinterpret_cast<WatchRecord*>(lParam);
        FUZZ_CHECK(record != nullptr);
        if (onWrite) onWrite(record);
        // A service may rewrite what it was asked to write.
        if (m_input && !m_input->Done() && m_input->Byte() == kRawForm) ReadRecord(*record);
        return;
    }
    case DRQ_GET_COUNT: {
        auto* record = reinterpret_cast<WatchRecord*>(lParam);
        FUZZ_CHECK(record != nullptr);
        record->count = ReadCount();
        return;
    }
    case DRQ_GET_MEMBER: {
        auto* record = reinterpret_cast<WatchRecord*>(lParam);
        FUZZ_CHECK(record != nullptr);
        // The member index: never past the cap, whatever count was answered.
        FUZZ_CHECK(record->count >= 0 && record->count < kMaxWatchChildren);
        if (ReadRecord(*record)) return;
        *record = WatchRecord{};
        record->errorId = WERR_READ_FAILED;
        return;
    }
    case DRQ_READ_VALUE: {
        auto* record = reinterpret_cast<WatchRecord*>(lParam);
        FUZZ_CHECK(record != nullptr);
        ReadValue(*record);
        return;
    }
    case DRQ_GET_LIST_SIZE: {
        auto* size = reinterpret_cast<std::int32_t*>(lParam);
        FUZZ_CHECK(size != nullptr && *size == 0);
        m_listSize = ReadCount();
        *size = m_listSize;
        return;
    }
    case DRQ_GET_LIST:
        FillList(reinterpret_cast<WatchListEntry*>(lParam));
        return;
    case DRQ_SHOW_MEMORY:
        FUZZ_CHECK(lParam != 0);
        FUZZ_CHECK(std::strlen(reinterpret_cast<const char*>(lParam)) < 0x100000);
        return;
    case DRQ_GET_ELEMENTS: {
        auto* block = reinterpret_cast<ElementBlock*>(lParam);
        FUZZ_CHECK(block != nullptr);
        FillElements(*block);
        return;
    }
    default:
        // Sub-code 6 is no request of the watch's.
        std::abort();
    }
}

void FuzzedDebugger::ReadValue(WatchRecord& record)
{
    std::uint8_t form = 0;
    if (!m_input || !m_input->Next(form)) {
        record.unavailable = 1;
        return;
    }
    // Now and then the object itself changes under the row.
    if (form == kRawForm) {
        if (!ReadRecord(record)) record.unavailable = 1;
        return;
    }
    record.value = m_input->U32();
    record.unavailable = form & 1;
}

void FuzzedDebugger::FillList(WatchListEntry* entries)
{
    // Never more entries than the size answered, nor than the watch takes:
    // writing more would be the service's own overrun.
    const std::int32_t n = std::clamp(m_listSize, 0, kMaxWatchListEntries);
    FUZZ_CHECK(n == 0 || entries != nullptr);
    for (std::int32_t i = 0; i < n; ++i) {
        if (!ReadListEntry(entries[i])) return;
    }
}

void FuzzedDebugger::FillElements(ElementBlock& block)
{
    // The watch's half of the block, as the protocol has it on entry.
    FUZZ_CHECK(block.array != nullptr && block.element != nullptr);
    FUZZ_CHECK(block.data == nullptr && block.valid == nullptr);
    static const WatchRecord kZero{};
    FUZZ_CHECK(std::memcmp(block.element, &kZero, sizeof kZero) == 0);
    std::uint8_t form = 0;
    if (!m_input || !m_input->Next(form)) return;
    if (!ReadRecord(*block.element)) return;

    // count x size bytes, as the protocol has it, but never more than an
    // 8051 holds: the most a watch reads.
    const std::int64_t count = block.array->count;
    const std::int64_t size = block.element->size;
    const std::int64_t bytes = count <= 0 || size == 0 ? 0 : std::min(count * size, kMaxElementBytes);
    elementsArray = block.array;
    elementsAllowed = size == 0 || count <= 0 ? 0 : std::min(count, kMaxElementBytes / size);

    // Exactly the bytes promised, so a read past them is a report.
    const auto n = static_cast<std::size_t>(bytes);
    if (!(form & 1)) {
        block.data = static_cast<std::uint8_t*>(std::malloc(n));
        const std::size_t given = m_input->Copy(block.data, n);
        std::memset(block.data + given, 0x5A, n - given);
    }
    if (!(form & 2)) {
        block.valid = static_cast<std::uint8_t*>(std::malloc(n));
        // Every byte read, any bytes, none read, or a flag other than 1.
        const int validity = (form >> 2) & 3;
        const std::size_t given = validity == 1 ? m_input->Copy(block.valid, n) : 0;
        std::memset(block.valid + given, validity == 2 ? 0 : validity == 3 ? 0xFF : 1, n - given);
    }
}
