// The service's own watch list, the memory view, and the transcript lines
// the demo shows of the exchange.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "demo/debugger/simulated_target.h"
#include "demo/debugger/type_codes.h"
#include "platform/text/gbk.h"
#include "tests/demo/service_driver.h"

namespace {

std::vector<WatchListEntry> GetList(ServiceDriver& driver, std::size_t room)
{
    std::int32_t size = 0;
    driver.Request(DRQ_GET_LIST_SIZE, &size);
    EXPECT_EQ(size, 3);
    std::vector<WatchListEntry> entries(room);
    std::memset(entries.data(), 0xAA, room * sizeof(WatchListEntry));
    driver.Request(DRQ_GET_LIST, entries.data());
    return entries;
}

TEST(ServiceWatchList, EntriesDescribeTheListedObjectsInTheirPackedFields)
{
    ServiceDriver driver;
    const std::vector<WatchListEntry> entries = GetList(driver, 4);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(entries.data());
    EXPECT_STREQ(reinterpret_cast<const char*>(bytes + 32), "phase");
    EXPECT_EQ(bytes[65], WS_DATA);
    EXPECT_EQ(bytes[67] | bytes[68] << 8, 0x30);
    EXPECT_EQ(bytes[69], WT_UCHAR);
    EXPECT_EQ(bytes[75] | bytes[76] << 8, 1);

    const std::uint8_t* cfg = bytes + 2 * sizeof(WatchListEntry);
    EXPECT_STREQ(reinterpret_cast<const char*>(cfg + 32), "cfg");
    EXPECT_EQ(cfg[65], WS_XDATA);
    EXPECT_EQ(cfg[67] | cfg[68] << 8, 0x0110);
    EXPECT_EQ(cfg[69], WT_STRUCT);
    std::uint32_t typeRef = 0;
    std::memcpy(&typeRef, cfg + 70, 4);
    EXPECT_EQ(typeRef, driver.Evaluate("cfg").typeRef);
    EXPECT_EQ(cfg[75] | cfg[76] << 8, 4);

    EXPECT_STREQ(entries[1].name, "ticks");
    EXPECT_EQ(entries[3].type, 0xAA) << "nothing written past the list";
}

TEST(ServiceWatchList, ARecordLoadedFromAnEntryReadsAndExpands)
{
    ServiceDriver driver;
    const std::vector<WatchListEntry> entries = GetList(driver, 3);
    // What the watch makes of an entry.
    WatchRecord cfg{};
    cfg.status = kListEntryStatus;
    cfg.space = entries[2].space;
    cfg.address = entries[2].address;
    cfg.type = entries[2].type;
    cfg.typeRef = entries[2].typeRef;
    cfg.size = entries[2].size;
    cfg.arrayFlag = entries[2].arrayFlag;
    EXPECT_EQ(driver.Count(cfg), 3);
    EXPECT_EQ(driver.Member(cfg, 1).value, 8u);

    WatchRecord ticks = cfg;
    ticks.space = entries[1].space;
    ticks.address = entries[1].address;
    ticks.type = entries[1].type;
    ticks.typeRef = entries[1].typeRef;
    ticks.size = entries[1].size;
    driver.service.Step();
    driver.Request(DRQ_READ_VALUE, &ticks);
    EXPECT_EQ(ticks.value, 1u);
}

TEST(ServiceWatchList, ANameThatFillsTheFieldIsCutWithoutATerminator)
{
    SymbolTable symbols;
    const std::string longName(40, 'n');
    symbols.Add({longName, symbols.Types().Scalar(WT_UCHAR), WS_DATA, 0x40});
    SimulatedDebuggerService service(std::make_unique<SimulatedTarget>(), std::move(symbols), {longName, "missing"});
    ASSERT_TRUE(service.Create(nullptr));
    std::int32_t size = 0;
    ::SendMessage(service.GetSafeHwnd(), UWM_DEBUG_REQUEST, DRQ_GET_LIST_SIZE, reinterpret_cast<LPARAM>(&size));
    ASSERT_EQ(size, 1) << "names without a symbol are left out";
    WatchListEntry entry{};
    ::SendMessage(service.GetSafeHwnd(), UWM_DEBUG_REQUEST, DRQ_GET_LIST, reinterpret_cast<LPARAM>(&entry));
    EXPECT_EQ(std::string(entry.name, sizeof entry.name), std::string(32, 'n'));
    EXPECT_EQ(entry.space, WS_DATA) << "the name stays in its field";
}

TEST(ServiceMemoryView, ShowsTheObjectItWasAskedFor)
{
    ServiceDriver driver;
    const std::string text = "lights[1].cfg";
    driver.Request(DRQ_SHOW_MEMORY, const_cast<char*>(text.c_str()));
    EXPECT_EQ(driver.service.MemoryViewShows(), text);
    ASSERT_FALSE(driver.transcript.empty());
    EXPECT_NE(driver.transcript.back().find("memory view shows \"lights[1].cfg\""), std::string::npos);
    EXPECT_NE(driver.transcript.back().find("at 0x014C"), std::string::npos);
}

TEST(ServiceTranscript, OneLinePerRequestSaysWhatWasAskedAndAnswered)
{
    ServiceDriver driver;
    WatchRecord phase = driver.Evaluate("phase");
    driver.Evaluate("nosuch");
    driver.Evaluate(GBK("温度") + "x");
    driver.Request(DRQ_READ_VALUE, &phase);
    driver.service.Step();
    ASSERT_EQ(driver.transcript.size(), 5u);
    EXPECT_EQ(driver.transcript[0], "evaluate \"phase\" -> unsigned char in data at 0x0030 = 0x0");
    EXPECT_EQ(driver.transcript[1], "evaluate \"nosuch\" -> error 52066");
    EXPECT_EQ(driver.transcript[2], "evaluate \"温度x\" -> error 52061") << "GBK shown as UTF-8";
    EXPECT_EQ(driver.transcript[3], "read unsigned char in data at 0x0030 = 0x0");
    EXPECT_EQ(driver.transcript[4], "target ran one step");
}

TEST(ServiceTranscript, LongTextsAreShownCut)
{
    ServiceDriver driver;
    driver.Evaluate(std::string(200, 'x'));
    ASSERT_EQ(driver.transcript.size(), 1u);
    EXPECT_LT(driver.transcript[0].size(), 100u);
    EXPECT_NE(driver.transcript[0].find("...\""), std::string::npos);
}

}  // namespace
