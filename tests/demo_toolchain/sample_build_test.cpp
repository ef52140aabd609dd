// The sample built by the real SDCC with debug information, and what its
// .cdb says checked against the hand-written symbol table and against the
// function scan of the sources. Skipped where sdcc is not on PATH.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "demo/debugger/traffic_symbols.h"
#include "demo/project/function_scanner.h"
#include "demo/toolchain/build_log.h"
#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/compiler_message.h"
#include "demo/toolchain/debug_symbols.h"
#include "demo/toolchain/process_run.h"
#include "platform/text/gbk.h"
#include "symbol_compare.h"
#include "watch/debug_protocol.h"

namespace {

const std::filesystem::path kSample = DEMO_SAMPLE_DIR;

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The 1-based line of the first line holding `needle`; 0 when none does.
int LineHolding(const std::string& text, std::string_view needle)
{
    std::istringstream in(text);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.find(needle) != std::string::npos) return number;
    }
    return 0;
}

std::filesystem::path FreshFolder(const char* name)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("dockpanes_toolchain_" + std::to_string(getpid())) / name;
    std::filesystem::remove_all(folder);
    return folder;
}

class SampleBuild : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        if (!FindOnPath("sdcc")) return;
        s_build = new BuildResult(BuildSample(kSample, FreshFolder("sample")));
        if (!s_build->cdb.empty()) s_info = new DebugInfo(LoadDebugInfo(s_build->cdb).value_or(DebugInfo{}));
    }
    static void TearDownTestSuite()
    {
        delete s_info;
        delete s_build;
        s_info = nullptr;
        s_build = nullptr;
        std::error_code error;
        std::filesystem::remove_all(FreshFolder("").parent_path(), error);
    }
    void SetUp() override
    {
        if (!s_build) GTEST_SKIP() << "sdcc is not on PATH: the real build of the sample is not checked";
        ASSERT_TRUE(s_build->success) << testing::PrintToString(s_build->Lines());
        ASSERT_NE(s_info, nullptr);
    }

    static BuildResult* s_build;
    static DebugInfo* s_info;
};

BuildResult* SampleBuild::s_build = nullptr;
DebugInfo* SampleBuild::s_info = nullptr;

TEST_F(SampleBuild, CompilesEachFileThenLinksWithoutAMessage)
{
    ASSERT_EQ(s_build->steps.size(), 5u);
    EXPECT_EQ(s_build->steps.front().source, "main.c");
    EXPECT_TRUE(s_build->steps.back().source.empty());
    for (const std::string& line : s_build->Lines()) {
        EXPECT_EQ(ParseCompilerLine(line).severity, Severity::None) << line;
    }
    EXPECT_TRUE(std::filesystem::exists(s_build->ihx));
    EXPECT_EQ(s_info->skippedLines, 0);
    EXPECT_EQ(s_info->modules, (std::vector<std::string>{"main", "lights", "timer0", "uart"}));

    const std::vector<MessageLineRecord> log = BuildLogRecords(*s_build, UnderProjectFolder("C:\\8051\\traffic\\"));
    EXPECT_EQ(std::string(log.back().text), GBK("\"traffic\" - 0 个错误, 0 个警告\r\n"));
}

// The strongest check of both: what the compiler says of every variable
// (space, address, size, type, members and their offsets) is what the
// hand-written table of the simulated target says.
TEST_F(SampleBuild, DebugInfoAgreesWithTheHandWrittenTableInEverySymbol)
{
    EXPECT_EQ(CompareSymbols(Traffic::Symbols(), SymbolsFromDebugInfo(*s_info)), std::vector<std::string>{});
}

TEST_F(SampleBuild, FunctionsMatchTheScanOfTheSources)
{
    for (const DebugFunction& function : s_info->functions) {
        SCOPED_TRACE(function.name);
        ASSERT_TRUE(function.start);
        ASSERT_TRUE(function.end);
        EXPECT_EQ(function.module + ".c", function.file);
        // The function's own line starts its code, and its code is its own.
        EXPECT_EQ(s_info->lines.AddressOf(function.file, function.line), function.start);
        EXPECT_EQ(s_info->FunctionAt(*function.start), &function);
        EXPECT_EQ(s_info->FunctionAt(*function.end), &function);
    }
    std::size_t listed = 0;
    for (const char* file : {"main.c", "lights.c", "timer0.c", "uart.c"}) {
        SCOPED_TRACE(file);
        std::vector<std::pair<std::string, int>> scanned;
        for (const ScannedFunction& function : ScanFunctions(ReadText(kSample / file))) scanned.push_back({function.name, function.line});
        std::vector<std::pair<std::string, int>> fromDebugInfo;
        for (const DebugFunction* function : s_info->FunctionsInFile(file)) fromDebugInfo.push_back({function->name, function->line});
        EXPECT_EQ(fromDebugInfo, scanned);
        listed += fromDebugInfo.size();
    }
    EXPECT_EQ(listed, s_info->functions.size());
    EXPECT_TRUE(s_info->FindFunction("timer0_isr")->interrupt);
    EXPECT_EQ(s_info->FindFunction("timer0_isr")->interruptNumber, 1);
}

TEST_F(SampleBuild, EveryCodeLineMapsBackToItself)
{
    ASSERT_FALSE(s_info->lines.Entries().empty());
    for (const LineEntry& entry : s_info->lines.Entries()) {
        const auto address = s_info->lines.AddressOf(entry.file, entry.line);
        ASSERT_TRUE(address);
        EXPECT_LE(*address, entry.address);
        const LineEntry* back = s_info->lines.LineAt(entry.address);
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(back->address, entry.address);
        EXPECT_NE(s_info->FunctionAt(entry.address), nullptr) << entry.file << ":" << entry.line;
    }
}

TEST_F(SampleBuild, TheBrokenVariantFailsWithItsErrorsAtTheirLines)
{
    const std::filesystem::path variant = kSample / "variants" / "lights_broken.c";
    BuildOptions options;
    options.replacedFile = "lights.c";
    options.replacement = variant;
    const BuildResult build = BuildSample(kSample, FreshFolder("broken"), options);
    EXPECT_FALSE(build.success);
    EXPECT_TRUE(build.ihx.empty());
    ASSERT_EQ(build.steps.size(), 4u) << "the link is not tried after a failed compile";

    const std::string text = ReadText(variant);
    const std::vector<MessageLineRecord> log = BuildLogRecords(build, UnderProjectFolder("C:\\8051\\traffic\\"));
    std::vector<std::pair<int, std::string>> located;
    for (const MessageLineRecord& record : log) {
        if (record.located && std::string_view(record.text).starts_with("lights.c(")) {
            EXPECT_STREQ(record.file, "C:\\8051\\traffic\\lights.c");
            // "lights.c(56): error 20: ..." up to the message's number.
            const std::string shown = record.text;
            located.push_back({record.line, shown.substr(0, shown.find(':', shown.find("): ") + 3))});
        }
    }
    const std::vector<std::pair<int, std::string>> expected = {
        {LineHolding(text, "= stat;"), "lights.c(" + std::to_string(LineHolding(text, "= stat;")) + "): error 20"},
        {LineHolding(text, "current = lights[which];"),
         "lights.c(" + std::to_string(LineHolding(text, "current = lights[which];")) + "): error 47"},
        {LineHolding(text, "uart_puts(phase);"),
         "lights.c(" + std::to_string(LineHolding(text, "uart_puts(phase);")) + "): warning 127"},
    };
    EXPECT_EQ(located, expected);
    EXPECT_EQ(std::string(log.back().text), GBK("\"traffic\" - 2 个错误, 1 个警告\r\n"));
}

TEST(SampleBuildRunner, AMissingCompilerFailsEveryStepAndSaysSo)
{
    BuildOptions options;
    options.compiler = "dockpanes-no-such-compiler";
    const BuildResult build = BuildSample(kSample, FreshFolder("missing"), options);
    EXPECT_FALSE(build.success);
    ASSERT_EQ(build.steps.size(), 4u);
    for (const BuildStep& step : build.steps) {
        EXPECT_FALSE(step.started);
        ASSERT_EQ(step.lines.size(), 1u);
        EXPECT_EQ(step.lines[0], "dockpanes-no-such-compiler: could not be run");
    }
    std::filesystem::remove_all(FreshFolder("").parent_path());
}

}  // namespace
