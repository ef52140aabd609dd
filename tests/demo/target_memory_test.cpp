// The simulated 8051's memories: how far each space reaches, which spaces
// share bytes, and what cannot be written.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "demo/debugger/target_memory.h"
#include "watch/debug_protocol.h"

namespace {

bool Reads(const TargetMemory& memory, std::uint32_t space, std::uint32_t address, std::size_t count)
{
    std::vector<std::uint8_t> out(count);
    return memory.Read(space, address, out);
}

std::uint8_t Byte(const TargetMemory& memory, std::uint32_t space, std::uint32_t address)
{
    std::array<std::uint8_t, 1> out{0xEE};
    EXPECT_TRUE(memory.Read(space, address, out));
    return out[0];
}

void Poke(TargetMemory& memory, std::uint32_t space, std::uint32_t address, std::uint8_t value)
{
    const std::array<std::uint8_t, 1> bytes{value};
    EXPECT_TRUE(memory.Write(space, address, bytes));
}

TEST(TargetMemory, EachSpaceEndsWhereAn8051sDoes)
{
    const TargetMemory memory;
    const struct {
        std::uint32_t space;
        std::uint32_t size;
    } spaces[] = {{WS_CODE, 0x10000}, {WS_XDATA, 0x10000}, {WS_DATA, 0x100}, {WS_IDATA, 0x100},
                  {WS_PDATA, 0x100},  {WS_BIT, 0x80},      {WS_CONST, 0x10000}, {WS_STACK, 0x100}};
    for (const auto& [space, size] : spaces) {
        SCOPED_TRACE(space);
        EXPECT_TRUE(Reads(memory, space, size - 2, 2));
        EXPECT_FALSE(Reads(memory, space, size - 1, 2));
        EXPECT_FALSE(Reads(memory, space, size, 1));
        EXPECT_FALSE(Reads(memory, space, 0xFFFFFFFF, 2)) << "no wrap-around of the address";
    }
    for (const std::uint32_t space : {11u, 12u, std::uint32_t{WS_FILE}, std::uint32_t{WS_SYS}, std::uint32_t{WS_NUMBER}, std::uint32_t{WS_NONE}}) EXPECT_FALSE(Reads(memory, space, 0, 1));
}

TEST(TargetMemory, BitsAreTheBitsOfInternalBytes0x20To0x2F)
{
    TargetMemory memory;
    Poke(memory, WS_BIT, 9, 5);
    EXPECT_EQ(Byte(memory, WS_DATA, 0x21), 0x02);
    EXPECT_EQ(Byte(memory, WS_BIT, 9), 1) << "a bit reads 0 or 1";
    Poke(memory, WS_DATA, 0x2F, 0x80);
    EXPECT_EQ(Byte(memory, WS_BIT, 0x7F), 1);
    EXPECT_EQ(Byte(memory, WS_BIT, 0x7E), 0);
    Poke(memory, WS_BIT, 9, 0);
    EXPECT_EQ(Byte(memory, WS_DATA, 0x21), 0x00);
}

TEST(TargetMemory, InternalSpacesShareTheirBytesAndPagedRamIsXdataPageZero)
{
    TargetMemory memory;
    Poke(memory, WS_IDATA, 0x40, 0x11);
    EXPECT_EQ(Byte(memory, WS_DATA, 0x40), 0x11);
    EXPECT_EQ(Byte(memory, WS_STACK, 0x40), 0x11);
    Poke(memory, WS_PDATA, 0x10, 0x22);
    EXPECT_EQ(Byte(memory, WS_XDATA, 0x10), 0x22);
    EXPECT_EQ(Byte(memory, WS_DATA, 0x10), 0x00);
}

TEST(TargetMemory, CodeIsLoadedButNeverWritten)
{
    TargetMemory memory;
    const std::array<std::uint8_t, 2> bytes{0x12, 0x34};
    EXPECT_FALSE(memory.Write(WS_CODE, 0x100, bytes));
    EXPECT_FALSE(memory.Write(WS_CONST, 0x100, bytes));
    EXPECT_EQ(Byte(memory, WS_CODE, 0x100), 0x00);
    EXPECT_TRUE(memory.LoadCode(0x100, bytes));
    EXPECT_EQ(Byte(memory, WS_CONST, 0x101), 0x34);
    EXPECT_FALSE(memory.LoadCode(0xFFFF, bytes));
}

TEST(TargetMemory, AWriteThatDoesNotFitStoresNothing)
{
    TargetMemory memory;
    const std::array<std::uint8_t, 2> bytes{0x12, 0x34};
    EXPECT_FALSE(memory.Write(WS_DATA, 0xFF, bytes));
    EXPECT_EQ(Byte(memory, WS_DATA, 0xFF), 0x00);
    EXPECT_FALSE(memory.Write(WS_BIT, 0x7F, bytes));
    EXPECT_EQ(Byte(memory, WS_BIT, 0x7F), 0);
    EXPECT_FALSE(memory.Write(WS_NUMBER, 0, bytes));
}

}  // namespace
