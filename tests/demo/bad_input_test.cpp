// What the watch may send that makes no sense: no argument, unknown
// sub-codes, member indexes out of range, records that name nothing, blocks
// without records. Each is answered by doing nothing.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "demo/debugger/type_codes.h"
#include "tests/demo/service_driver.h"

namespace {

bool Same(const WatchRecord& a, const WatchRecord& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(ServiceBadInput, RequestsWithoutAnArgumentAreIgnored)
{
    ServiceDriver driver;
    for (unsigned code = 0; code <= kLastDebugRequest; ++code) driver.Request(code, nullptr);
    const std::string text = "phase";
    ::SendMessage(driver.service.GetSafeHwnd(), UWM_DEBUG_REQUEST, reinterpret_cast<WPARAM>(text.c_str()), 0);
    ASSERT_EQ(driver.transcript.size(), kLastDebugRequest + 2);
    EXPECT_EQ(driver.transcript[3], "request 3 without an argument: ignored");
    EXPECT_EQ(driver.transcript.back(), "evaluate without a record: ignored");
}

TEST(ServiceBadInput, AnUnknownSubCodeLeavesItsArgumentAlone)
{
    ServiceDriver driver;
    WatchRecord record = driver.Evaluate("cfg");
    const WatchRecord before = record;
    driver.Request(6, &record);
    EXPECT_TRUE(Same(record, before));
}

TEST(ServiceBadInput, MemberIndexesOutsideTheParentChangeNothing)
{
    ServiceDriver driver;
    const WatchRecord cfg = driver.Evaluate("cfg");
    const WatchRecord lights = driver.Evaluate("lights");
    const WatchRecord phase = driver.Evaluate("phase");
    for (const int index : {-1, 3, 1000000, INT_MAX, INT_MIN}) {
        for (const WatchRecord* parent : {&cfg, &lights, &phase}) {
            WatchRecord copy = *parent;
            copy.count = index;
            const WatchRecord before = copy;
            driver.Request(DRQ_GET_MEMBER, &copy);
            EXPECT_TRUE(Same(copy, before)) << "index " << index;
        }
    }
}

TEST(ServiceBadInput, TypeRefsThatDoNotMatchTheTypeNameNoStructure)
{
    ServiceDriver driver;
    const std::uint32_t cfgRef = driver.Evaluate("cfg").typeRef;
    WatchRecord record = driver.Evaluate("phase");
    for (const std::uint32_t typeRef : {cfgRef, kNoTypeRef, 0x7FFFFFFFu, 1u}) {
        record.typeRef = typeRef;
        EXPECT_EQ(driver.Count(record), 0);
    }
    WatchRecord cfg = driver.Evaluate("cfg");
    cfg.typeRef = 0xDEADBEEF;
    EXPECT_EQ(driver.Count(cfg), 0);
    cfg.count = 0;
    const WatchRecord before = cfg;
    driver.Request(DRQ_GET_MEMBER, &cfg);
    EXPECT_TRUE(Same(cfg, before));
}

TEST(ServiceBadInput, RecordsWhoseObjectCannotBeReadAreUnavailable)
{
    ServiceDriver driver;
    WatchRecord record = driver.Evaluate("counter");
    record.address = 0xFFFFFFF0;
    driver.Request(DRQ_READ_VALUE, &record);
    EXPECT_EQ(record.unavailable, 1u);
    record.address = 0x0100;
    record.size = 9;  // no scalar is this wide
    driver.Request(DRQ_READ_VALUE, &record);
    EXPECT_EQ(record.unavailable, 1u);
    record.space = WS_FILE;
    record.size = 2;
    driver.Request(DRQ_READ_VALUE, &record);
    EXPECT_EQ(record.unavailable, 1u);
    driver.Request(DRQ_WRITE_VALUE, &record);
    record.space = 200;
    driver.Request(DRQ_WRITE_VALUE, &record);
    EXPECT_EQ(driver.Evaluate("counter").value, 10u);
}

TEST(ServiceBadInput, ElementBlocksWithoutRecordsGetNothing)
{
    ServiceDriver driver;
    WatchRecord timings = driver.Evaluate("timings");
    WatchRecord element{};
    ElementBlock noArray{nullptr, &element, nullptr, nullptr};
    driver.Request(DRQ_GET_ELEMENTS, &noArray);
    EXPECT_EQ(noArray.data, nullptr);
    EXPECT_EQ(noArray.valid, nullptr);
    EXPECT_EQ(element.status, 0);
    ElementBlock noElement{&timings, nullptr, nullptr, nullptr};
    driver.Request(DRQ_GET_ELEMENTS, &noElement);
    EXPECT_EQ(noElement.data, nullptr);
    EXPECT_EQ(noElement.valid, nullptr);
}

TEST(ServiceBadInput, HugeCountsAreCutToWhatA64KiBSpaceHolds)
{
    ServiceDriver driver;
    WatchRecord timings = driver.Evaluate("timings");
    timings.count = INT_MAX;
    WatchRecord element{};
    ElementBlock block{&timings, &element, nullptr, nullptr};
    driver.Request(DRQ_GET_ELEMENTS, &block);
    ASSERT_NE(block.data, nullptr);
    // 32768 two-byte elements: the last byte is there to read.
    EXPECT_EQ(block.valid[65535], 0);
    EXPECT_EQ(block.valid[23], 1);
    std::free(block.data);
    std::free(block.valid);
}

TEST(ServiceBadInput, AnUnterminatedTextForTheMemoryViewIsReadOnlyToTheCap)
{
    ServiceDriver driver;
    std::vector<char> unterminated(1025, 'm');
    driver.Request(DRQ_SHOW_MEMORY, unterminated.data());
    EXPECT_EQ(driver.service.MemoryViewShows(), std::string(1024, 'm'));
}

}  // namespace
