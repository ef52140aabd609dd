// The symbol table built from debug information: type codes, spaces,
// pointers' target spaces, structure layouts, and what is left out.
#include <gtest/gtest.h>

#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/debug_symbols.h"
#include "watch/debug_protocol.h"

namespace {

// Records as SDCC 4.2 wrote them for a test program of every kind of type.
constexpr const char* kProgram = R"(M:t
T:Ft$node[({0}S:S$next$0_0$0({3}DG,STnode:S),Z,0,0)({3}S:S$v$0_0$0({2}SI:S),Z,0,0)]
T:Ft$bits[({0}S:S$a$0_0$0({1}SB0$3:U),Z,0,0)({0}S:S$b$0_0$0({1}SB3$5:U),Z,0,0)({1}S:S$c$0_0$0({2}SI:S),Z,0,0)]
T:Ft$u[({0}S:S$l$0_0$0({4}SL:S),Z,0,0)({0}S:S$c$0_0$0({4}DA4d,SC:U),Z,0,0)]
S:G$bf$0_0$0({3}STbits:S),E,0,0
S:G$sc$0_0$0({1}SC:S),E,0,0
S:G$ll$0_0$0({8}SI:S),E,0,0
S:G$flag$0_0$0({1}:S),E,0,0
S:G$grid$0_0$0({12}DA2d,DA3d,SI:S),E,0,0
S:G$dp$0_0$0({1}DD,SC:U),E,0,0
S:G$ip$0_0$0({1}DI,SC:U),E,0,0
S:G$pp$0_0$0({1}DP,SC:U),E,0,0
S:G$cp$0_0$0({2}DC,SC:U),E,0,0
S:G$fp$0_0$0({2}DC,DF,SI:S),E,0,0
S:Ft$filestatic$0_0$0({2}SI:S),E,0,0
S:Lt.f$cnt$1_0$3({2}SI:S),E,0,0
S:G$bb$0_0$0({1}SB0$1:U),H,0,0
S:G$pu$0_0$0({4}STu:S),P,0,0
S:G$list$0_0$0({10}DA2d,STnode:S),F,0,0
S:G$fl$0_0$0({4}SF:S),F,0,0
S:G$TMR0$0_0$0({2}SI:U),I,0,0
S:G$TI$0_0$0({1}SX:U),J,0,0
S:G$f$0_0$0({2}DF,SI:S),C,0,0
S:Ft$__str_0$0_0$0({2}DA2d,SC:U),D,0,0
S:G$unplaced$0_0$0({1}SC:U),E,0,0
L:G$TMR0$0_0$0:8C8A
L:G$TI$0_0$0:99
L:G$bf$0_0$0:21
L:G$sc$0_0$0:24
L:G$ll$0_0$0:28
L:G$flag$0_0$0:38
L:G$grid$0_0$0:3A
L:G$dp$0_0$0:46
L:G$ip$0_0$0:47
L:G$pp$0_0$0:48
L:G$cp$0_0$0:49
L:G$fp$0_0$0:4B
L:Ft$filestatic$0_0$0:4D
L:Lt.f$cnt$1_0$3:4F
L:G$bb$0_0$0:3
L:G$pu$0_0$0:1
L:G$list$0_0$0:5
L:G$fl$0_0$0:F
L:G$f$0$0:62
L:Ft$__str_0$0_0$0:100
)";

class DebugSymbols : public testing::Test {
protected:
    const TypeInfo& TypeOf(const char* name)
    {
        const Symbol* symbol = table.Find(name);
        EXPECT_NE(symbol, nullptr) << name;
        static const TypeInfo none;
        if (!symbol) return none;
        const TypeInfo* type = table.Types().Find(symbol->type);
        return type ? *type : none;
    }

    const DebugInfo info = ParseDebugInfo(kProgram);
    const SymbolTable table = SymbolsFromDebugInfo(info);
};

TEST_F(DebugSymbols, ScalarsTakeTheWatchsCodesAndSpaces)
{
    struct Case {
        const char* name;
        std::uint32_t code;
        std::uint32_t space;
        std::uint32_t address;
    };
    const Case cases[] = {
        {"sc", WT_CHAR, WS_DATA, 0x24},    {"flag", WT_UCHAR, WS_DATA, 0x38}, {"bb", WT_BIT, WS_BIT, 3},
        {"fl", WT_FLOAT, WS_XDATA, 0x0F},  {"TMR0", WT_UINT, WS_DATA, 0x8C8A}, {"TI", WT_BIT, WS_BIT, 0x99},
        {"filestatic", WT_INT, WS_DATA, 0x4D},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Symbol* symbol = table.Find(c.name);
        ASSERT_NE(symbol, nullptr);
        EXPECT_EQ(TypeOf(c.name).code, c.code);
        EXPECT_EQ(symbol->space, c.space);
        EXPECT_EQ(symbol->address, c.address);
    }
}

TEST_F(DebugSymbols, PointersKnowTheSpaceTheyPointInto)
{
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"dp", WS_DATA}, {"ip", WS_IDATA}, {"pp", WS_PDATA}, {"cp", WS_CODE}};
    for (const auto& [name, space] : cases) {
        SCOPED_TRACE(name);
        const TypeInfo& type = TypeOf(name);
        EXPECT_EQ(type.code, WT_POINTER);
        EXPECT_EQ(type.targetSpace, space);
        EXPECT_EQ(type.size, space == WS_CODE ? 2u : 1u);
    }
    // A pointer to a function has a value; the function itself has no type.
    EXPECT_EQ(TypeOf("fp").code, WT_POINTER);
    EXPECT_EQ(TypeOf("fp").target, kNoType);
}

TEST_F(DebugSymbols, ArraysNestAndRecordsKeepTheirLayout)
{
    const TypeInfo& grid = TypeOf("grid");
    EXPECT_EQ(grid.code, WT_ARRAY);
    EXPECT_EQ(grid.count, 2u);
    EXPECT_EQ(grid.size, 12u);
    const TypeInfo* row = table.Types().Find(grid.target);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->count, 3u);

    // A node points to its own kind through a generic pointer.
    const TypeInfo& list = TypeOf("list");
    const TypeInfo* node = table.Types().Find(list.target);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->code, WT_STRUCT);
    EXPECT_EQ(node->size, 5u);
    ASSERT_EQ(node->members.size(), 2u);
    EXPECT_EQ(node->members[1].offset, 3u);
    const TypeInfo* next = table.Types().Find(node->members[0].type);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->code, WT_GENERAL_POINTER);
    EXPECT_EQ(table.Types().Find(next->target), node);

    const TypeInfo& pu = TypeOf("pu");
    EXPECT_EQ(pu.code, WT_UNION);
    EXPECT_EQ(pu.size, 4u);

    // Bit fields share a byte at offset 0 and still make a structure.
    const TypeInfo& bf = TypeOf("bf");
    EXPECT_EQ(bf.code, WT_STRUCT);
    EXPECT_EQ(bf.size, 3u);
    ASSERT_EQ(bf.members.size(), 3u);
    EXPECT_EQ(bf.members[2].offset, 1u);
}

TEST_F(DebugSymbols, WhatTheWatchCannotShowIsLeftOut)
{
    EXPECT_EQ(table.Find("ll"), nullptr);          // long long
    EXPECT_EQ(table.Find("f"), nullptr);           // a function
    EXPECT_EQ(table.Find("cnt"), nullptr);         // a local
    EXPECT_EQ(table.Find("__str_0"), nullptr);     // a string literal
    EXPECT_EQ(table.Find("unplaced"), nullptr);    // never linked
}

TEST(DebugSymbolsFirst, AGlobalWinsOverAFileStaticOfItsName)
{
    const DebugInfo info = ParseDebugInfo(
        "M:a\nS:Fa$count$0_0$0({1}SC:U),E,0,0\nM:b\nS:G$count$0_0$0({2}SI:S),F,0,0\n"
        "L:Fa$count$0_0$0:40\nL:G$count$0_0$0:200\n");
    const SymbolTable table = SymbolsFromDebugInfo(info);
    ASSERT_EQ(table.All().size(), 1u);
    EXPECT_EQ(table.All()[0].space, WS_XDATA);
    EXPECT_EQ(table.All()[0].address, 0x200u);
}

}  // namespace
