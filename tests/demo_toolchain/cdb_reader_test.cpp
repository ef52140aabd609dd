// The .cdb reader on records copied from SDCC 4.2's output for the sample.
#include <gtest/gtest.h>

#include "demo/toolchain/cdb_reader.h"

namespace {

constexpr const char* kSample = R"(M:main
F:Fmain$statistics_init$0_0$0({2}DF,SV:S),C,0,0,0,0,0
F:G$main$0_0$0({2}DF,SV:S),C,0,0,0,0,0
T:Fmain$light[({0}S:S$state$0_0$0({1}SC:U),Z,0,0)({1}S:S$lamps$0_0$0({3}DA3d,SC:U),Z,0,0)({4}S:S$cfg$0_0$0({4}STconfig:S),Z,0,0)]
T:Fmain$config[({0}S:S$red_time$0_0$0({1}SC:U),Z,0,0)({1}S:S$green_time$0_0$0({1}SC:U),Z,0,0)({2}S:S$offset$0_0$0({2}SI:S),Z,0,0)]
T:Fmain$reading[({0}S:S$raw$0_0$0({2}SI:U),Z,0,0)({0}S:S$bytes$0_0$0({2}DA2d,SC:U),Z,0,0)]
S:G$phase$0_0$0({1}SC:U),E,0,0
S:G$current$0_0$0({2}DX,STlight:S),E,0,0
S:Lmain.statistics_init$i$1_0$11({1}SC:U),R,0,0,[r7]
S:Lmain.pass$sloc0$0_1$0({4}SL:U),E,0,0
S:G$red$0_0$0({1}SB0$1:U),H,0,0
S:G$lights$0_0$0({24}DA3d,STlight:S),F,0,0
S:G$main$0_0$0({2}DF,SV:S),C,0,0
S:Fmain$__str_0$0_0$0({2}DA2d,SC:U),D,0,0
M:lights
S:G$phase$0_0$0({1}SC:U),E,0,0
S:Flights$count$0_0$0({2}SI:S),E,0,0
L:G$phase$0_0$0:30
L:G$current$0_0$0:3A
L:G$red$0_0$0:0
L:G$lights$0_0$0:140
L:Flights$count$0_0$0:42
L:Lmain.pass$sloc0$0_1$0:8
L:C$main.c$33$0_0$11:818
L:C$main.c$37$1_0$11:818
L:Fmain$statistics_init$0$0:818
L:C$main.c$38$1_0$11:81D
L:C$main.c$45$1_0$11:884
L:XFmain$statistics_init$0$0:884
L:C$main.c$63$1_0$16:991
L:C$main.c$69$1_0$16:991
L:G$main$0$0:991
L:C$main.c$70$1_0$16:994
L:XG$main$0$0:9A0
L:A$main$404:0
)";

TEST(CdbReader, SymbolsGetScopeTypeSpaceAndLinkedAddress)
{
    const DebugInfo info = ParseDebugInfo(kSample);
    EXPECT_EQ(info.skippedLines, 0);
    EXPECT_EQ(info.modules, (std::vector<std::string>{"main", "lights"}));

    const DebugSymbol* phase = info.FindVariable("phase");
    ASSERT_NE(phase, nullptr);
    EXPECT_EQ(phase->scope, SymbolScope::Global);
    EXPECT_EQ(phase->space, AddressSpace::Data);
    EXPECT_EQ(phase->address, 0x30u);
    // The second module's repeat of the declaration adds nothing.
    EXPECT_EQ(std::count_if(info.symbols.begin(), info.symbols.end(), [](const DebugSymbol& s) { return s.name == "phase"; }), 1);

    const DebugSymbol* red = info.FindVariable("red");
    ASSERT_NE(red, nullptr);
    EXPECT_EQ(red->space, AddressSpace::Bit);
    EXPECT_EQ(red->address, 0u);

    const DebugSymbol* count = info.FindVariable("count");
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->scope, SymbolScope::File);
    EXPECT_EQ(count->module, "lights");
    EXPECT_EQ(count->address, 0x42u);

    const auto local = std::find_if(info.symbols.begin(), info.symbols.end(), [](const DebugSymbol& s) { return s.name == "i"; });
    ASSERT_NE(local, info.symbols.end());
    EXPECT_EQ(local->scope, SymbolScope::Local);
    EXPECT_EQ(local->module, "main");
    EXPECT_EQ(local->function, "statistics_init");
    EXPECT_EQ(local->level, 1);
    EXPECT_EQ(local->block, 11);
    EXPECT_EQ(local->space, AddressSpace::Register);
    EXPECT_EQ(local->registers, (std::vector<std::string>{"r7"}));
    EXPECT_FALSE(local->address);
    // A local that the linker placed: level written "0_1", block 0.
    const auto sloc = std::find_if(info.symbols.begin(), info.symbols.end(), [](const DebugSymbol& s) { return s.name == "sloc0"; });
    ASSERT_NE(sloc, info.symbols.end());
    EXPECT_EQ(sloc->function, "pass");
    EXPECT_EQ(sloc->address, 8u);

    // A function is no variable.
    EXPECT_EQ(info.FindVariable("main"), nullptr);
}

TEST(CdbReader, StructuresKeepMemberOffsetsAndUnionsAreTold)
{
    const DebugInfo info = ParseDebugInfo(kSample);
    const StructType* light = info.FindStruct("main", "light");
    ASSERT_NE(light, nullptr);
    ASSERT_EQ(light->members.size(), 3u);
    EXPECT_EQ(light->members[1].name, "lamps");
    EXPECT_EQ(light->members[1].offset, 1u);
    EXPECT_EQ(light->members[1].type.declarators.at(0).count, 3u);
    EXPECT_EQ(light->members[2].offset, 4u);
    EXPECT_EQ(light->members[2].type.structName, "config");
    EXPECT_EQ(light->Size(), 8u);
    EXPECT_FALSE(light->IsUnion());

    const StructType* reading = info.FindStruct("lights", "reading");  // only main's exists: any module's serves
    ASSERT_NE(reading, nullptr);
    EXPECT_TRUE(reading->IsUnion());
    EXPECT_EQ(reading->Size(), 2u);
}

TEST(CdbReader, FunctionsSpanTheirCodeFromTheirOwnLine)
{
    const DebugInfo info = ParseDebugInfo(kSample);
    ASSERT_EQ(info.functions.size(), 2u);
    const DebugFunction* init = info.FindFunction("statistics_init");
    ASSERT_NE(init, nullptr);
    EXPECT_EQ(init->scope, SymbolScope::File);
    EXPECT_EQ(init->module, "main");
    EXPECT_EQ(init->file, "main.c");
    EXPECT_EQ(init->line, 33);
    EXPECT_EQ(init->start, 0x818u);
    EXPECT_EQ(init->end, 0x884u);

    const DebugFunction* main = info.FindFunction("main");
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main->line, 63);
    EXPECT_EQ(main->start, 0x991u);

    EXPECT_EQ(info.FunctionAt(0x818), init);
    EXPECT_EQ(info.FunctionAt(0x884), init);
    EXPECT_EQ(info.FunctionAt(0x885), nullptr);  // between the two
    EXPECT_EQ(info.FunctionAt(0x995), main);
    EXPECT_EQ(info.FunctionAt(0x9A1), nullptr);
    EXPECT_EQ(info.FunctionAt(0x10), nullptr);
}

TEST(CdbReader, InterruptFunctionsSayWhichVector)
{
    const DebugInfo info = ParseDebugInfo("M:timer0\nF:G$timer0_isr$0_0$0({2}DF,SV:S),Z,0,0,1,1,2\n");
    ASSERT_EQ(info.functions.size(), 1u);
    EXPECT_TRUE(info.functions[0].interrupt);
    EXPECT_EQ(info.functions[0].interruptNumber, 1);
    EXPECT_EQ(info.functions[0].registerBank, 2);
    EXPECT_FALSE(info.functions[0].start);
}

TEST(CdbReader, LinesMapToAddressesBothWays)
{
    const DebugInfo info = ParseDebugInfo(kSample);
    EXPECT_EQ(info.lines.AddressOf("main.c", 38), 0x81Du);
    EXPECT_EQ(info.lines.AddressOf("main.c", 33), 0x818u);
    EXPECT_FALSE(info.lines.AddressOf("main.c", 34));
    EXPECT_FALSE(info.lines.AddressOf("lights.c", 38));

    // At a shared address the line recorded last is the one about to run.
    ASSERT_NE(info.lines.LineAt(0x818), nullptr);
    EXPECT_EQ(info.lines.LineAt(0x818)->line, 37);
    // Inside a line's code.
    ASSERT_NE(info.lines.LineAt(0x820), nullptr);
    EXPECT_EQ(info.lines.LineAt(0x820)->line, 38);
    EXPECT_EQ(info.lines.LineAt(0x817), nullptr);
    ASSERT_EQ(info.asmLines.size(), 1u);
    EXPECT_EQ(info.asmLines[0].module, "main");
    EXPECT_EQ(info.asmLines[0].line, 404);
}

TEST(CdbReader, GarbledRecordsAreSkippedNotTrusted)
{
    const char* garbled[] = {
        "S:G$phase$0_0$0({1}SC:U),E,0",          // a field short
        "S:G$phase$0_0$0({1}SC:U",                // cut inside the type
        "S:G$phase$0_0({1}SC:U),E,0,0",           // no block
        "S:Q$phase$0_0$0({1}SC:U),E,0,0",         // no such scope
        "S:G$phase$0_0$0({1}SC:U),Q,0,0",         // no such space
        "L:G$phase$0_0$0:XYZ",                    // address not hex
        "L:G$phase$0_0$0",                        // no address
        "L:C$main.c$x$0_0$1:818",                 // line not a number
        "L:C$$3:818",                             // no file
        "T:Fmain$light[({0}S:S$state$0_0$0({1}SC:U),Z,0,0",     // no closing bracket
        "T:Fmain$light[({0}S:S$state$0_0$0({1}SC:U),Z,0,0)(x)]",  // a member that is not one
        "F:G$f$0_0$0({2}SI:S),C,0,0,0,0,0",       // a function whose type is no function
        "F:G$f$0_0$0({2}DF,SV:S),C,0,0",          // no interrupt fields
        "X:whatever",
        "Mmain",
    };
    for (const char* line : garbled) {
        SCOPED_TRACE(line);
        const DebugInfo info = ParseDebugInfo(std::string("M:main\n") + line + "\n");
        EXPECT_EQ(info.skippedLines, 1);
        EXPECT_TRUE(info.symbols.empty());
        EXPECT_TRUE(info.structs.empty());
        EXPECT_TRUE(info.functions.empty());
        EXPECT_TRUE(info.lines.Entries().empty());
    }
}

TEST(CdbReader, AnUnreadableFileIsNoDebugInfo)
{
    EXPECT_FALSE(LoadDebugInfo("/nonexistent/traffic.cdb"));
}

}  // namespace
