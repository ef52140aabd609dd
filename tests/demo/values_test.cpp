// Writing values into target memory and reading them back, and the target
// running: what a refresh of the watch shows after each.
#include <gtest/gtest.h>

#include <bit>

#include "demo/debugger/type_codes.h"
#include "tests/demo/service_driver.h"

namespace {

// Writes value through a record of the text, then reads it back through a
// fresh record of the same text.
std::uint32_t WriteThenRead(ServiceDriver& driver, const char* text, std::uint32_t value)
{
    WatchRecord record = driver.Evaluate(text);
    record.value = value;
    driver.Request(DRQ_WRITE_VALUE, &record);
    WatchRecord again = driver.Evaluate(text);
    again.value = 0xA5A5A5A5;
    driver.Request(DRQ_READ_VALUE, &again);
    return again.value;
}

TEST(ServiceValues, WrittenValuesLandInMemoryCutToTheObjectsSize)
{
    ServiceDriver driver;
    EXPECT_EQ(WriteThenRead(driver, "phase", 0x1FF), 0xFFu);
    EXPECT_EQ(WriteThenRead(driver, "ticks", 0x1ABCD), 0xABCDu);
    EXPECT_EQ(WriteThenRead(driver, "total", 0xDEADBEEF), 0xDEADBEEFu);
    EXPECT_EQ(WriteThenRead(driver, "mode", 'Z'), static_cast<std::uint32_t>('Z'));
    EXPECT_EQ(WriteThenRead(driver, "faults", 7), 7u);
    EXPECT_EQ(WriteThenRead(driver, "lights[2].cfg.offset", 0x8001), 0x8001u);
    EXPECT_EQ(WriteThenRead(driver, "*cursor", 0x42), 0x42u);
    EXPECT_EQ(driver.Evaluate("log[0]").value, 0x42u) << "the cursor points at the log";
}

TEST(ServiceValues, MultiByteValuesAreStoredLeastSignificantByteFirst)
{
    ServiceDriver driver;
    WriteThenRead(driver, "sensor.raw", 0x1234);
    EXPECT_EQ(driver.Evaluate("sensor.bytes[0]").value, 0x34u);
    EXPECT_EQ(driver.Evaluate("sensor.bytes[1]").value, 0x12u);
}

TEST(ServiceValues, FloatsAndBitsTakeTheirOwnKindOfValue)
{
    ServiceDriver driver;
    WriteThenRead(driver, "temperature", std::bit_cast<std::uint32_t>(3.25f));
    EXPECT_EQ(driver.Evaluate("temperature * 2").value, std::bit_cast<std::uint32_t>(6.5f));
    EXPECT_EQ(WriteThenRead(driver, "red", 0), 0u);
    EXPECT_EQ(WriteThenRead(driver, "green", 0x100), 1u) << "a bit takes any non-zero value as 1";
    EXPECT_EQ(driver.Evaluate("yellow").value, 0u) << "the neighbouring bit stays";
}

TEST(ServiceValues, PointersWrittenLeadElsewhere)
{
    ServiceDriver driver;
    WriteThenRead(driver, "cursor", 0x0165);
    EXPECT_EQ(driver.Evaluate("*cursor").address, 0x0165u);
    WriteThenRead(driver, "current", 0x0150);
    EXPECT_EQ(driver.Evaluate("current->state").value, 2u);
}

TEST(ServiceValues, CodeConstantsAndAggregatesTakeNoWrite)
{
    ServiceDriver driver;
    EXPECT_EQ(WriteThenRead(driver, "name[0]", 'X'), static_cast<std::uint32_t>('T'));
    EXPECT_EQ(WriteThenRead(driver, "*label", 'X'), static_cast<std::uint32_t>('T'));

    WatchRecord constant = driver.Evaluate("42");
    constant.value = 7;
    driver.Request(DRQ_WRITE_VALUE, &constant);
    driver.Request(DRQ_READ_VALUE, &constant);
    EXPECT_EQ(constant.value, 7u) << "a constant keeps the value it holds";

    WatchRecord cfg = driver.Evaluate("cfg");
    cfg.value = 0xFFFFFFFF;
    driver.Request(DRQ_WRITE_VALUE, &cfg);
    EXPECT_EQ(driver.Evaluate("cfg.red_time").value, 10u);

    WatchRecord failed = driver.Evaluate("nosuch");
    failed.space = WS_DATA;
    failed.address = 0x30;
    failed.size = 1;
    failed.value = 9;
    driver.Request(DRQ_WRITE_VALUE, &failed);
    EXPECT_EQ(driver.Evaluate("phase").value, 0u) << "a record with status 0 names nothing to write";
}

TEST(ServiceValues, AStepChangesWhatARefreshReads)
{
    ServiceDriver driver;
    WatchRecord ticks = driver.Evaluate("ticks");
    WatchRecord temperature = driver.Evaluate("temperature");
    WatchRecord counter = driver.Evaluate("counter");
    driver.service.Step();
    for (WatchRecord* record : {&ticks, &temperature, &counter}) driver.Request(DRQ_READ_VALUE, record);
    EXPECT_EQ(ticks.value, 1u);
    EXPECT_EQ(temperature.value, std::bit_cast<std::uint32_t>(21.625f));
    EXPECT_EQ(counter.value, 9u);
    EXPECT_EQ(driver.Evaluate("uptime").value, 1u);
    EXPECT_EQ(driver.Evaluate("timings[1]").value, 10u) << "the counter before the step, logged by tick";
}

TEST(ServiceValues, ThePhasesCycleRedGreenYellowAndTheLogFollows)
{
    ServiceDriver driver;
    const auto lamps = [&] {
        return std::to_string(driver.Evaluate("red").value) + std::to_string(driver.Evaluate("green").value) +
               std::to_string(driver.Evaluate("yellow").value);
    };
    EXPECT_EQ(lamps(), "100");
    for (int i = 0; i < 10; ++i) driver.service.Step();
    EXPECT_EQ(driver.Evaluate("phase").value, 1u);
    EXPECT_EQ(lamps(), "010");
    EXPECT_EQ(driver.Evaluate("counter").value, 8u) << "green lasts cfg.green_time";
    EXPECT_EQ(driver.Evaluate("current").value, 0x0148u);
    EXPECT_EQ(driver.Evaluate("lights[0].lamps[2]").value, 1u);
    for (int i = 0; i < 10; ++i) driver.service.Step();
    EXPECT_EQ(driver.Evaluate("phase").value, 0u);
    EXPECT_EQ(lamps(), "100");
    EXPECT_EQ(driver.Evaluate("log[0] * 100 + log[1] * 10 + log[2]").value, 120u);
    EXPECT_EQ(driver.Evaluate("cursor").value, 0x0163u);
}

TEST(ServiceValues, TheTemperatureDriftsWithinItsBand)
{
    ServiceDriver driver;
    for (int i = 0; i < 200; ++i) {
        driver.service.Step();
        const float temperature = std::bit_cast<float>(driver.Evaluate("temperature").value);
        ASSERT_GE(temperature, 18.0f);
        ASSERT_LE(temperature, 26.0f);
    }
}

}  // namespace
