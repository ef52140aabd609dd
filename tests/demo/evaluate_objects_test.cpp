// Expressions that name objects of the sample program: globals, members,
// elements and what pointers point to, with their places and values.
#include <gtest/gtest.h>

#include <bit>

#include "demo/debugger/type_codes.h"
#include "tests/demo/expected_record.h"
#include "tests/demo/service_driver.h"

namespace {

TEST(EvaluateObjects, GlobalsHaveTheirTypeSpaceAddressAndStartValue)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"red", WT_BIT, WS_BIT, 0x00, 1, 1},
        {"green", WT_BIT, WS_BIT, 0x02, 1, 0},
        {"phase", WT_UCHAR, WS_DATA, 0x30, 1, 0},
        {"ticks", WT_INT, WS_DATA, 0x31, 2, 0},
        {"cursor", WT_POINTER, WS_DATA, 0x33, 2, 0x0160},
        {"label", WT_GENERAL_POINTER, WS_DATA, 0x35, 3, 0x800810},
        {"fault", WT_POINTER, WS_DATA, 0x3C, 2, 0},
        {"mode", WT_CHAR, WS_IDATA, 0x80, 1, 'A'},
        {"faults", WT_UCHAR, WS_PDATA, 0x10, 1, 0},
        {"counter", WT_UINT, WS_XDATA, 0x0100, 2, 10},
        {"uptime", WT_LONG, WS_XDATA, 0x0102, 4, 0},
        {"total", WT_ULONG, WS_XDATA, 0x0106, 4, 123456},
        {"temperature", WT_FLOAT, WS_XDATA, 0x010A, 4, std::bit_cast<std::uint32_t>(21.5f)},
    });
}

TEST(EvaluateObjects, AggregatesCarryTheirTypeRefAndCountButNoValue)
{
    ServiceDriver driver;
    const WatchRecord cfg = driver.Evaluate("cfg");
    EXPECT_EQ(cfg.type, WT_STRUCT);
    EXPECT_EQ(cfg.size, 4u);
    EXPECT_EQ(cfg.count, 3);
    EXPECT_EQ(cfg.arrayFlag, 0u);
    EXPECT_NE(cfg.typeRef, 0u);
    EXPECT_NE(cfg.typeRef, kNoTypeRef);

    const WatchRecord timings = driver.Evaluate("timings");
    EXPECT_EQ(timings.type, WT_ARRAY);
    EXPECT_EQ(timings.size, 24u);
    EXPECT_EQ(timings.count, 12);
    EXPECT_EQ(timings.arrayFlag, 1u) << "scalar elements come as one block";

    const WatchRecord lights = driver.Evaluate("lights");
    EXPECT_EQ(lights.size, 24u);
    EXPECT_EQ(lights.count, 3);
    EXPECT_EQ(lights.arrayFlag, 0u) << "structure elements come as members";

    const WatchRecord sensor = driver.Evaluate("sensor");
    EXPECT_EQ(sensor.type, WT_UNION);
    EXPECT_EQ(sensor.size, 2u);
    // Each structured type has a typeRef of its own.
    EXPECT_NE(cfg.typeRef, timings.typeRef);
    EXPECT_NE(cfg.typeRef, lights.typeRef);
    EXPECT_NE(cfg.typeRef, sensor.typeRef);
    EXPECT_EQ(driver.Evaluate("lights[2].cfg").typeRef, cfg.typeRef);
}

TEST(EvaluateObjects, MembersAndElementsAreFoundThroughNestedStructures)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"cfg.red_time", WT_UCHAR, WS_XDATA, 0x0110, 1, 10},
        {"cfg.offset", WT_INT, WS_XDATA, 0x0112, 2, 0xFFFD},
        {"timings[3]", WT_INT, WS_XDATA, 0x0126, 2, 15},
        {"timings[phase + 2]", WT_INT, WS_XDATA, 0x0124, 2, 10},
        {"lights[1].cfg.green_time", WT_UCHAR, WS_XDATA, 0x014D, 1, 7},
        {"lights[2].lamps[1]", WT_UCHAR, WS_XDATA, 0x0152, 1, 1},
        {"lights[2].cfg.offset", WT_INT, WS_XDATA, 0x0156, 2, 200},
        {"sensor.raw", WT_UINT, WS_DATA, 0x38, 2, 0x0200},
        // The union's bytes show the order of the value in memory: low first.
        {"sensor.bytes[0]", WT_UCHAR, WS_DATA, 0x38, 1, 0x00},
        {"sensor.bytes[1]", WT_UCHAR, WS_DATA, 0x39, 1, 0x02},
        {"name[1]", WT_CHAR, WS_CODE, 0x0811, 1, 'R'},
        {"((phase))", WT_UCHAR, WS_DATA, 0x30, 1, 0},
        {" \tphase ", WT_UCHAR, WS_DATA, 0x30, 1, 0},
    });
}

TEST(EvaluateObjects, PointersLeadToTheObjectsTheyHoldTheAddressOf)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"*cursor", WT_UCHAR, WS_XDATA, 0x0160, 1, 0},
        {"cursor[2]", WT_UCHAR, WS_XDATA, 0x0162, 1, 0},
        {"*label", WT_CHAR, WS_CODE, 0x0810, 1, 'T'},
        {"label[1]", WT_CHAR, WS_CODE, 0x0811, 1, 'R'},
        {"*(label + 6)", WT_CHAR, WS_CODE, 0x0816, 1, 'C'},
        {"current->cfg.red_time", WT_UCHAR, WS_XDATA, 0x0144, 1, 10},
        {"(*current).state", WT_UCHAR, WS_XDATA, 0x0140, 1, 0},
        {"*timings", WT_INT, WS_XDATA, 0x0120, 2, 0},
        {"*(timings + 2)", WT_INT, WS_XDATA, 0x0124, 2, 10},
        {"*(timings + 5 - 2)", WT_INT, WS_XDATA, 0x0126, 2, 15},
        {"lights->state", WT_UCHAR, WS_XDATA, 0x0140, 1, 0},
        {"*&counter", WT_UINT, WS_XDATA, 0x0100, 2, 10},
        {"(&lights[1])->state", WT_UCHAR, WS_XDATA, 0x0148, 1, 1},
        {"*&name[2]", WT_CHAR, WS_CODE, 0x0812, 1, 'A'},
    });
}

TEST(EvaluateObjects, AddressesAreValuesOfPointerTypesSizedForTheirSpace)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"&phase", WT_POINTER, WS_NUMBER, 0, 1, 0x30},
        {"&mode", WT_POINTER, WS_NUMBER, 0, 1, 0x80},
        {"&counter", WT_POINTER, WS_NUMBER, 0, 2, 0x0100},
        {"&cfg.offset", WT_POINTER, WS_NUMBER, 0, 2, 0x0112},
        {"&name[2]", WT_POINTER, WS_NUMBER, 0, 2, 0x0812},
        {"&timings[1] + 1", WT_POINTER, WS_NUMBER, 0, 2, 0x0124},
        {"label + 2", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x800812},
    });
}

}  // namespace
