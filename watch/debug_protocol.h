// What the watch and a host's debugger service exchange: one request message
// with its sub-codes, and three records whose byte layout both sides share.
// A service includes this header alone; it pulls in nothing of the library.
//
// Every request is sent synchronously to the service window with
// SendMessage(service, UWM_DEBUG_REQUEST, wParam, lParam); its result is never
// used. wParam 0 to 8 is a sub-code; any other wParam is the address of a
// zero-terminated GBK expression to evaluate into the WatchRecord at lParam.
// Records, texts and blocks passed by address live only during the call.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr unsigned int UWM_DEBUG_REQUEST = 1438;  // WM_USER + 414

// Sub-codes (wParam) and what lParam carries with each.
enum DebugRequest : unsigned int {
    DRQ_WRITE_VALUE = 0,    // WatchRecord: write its value to the object it describes
    DRQ_GET_COUNT = 1,      // WatchRecord: fill count (members, elements, or 0)
    DRQ_GET_MEMBER = 2,     // WatchRecord: the parent's copy with count = member index;
                            // replaced by the member's description
    DRQ_READ_VALUE = 3,     // WatchRecord: read value and unavailable anew
    DRQ_GET_LIST_SIZE = 4,  // std::int32_t*, 0 on entry: the service's list size
    DRQ_GET_LIST = 5,       // n WatchListEntry records, n from DRQ_GET_LIST_SIZE
    DRQ_SHOW_MEMORY = 7,    // const char*: show the object it names in the memory view
    DRQ_GET_ELEMENTS = 8,   // ElementBlock*
};
// The highest sub-code; any larger wParam is an expression's address.
constexpr unsigned int kLastDebugRequest = DRQ_GET_ELEMENTS;

// Type codes, 0 to 41; those a watch or a service names in code.
enum WatchType : std::uint32_t {
    WT_BIT = 1,
    WT_CHAR = 2,
    WT_UCHAR = 3,
    WT_INT = 4,
    WT_UINT = 5,
    WT_LONG = 6,
    WT_ULONG = 7,
    WT_FLOAT = 8,
    WT_FLOAT_ALT = 12,
    WT_STRUCT = 32,
    WT_UNION = 33,
    WT_POINTER = 35,
    WT_GENERAL_POINTER = 36,
    WT_ARRAY = 38,
};
constexpr std::uint32_t kWatchTypeCount = 42;

// Memory space codes, 0 to 10; 255 means none (no value, no format).
enum WatchSpace : std::uint32_t {
    WS_CODE = 0,
    WS_XDATA = 1,
    WS_DATA = 2,
    WS_IDATA = 3,
    WS_BIT = 4,
    WS_CONST = 5,
    WS_STACK = 6,
    WS_PDATA = 7,
    WS_FILE = 8,
    WS_SYS = 9,
    WS_NUMBER = 10,
    WS_NONE = 255,
};
constexpr std::uint32_t kWatchSpaceCount = 11;

// A typeRef naming no structured type.
constexpr std::uint32_t kNoTypeRef = 0xFFFFFFFF;
// The status of an entry loaded from the service's own list.
constexpr std::uint8_t kListEntryStatus = 0x0F;

// One evaluated expression, member or element: 84 bytes, little-endian,
// 32-bit fields aligned.
struct WatchRecord {
    std::uint8_t status;          // 0: no value, errorId says why
    char name[35];                // member name, element text or list name
    std::uint32_t type;           // type code
    std::uint32_t space;          // memory space code, or WS_NONE
    std::uint32_t serviceData1;   // the service's own; copied, never read
    std::uint32_t size;           // bytes; in an element template, one element's
    std::uint32_t serviceData2;   // the service's own; copied, never read
    std::uint32_t address;        // in an element template, element 0's
    std::uint32_t typeRef;        // structured type; 0 and kNoTypeRef mean none
    std::uint32_t arrayFlag;      // 1: expand an array as one block of elements
    std::int32_t count;           // members or elements; a member index in DRQ_GET_MEMBER
    std::uint32_t unavailable;    // non-zero: the value could not be read
    std::uint32_t errorId;        // with status 0: string id of the message shown
    std::uint32_t value;          // for types 8 and 12 an IEEE 754 single's bits
};

static_assert(sizeof(WatchRecord) == 84);
static_assert(offsetof(WatchRecord, name) == 1);
static_assert(offsetof(WatchRecord, type) == 36);
static_assert(offsetof(WatchRecord, space) == 40);
static_assert(offsetof(WatchRecord, serviceData1) == 44);
static_assert(offsetof(WatchRecord, size) == 48);
static_assert(offsetof(WatchRecord, serviceData2) == 52);
static_assert(offsetof(WatchRecord, address) == 56);
static_assert(offsetof(WatchRecord, typeRef) == 60);
static_assert(offsetof(WatchRecord, arrayFlag) == 64);
static_assert(offsetof(WatchRecord, count) == 68);
static_assert(offsetof(WatchRecord, unavailable) == 72);
static_assert(offsetof(WatchRecord, errorId) == 76);
static_assert(offsetof(WatchRecord, value) == 80);

// One entry of the service's own list (DRQ_GET_LIST): 82 bytes, packed.
#pragma pack(push, 1)
struct WatchListEntry {
    std::uint8_t serviceBytes0[32];  // the service's own
    char name[32];                   // zero-terminated when shorter than 32 bytes
    std::uint8_t serviceByte64;
    std::uint8_t space;
    std::uint8_t serviceData2;
    std::uint16_t address;
    std::uint8_t type;
    std::uint32_t typeRef;
    std::uint8_t serviceByte74;
    std::uint16_t size;
    std::uint8_t serviceData1;
    std::uint32_t arrayFlag;
};
#pragma pack(pop)

static_assert(sizeof(WatchListEntry) == 82);
static_assert(offsetof(WatchListEntry, name) == 32);
static_assert(offsetof(WatchListEntry, space) == 65);
static_assert(offsetof(WatchListEntry, serviceData2) == 66);
static_assert(offsetof(WatchListEntry, address) == 67);
static_assert(offsetof(WatchListEntry, type) == 69);
static_assert(offsetof(WatchListEntry, typeRef) == 70);
static_assert(offsetof(WatchListEntry, size) == 75);
static_assert(offsetof(WatchListEntry, serviceData1) == 77);
static_assert(offsetof(WatchListEntry, arrayFlag) == 78);

// DRQ_GET_ELEMENTS: four words in the watch's memory. The watch fills the
// first two; the service fills the template and hands back two arrays of
// count x size bytes (count from the array record, size from the template),
// allocated with std::malloc, which the watch frees with std::free.
struct ElementBlock {
    WatchRecord* array;     // in: the array's record
    WatchRecord* element;   // in: a template the service fills as element 0
    std::uint8_t* data;     // out: element i at i x size, most significant byte first
    std::uint8_t* valid;    // out: 1 where the byte at the same place was read
};

static_assert(offsetof(ElementBlock, array) == 0);
static_assert(offsetof(ElementBlock, element) == sizeof(void*));
static_assert(offsetof(ElementBlock, data) == 2 * sizeof(void*));
static_assert(offsetof(ElementBlock, valid) == 3 * sizeof(void*));

// What the watch takes from a service, at most. An 8051 addresses 64 KiB of
// xdata (and as much code), so no object it holds has more members or
// elements, no array more bytes, and no list of its objects more entries;
// anything a service answers beyond these is cut to them, so a hostile answer
// allocates nothing unbounded. A count below 0, an element size of 0 and a
// list size below 0 give nothing. Only the 4 least significant bytes of a
// wider element fit in value: they are kept, and the rest are only checked
// for validity.
constexpr std::int64_t kMaxWatchChildren = 65536;
constexpr std::int64_t kMaxElementBytes = 65536;
constexpr std::int32_t kMaxWatchListEntries = 65536;

// Messages a service can name in errorId; their texts are the module's strings.
enum WatchError : std::uint32_t {
    WERR_WRONG_EXPRESSION = 32063,   // 错误的表达式
    WERR_EXPRESSION_FORMAT = 52060,  // 表达式格式错误
    WERR_ILLEGAL_CHARACTER = 52061,  // 存在非法字符
    WERR_NUMERIC_TYPE = 52062,       // 数值类型错误
    WERR_MISSING_OPEN = 52063,       // 括号配对错误，缺少"["或"("
    WERR_MISSING_CLOSE = 52064,      // 括号配对错误，缺少"]"或")"
    WERR_DIVISION_BY_ZERO = 52065,   // 除数为零
    WERR_UNDEFINED = 52066,          // 变量未定义
    WERR_STRING_TOO_LONG = 52067,    // 字符串太长
    WERR_QUOTES = 52068,             // 引号配对错误
    WERR_NOT_BIT_ADDRESSABLE = 52069,// 地址不可位寻址
    WERR_NO_SPACE = 52070,           // 无法定位存储器空间
    WERR_READ_FAILED = 52071,        // 读数据出错
    WERR_INVALID_POINTER = 52072,    // 无效的指针
};
