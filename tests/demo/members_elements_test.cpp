// Expanding aggregates as the watch does: counts, members one by one (also
// members of members), and the elements of scalar arrays as one block.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "demo/debugger/type_codes.h"
#include "tests/demo/patchy_target.h"
#include "tests/demo/service_driver.h"

namespace {

std::string NameOf(const WatchRecord& record)
{
    return std::string(record.name, strnlen(record.name, sizeof record.name));
}

// The two arrays a DRQ_GET_ELEMENTS hands over, freed as the watch frees them.
struct Elements {
    WatchRecord element{};
    std::vector<std::uint8_t> data;
    std::vector<std::uint8_t> valid;
    bool handedOver = false;
};

Elements GetElements(ServiceDriver& driver, WatchRecord array, std::size_t bytes)
{
    Elements result;
    ElementBlock block{&array, &result.element, nullptr, nullptr};
    driver.Request(DRQ_GET_ELEMENTS, &block);
    result.handedOver = block.data && block.valid;
    if (block.data) result.data.assign(block.data, block.data + bytes);
    if (block.valid) result.valid.assign(block.valid, block.valid + bytes);
    std::free(block.data);
    std::free(block.valid);
    return result;
}

TEST(ServiceMembers, CountsAreMembersOrElementsAndZeroForTheRest)
{
    ServiceDriver driver;
    EXPECT_EQ(driver.Count(driver.Evaluate("cfg")), 3);
    EXPECT_EQ(driver.Count(driver.Evaluate("sensor")), 2);
    EXPECT_EQ(driver.Count(driver.Evaluate("timings")), 12);
    EXPECT_EQ(driver.Count(driver.Evaluate("lights")), 3);
    EXPECT_EQ(driver.Count(driver.Evaluate("lights[0].lamps")), 3);
    for (const char* text : {"phase", "cursor", "temperature", "42", "&cfg", "nosuch"}) {
        WatchRecord record = driver.Evaluate(text);
        record.count = 99;
        EXPECT_EQ(driver.Count(record), 0) << text;
    }
}

TEST(ServiceMembers, AStructureGivesItsFieldsWithNamesPlacesAndValues)
{
    ServiceDriver driver;
    const WatchRecord cfg = driver.Evaluate("cfg");
    const WatchRecord red = driver.Member(cfg, 0);
    EXPECT_EQ(NameOf(red), "red_time");
    EXPECT_EQ(red.type, WT_UCHAR);
    EXPECT_EQ(red.address, 0x0110u);
    EXPECT_EQ(red.value, 10u);
    const WatchRecord offset = driver.Member(cfg, 2);
    EXPECT_EQ(NameOf(offset), "offset");
    EXPECT_EQ(offset.type, WT_INT);
    EXPECT_EQ(offset.space, WS_XDATA);
    EXPECT_EQ(offset.size, 2u);
    EXPECT_EQ(offset.address, 0x0112u);
    EXPECT_EQ(offset.value, 0xFFFDu);
    EXPECT_EQ(offset.typeRef, 0u);
}

TEST(ServiceMembers, NestedAggregatesExpandFromTheRecordsTheirParentsGave)
{
    ServiceDriver driver;
    const WatchRecord light = driver.Member(driver.Evaluate("lights"), 1);
    EXPECT_EQ(NameOf(light), "[01]");
    EXPECT_EQ(light.type, WT_STRUCT);
    EXPECT_EQ(light.address, 0x0148u);
    EXPECT_EQ(driver.Count(light), 3);

    const WatchRecord lamps = driver.Member(light, 1);
    EXPECT_EQ(NameOf(lamps), "lamps");
    EXPECT_EQ(lamps.type, WT_ARRAY);
    EXPECT_EQ(lamps.address, 0x0149u);
    EXPECT_EQ(lamps.arrayFlag, 1u);
    EXPECT_EQ(lamps.count, 3);

    const WatchRecord cfg = driver.Member(light, 2);
    EXPECT_EQ(cfg.typeRef, driver.Evaluate("cfg").typeRef);
    const WatchRecord offset = driver.Member(cfg, 2);
    EXPECT_EQ(offset.address, 0x014Eu);
    EXPECT_EQ(offset.value, 100u);
}

TEST(ServiceMembers, AUnionsMembersShareItsAddress)
{
    ServiceDriver driver;
    const WatchRecord sensor = driver.Evaluate("sensor");
    EXPECT_EQ(driver.Member(sensor, 0).address, 0x38u);
    EXPECT_EQ(driver.Member(sensor, 1).address, 0x38u);
    EXPECT_EQ(driver.Member(sensor, 1).type, WT_ARRAY);
}

TEST(ServiceElements, ScalarElementsComeMostSignificantByteFirst)
{
    ServiceDriver driver;
    WatchRecord second = driver.Evaluate("timings[1]");
    second.value = 0x1234;
    driver.Request(DRQ_WRITE_VALUE, &second);

    const Elements got = GetElements(driver, driver.Evaluate("timings"), 24);
    ASSERT_TRUE(got.handedOver);
    EXPECT_EQ(got.element.status, 1);
    EXPECT_EQ(got.element.type, WT_INT);
    EXPECT_EQ(got.element.space, WS_XDATA);
    EXPECT_EQ(got.element.size, 2u) << "one element's size";
    EXPECT_EQ(got.element.address, 0x0120u) << "element 0's address";
    EXPECT_EQ(got.element.typeRef, 0u);
    EXPECT_EQ((std::vector<std::uint8_t>(got.data.begin(), got.data.begin() + 6)),
              (std::vector<std::uint8_t>{0x00, 0x00, 0x12, 0x34, 0x00, 0x0A}));
    EXPECT_EQ(got.data[23], 55) << "element 11 is 5 x 11";
    EXPECT_EQ(got.valid, std::vector<std::uint8_t>(24, 1));
}

TEST(ServiceElements, ArraysInCodeAndInsideStructuresComeAsBlocksToo)
{
    ServiceDriver driver;
    const Elements name = GetElements(driver, driver.Evaluate("name"), 8);
    EXPECT_EQ(std::string(name.data.begin(), name.data.end()), std::string("TRAFFIC\0", 8));
    EXPECT_EQ(name.element.space, WS_CODE);

    const WatchRecord lamps = driver.Member(driver.Member(driver.Evaluate("lights"), 1), 1);
    const Elements got = GetElements(driver, lamps, 3);
    EXPECT_EQ(got.data, (std::vector<std::uint8_t>{0, 0, 1})) << "light 1 shows green";
    EXPECT_EQ(got.element.address, 0x0149u);
}

TEST(ServiceElements, BytesThatCannotBeReadAreMarkedNotValid)
{
    ServiceDriver driver(std::make_unique<PatchyTarget>(WS_XDATA, 0x0124, 0x0126));
    const Elements got = GetElements(driver, driver.Evaluate("timings"), 24);
    ASSERT_TRUE(got.handedOver);
    EXPECT_EQ(got.valid[2], 1);
    EXPECT_EQ(got.valid[4], 0);
    EXPECT_EQ(got.valid[5], 0);
    EXPECT_EQ(got.valid[6], 1);
}

TEST(ServiceElements, TheBlockFollowsTheRecordsCountPastTheArrayWithoutValidBytes)
{
    ServiceDriver driver;
    WatchRecord timings = driver.Evaluate("timings");
    timings.count = 20;
    const Elements got = GetElements(driver, timings, 40);
    ASSERT_TRUE(got.handedOver);
    EXPECT_EQ(got.valid[23], 1);
    EXPECT_EQ(std::vector<std::uint8_t>(got.valid.begin() + 24, got.valid.end()), std::vector<std::uint8_t>(16, 0));

    timings.count = -5;
    const Elements none = GetElements(driver, timings, 0);
    EXPECT_FALSE(none.handedOver);
    EXPECT_EQ(none.element.size, 2u) << "the template is still element 0";
}

TEST(ServiceElements, RecordsThatNameNoArrayGetNothing)
{
    ServiceDriver driver;
    for (const char* text : {"cfg", "phase", "42", "nosuch"}) {
        const Elements got = GetElements(driver, driver.Evaluate(text), 0);
        EXPECT_FALSE(got.handedOver) << text;
        EXPECT_EQ(got.element.status, 0) << text;
    }
}

}  // namespace
