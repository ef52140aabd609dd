// What the watch asks the debugger service, in what order and with what, and
// how the answers become rows: value writes, members, elements, refreshes.
#include <cstring>

#include "siblings/orv_project_misc.h"
#include "tests/watch/watch_fixture.h"

namespace {

using Codes = std::vector<unsigned>;
constexpr unsigned kEval = ScriptedDebugger::kEvaluate;

class WatchServiceTest : public WatchFixture {
protected:
    void Add(const std::string& gbk) { grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(gbk.c_str()), 0); }
};

TEST_F(WatchServiceTest, AWrittenValueIsReadBackAndMarkedChanged)
{
    service.Define("t", MakeRecord(WT_FLOAT, WS_XDATA, 0x200, 4, 0x3F800000));
    Add("t");
    ASSERT_EQ(grid.GetRowAt(0)->format, WF_DECIMAL);
    service.ClearRequests();

    // A whole number typed for a float in decimal is that number as a float.
    EditCell(0, 1, "3");
    EXPECT_EQ(service.Codes(), (Codes{DRQ_WRITE_VALUE, DRQ_READ_VALUE}));
    EXPECT_EQ(service.requests[0].sent.value, 0x40400000u);
    EXPECT_EQ(Cell(0, 1), "3.000000");
    EXPECT_TRUE(grid.GetRowAt(0)->changed);

    // Hexadecimal notation is passed on unchanged.
    service.ClearRequests();
    EditCell(0, 1, "40A00000h");
    ASSERT_EQ(service.Codes(), (Codes{DRQ_WRITE_VALUE, DRQ_READ_VALUE}));
    EXPECT_EQ(service.requests[0].sent.value, 0x40A00000u);

    // The same text, or a text that is no constant, writes nothing.
    service.ClearRequests();
    EditCell(0, 1, "5.000000");
    EditCell(0, 1, "five");
    EXPECT_TRUE(service.requests.empty());
    EXPECT_EQ(Cell(0, 1), "5.000000");
}

TEST_F(WatchServiceTest, TheTargetDecidesWhatAWriteLeaves)
{
    service.Define("c", MakeRecord(3, WS_DATA, 0x30, 1, 0x10));
    service.Poke(WS_DATA, 0x30, 0x10);
    Add("c");
    ASSERT_EQ(grid.GetRowAt(0)->format, WF_HEXADECIMAL);
    // The service keeps one byte: 0x1FF reads back as FF.
    EditCell(0, 1, "1FF");
    EXPECT_EQ(service.Peek(WS_DATA, 0x30), 0xFFu);
    EXPECT_EQ(Cell(0, 1), "FF");
    EXPECT_TRUE(grid.GetRowAt(0)->changed);
    // Writing what is already there leaves the row unchanged.
    EditCell(0, 1, "0FF");
    EXPECT_FALSE(grid.GetRowAt(0)->changed);
}

TEST_F(WatchServiceTest, ExpandingAStructureAsksForEachMemberInTurn)
{
    WatchRecord cfg = MakeRecord(32, WS_XDATA, 0x100, 4);
    cfg.typeRef = 9;
    cfg.count = 3;
    service.Define("cfg", cfg);
    WatchRecord red = MakeRecord(3, WS_XDATA, 0x100, 1, 5);
    std::strcpy(red.name, "red");
    WatchRecord green = MakeRecord(3, WS_XDATA, 0x101, 1, 6);
    std::strcpy(green.name, "green");
    WatchRecord inner = MakeRecord(32, WS_XDATA, 0x102, 2);
    inner.typeRef = 10;
    // A name that fills its field without a terminator stops at the field.
    std::memset(inner.name, 'n', sizeof inner.name);
    service.DefineMembers(9, {red, green, inner});
    service.DefineMembers(10, {MakeRecord(WT_INT, WS_XDATA, 0x102, 2, 7)});
    Add("cfg");
    service.ClearRequests();

    grid.ToggleExpand(0);
    EXPECT_EQ(service.Codes(), (Codes{DRQ_GET_COUNT, DRQ_GET_MEMBER, DRQ_GET_COUNT, DRQ_GET_MEMBER, DRQ_GET_COUNT,
                                      DRQ_GET_MEMBER, DRQ_GET_COUNT}));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(service.requests[1 + 2 * i].sent.count, i);
    EXPECT_EQ(Lines(), (Texts{"cfg", "red", "green", std::string(35, 'n'), Prompt()}));
    EXPECT_EQ(Cell(1, 1), "05");
    const CGridRow* nested = grid.GetRowAt(3);
    EXPECT_EQ(nested->Flags() & (GRF_SUBPARENT | GRF_COLLAPSED), GRF_SUBPARENT | GRF_COLLAPSED);
    EXPECT_EQ(nested->Cell(0)->kind, 0u);
    EXPECT_EQ(nested->level, 1u);

    // A second expansion makes nothing anew: it re-reads the value rows.
    grid.ToggleExpand(0);
    service.ClearRequests();
    grid.ToggleExpand(0);
    EXPECT_EQ(service.Codes(), (Codes{DRQ_READ_VALUE, DRQ_READ_VALUE}));
}

TEST_F(WatchServiceTest, ElementsComeAsBytesMostSignificantFirst)
{
    WatchRecord timings = MakeRecord(WT_ARRAY, WS_XDATA, 0x300, 24);
    timings.count = 12;
    service.Define("timings", timings);
    ScriptedDebugger::Elements elements;
    elements.elementTemplate = MakeRecord(WT_INT, WS_XDATA, 0x300, 2);
    for (int i = 0; i < 12; ++i) {
        elements.data.push_back(static_cast<std::uint8_t>(i));
        elements.data.push_back(static_cast<std::uint8_t>(0x10 + i));
        elements.valid.push_back(1);
        elements.valid.push_back(i == 7 ? 0 : 1);
    }
    service.DefineElements(WS_XDATA, 0x300, elements);
    Add("timings");
    service.ClearRequests();

    grid.ToggleExpand(0);
    EXPECT_EQ(service.Codes(), (Codes{DRQ_GET_COUNT, DRQ_GET_ELEMENTS}));
    ASSERT_EQ(grid.GetItemCount(), 14);
    EXPECT_EQ(Lines()[1], "[00]");
    EXPECT_EQ(Lines()[12], "[11]");
    const WatchRecord* first = RecordOf(grid.GetRowAt(2));
    EXPECT_EQ(first->address, 0x302u);
    EXPECT_EQ(first->value, 0x0111u);
    EXPECT_EQ(RecordOf(grid.GetRowAt(12))->address, 0x300u + 22);
    // A byte the service could not read makes the element unavailable.
    EXPECT_EQ(Cell(8, 1), "????");
    EXPECT_EQ(Cell(9, 1), std::to_string(0x0818));
}

TEST_F(WatchServiceTest, AnArrayWithATypeOfItsOwnExpandsMemberByMember)
{
    WatchRecord lights = MakeRecord(WT_ARRAY, WS_XDATA, 0x140, 16);
    lights.typeRef = 3;
    lights.count = 2;
    service.Define("lights", lights);
    WatchRecord first = MakeRecord(32, WS_XDATA, 0x140, 8);
    std::strcpy(first.name, "[00]");
    WatchRecord second = MakeRecord(32, WS_XDATA, 0x148, 8);
    std::strcpy(second.name, "[01]");
    service.DefineMembers(3, {first, second});
    Add("lights");
    service.ClearRequests();
    grid.ToggleExpand(0);
    EXPECT_EQ(service.Codes(), (Codes{DRQ_GET_COUNT, DRQ_GET_MEMBER, DRQ_GET_COUNT, DRQ_GET_MEMBER, DRQ_GET_COUNT}));
    EXPECT_EQ(Lines(), (Texts{"lights", "[00]", "[01]", Prompt()}));
}

TEST_F(WatchServiceTest, HostileCountsAndSizesAreCutToWhatAnEightOFiftyOneHolds)
{
    // Elements of 8 bytes: at most 64 KiB of them, each showing its low 4 bytes.
    WatchRecord wide = MakeRecord(WT_ARRAY, WS_XDATA, 0, 0);
    wide.count = 2000000000;
    service.Define("wide", wide);
    ScriptedDebugger::Elements elements;
    elements.elementTemplate = MakeRecord(7, WS_XDATA, 0, 8);
    elements.data.assign(65536, 0);
    elements.valid.assign(65536, 1);
    for (int b = 0; b < 8; ++b) elements.data[b] = static_cast<std::uint8_t>(0x11 * (b + 1));
    service.DefineElements(WS_XDATA, 0, elements);
    Add("wide");
    service.countAnswer = 2000000000;
    grid.ToggleExpand(0);
    EXPECT_EQ(grid.GetItemCount(), 1 + 8192 + 1);
    EXPECT_EQ(RecordOf(grid.GetRowAt(1))->value, 0x55667788u);
    EXPECT_EQ(RecordOf(grid.GetRowAt(8192))->address, 8191u * 8);

    // Elements of no size, and a negative count, make no rows.
    WatchRecord empty = MakeRecord(WT_ARRAY, WS_DATA, 0x60, 0);
    empty.count = 4;
    service.Define("empty", empty);
    service.DefineElements(WS_DATA, 0x60, {MakeRecord(3, WS_DATA, 0x60, 0), {1, 2}, {1, 1}});
    Add("empty");
    const int emptyLine = grid.GetItemCount() - 2;
    service.countAnswer = 4;
    grid.ToggleExpand(emptyLine);
    EXPECT_EQ(grid.GetRowAt(emptyLine)->children.GetSize(), 0);

    WatchRecord negative = MakeRecord(32, WS_DATA, 0x70, 2);
    negative.typeRef = 12;
    negative.count = 1;
    service.Define("negative", negative);
    Add("negative");
    const int negativeLine = grid.GetItemCount() - 2;
    service.countAnswer = -5;
    grid.ToggleExpand(negativeLine);
    EXPECT_EQ(grid.GetRowAt(negativeLine)->children.GetSize(), 0);

    // A list size below zero gives no rows; a huge one no more than 64 Ki
    // entries, those the service did not write being empty.
    service.countAnswer.reset();
    grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
    grid.fixedRows = TRUE;
    service.list.assign(1, WatchListEntry{});
    std::strcpy(service.list[0].name, "phase");
    service.listSizeAnswer = -1;
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(grid.GetItemCount(), 0);
    service.listSizeAnswer = 2000000000;
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(grid.GetItemCount(), 65536);
    EXPECT_EQ(Lines()[0], "phase");
    EXPECT_EQ(Lines()[65535], "");
}

TEST_F(WatchServiceTest, ARefreshMarksChangesAndRebuildsRowsThatNameAnotherObject)
{
    service.Define("x", MakeRecord(WT_INT, WS_DATA, 0x30, 2, 1));
    WatchRecord p = MakeRecord(32, WS_XDATA, 0x100, 2);
    p.typeRef = 4;
    p.count = 1;
    service.Define("p", p);
    service.DefineMembers(4, {MakeRecord(WT_INT, WS_XDATA, 0x100, 2, 3)});
    Add("x");
    Add("p");
    grid.ToggleExpand(1);
    ASSERT_EQ(grid.GetItemCount(), 4);

    service.Poke(WS_DATA, 0x30, 2);
    service.Poke(WS_XDATA, 0x100, 9);
    service.ClearRequests();
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(service.Codes(), (Codes{kEval, kEval, DRQ_READ_VALUE}));
    EXPECT_TRUE(grid.GetRowAt(0)->changed);
    EXPECT_EQ(Cell(0, 1), "2");
    EXPECT_TRUE(grid.GetRowAt(2)->changed);
    EXPECT_EQ(Cell(2, 1), "9");

    // p now names another object: collapsed, children gone, format back to default.
    p.address = 0x180;
    service.Define("p", p);
    grid.GetRowAt(1)->format = WF_BINARY;
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(Lines(), (Texts{"x", "p", Prompt()}));
    EXPECT_EQ(grid.GetRowAt(1)->children.GetSize(), 0);
    EXPECT_EQ(grid.GetRowAt(1)->format, WF_HEXADECIMAL);
    EXPECT_FALSE(grid.GetRowAt(0)->changed);
}

TEST_F(WatchServiceTest, AFixedListMirrorsTheServicesListKeepingRowsThatStay)
{
    auto entry = [](const char* name, std::uint16_t address) {
        WatchListEntry e{};
        std::memcpy(e.name, name, std::strlen(name));
        e.space = WS_DATA;
        e.address = address;
        e.type = 3;
        e.size = 1;
        e.typeRef = kNoTypeRef;
        return e;
    };
    grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
    grid.fixedRows = TRUE;
    service.list = {entry("a", 0x30), entry("b", 0x31)};
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    ASSERT_EQ(Lines(), (Texts{"a", "b"}));
    EXPECT_EQ(RecordOf(grid.GetRowAt(0))->status, kListEntryStatus);
    grid.GetRowAt(1)->format = WF_BINARY;

    service.list = {entry("b", 0x31), entry("c", 0x32)};
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(Lines(), (Texts{"b", "c"}));
    EXPECT_EQ(grid.GetRowAt(0)->format, WF_BINARY);
    EXPECT_EQ(grid.GetRowAt(1)->format, WF_HEXADECIMAL);

    // A list that names one object twice gets a row for each entry.
    service.list = {entry("c", 0x32), entry("c", 0x32), entry("b", 0x31)};
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(Lines(), (Texts{"c", "c", "b"}));
    EXPECT_EQ(grid.GetRowAt(2)->format, WF_BINARY);

    // A name of all 32 bytes: no terminator in the entry, three zero bytes after it.
    WatchListEntry full = entry("", 0x33);
    std::memset(full.name, 'z', sizeof full.name);
    service.list = {full};
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_EQ(Lines(), (Texts{std::string(32, 'z')}));
}

TEST_F(WatchServiceTest, TheQuickViewAnswersTheHostAndNeverOverrunsItsBuffer)
{
    WatchRecord record = MakeRecord(WT_CHAR, WS_DATA, 0x30, 1, 65);
    char buffer[86 + 8];
    std::memset(buffer, 0x5A, sizeof buffer);
    buffer[0] = 1;
    EXPECT_EQ(grid.SendMessage(UWM_WATCH_FORMAT_VALUE, reinterpret_cast<WPARAM>(buffer), reinterpret_cast<LPARAM>(&record)), 1);
    EXPECT_STREQ(buffer, "65,41H,01000001B(data:0030)");

    std::memset(&record, 0xFF, sizeof record);
    std::memset(buffer, 0x5A, sizeof buffer);
    buffer[0] = 1;
    grid.SendMessage(UWM_WATCH_FORMAT_VALUE, reinterpret_cast<WPARAM>(buffer), reinterpret_cast<LPARAM>(&record));
    EXPECT_STREQ(buffer, "????,0????H");
    for (std::size_t i = 86; i < sizeof buffer; ++i) EXPECT_EQ(buffer[i], 0x5A) << i;
    EXPECT_EQ(grid.SendMessage(UWM_WATCH_FORMAT_VALUE, 0, 0), 1);
}

}  // namespace
