// A build's steps as build messages: locations mapped to the project,
// continuation lines kept with their diagnostic, errors and warnings counted.
#include <gtest/gtest.h>

#include <string>

#include "demo/toolchain/build_log.h"
#include "platform/text/gbk.h"

namespace {

constexpr const char* kFolder = "C:\\8051\\traffic\\";

std::string Text(const MessageLineRecord& record)
{
    std::string text = record.text;
    return text.ends_with("\r\n") ? text.substr(0, text.size() - 2) : text;
}

BuildStep Step(std::string source, int exitCode, std::vector<std::string> lines)
{
    BuildStep step;
    step.source = std::move(source);
    step.started = true;
    step.exitCode = exitCode;
    step.lines = std::move(lines);
    return step;
}

TEST(BuildLog, DiagnosticsPointAtTheProjectFileAndKeepTheCompilersWords)
{
    BuildResult build;
    build.steps.push_back(Step("main.c", 0, {}));
    build.steps.push_back(Step("lights.c", 1,
                               {"/tmp/out/variant/lights.c:56: error 20: Undefined identifier 'stat'",
                                "/tmp/out/variant/lights.c:61: error 47: indirections to different types assignment   ",
                                "from type 'volatile-struct light xdata'", "  to type 'volatile-struct light xdata* data'",
                                "/tmp/out/variant/lights.c:76: warning 127: non-pointer type cast to generic pointer"}));
    const std::vector<MessageLineRecord> log = BuildLogRecords(build, UnderProjectFolder(kFolder));

    ASSERT_EQ(log.size(), 9u);
    EXPECT_EQ(log[0].level, 0);
    EXPECT_EQ(Text(log[1]), GBK("正在编译 main.c..."));
    EXPECT_EQ(log[1].level, 1);
    EXPECT_EQ(Text(log[2]), GBK("正在编译 lights.c..."));

    EXPECT_EQ(Text(log[3]), "lights.c(56): error 20: Undefined identifier 'stat'");
    EXPECT_EQ(log[3].level, 2);
    EXPECT_EQ(log[3].located, 1);
    EXPECT_STREQ(log[3].file, "C:\\8051\\traffic\\lights.c");
    EXPECT_EQ(log[3].line, 56);
    // The type lines continue error 47 and lead to its line too.
    EXPECT_EQ(Text(log[5]), "from type 'volatile-struct light xdata'");
    EXPECT_EQ(log[5].line, 61);
    EXPECT_EQ(log[6].line, 61);
    EXPECT_EQ(log[6].located, 1);
    EXPECT_EQ(log[7].line, 76);

    EXPECT_EQ(Text(log[8]), GBK("\"traffic\" - 2 个错误, 1 个警告"));
    EXPECT_EQ(log[8].level, 1);
}

TEST(BuildLog, LinkerLinesStayUnlocatedAndCount)
{
    BuildResult build;
    build.steps.push_back(Step("main.c", 0, {"main.c:9: warning 85: in function main unreferenced local variable : 'x'"}));
    build.steps.push_back(Step("", 1, {"", "?ASlink-Warning-Undefined Global '_f' referenced by module 'main'"}));
    const std::vector<MessageLineRecord> log = BuildLogRecords(build, UnderProjectFolder(kFolder));

    ASSERT_EQ(log.size(), 6u);
    EXPECT_EQ(Text(log[3]), GBK("正在链接..."));
    EXPECT_EQ(Text(log[4]), "?ASlink-Warning-Undefined Global '_f' referenced by module 'main'");
    EXPECT_EQ(log[4].located, 0);
    // The link failed with a warning only: the failure itself is the error.
    EXPECT_EQ(Text(log[5]), GBK("\"traffic\" - 1 个错误, 2 个警告"));
}

TEST(BuildLog, ACompilerThatCannotRunIsAnError)
{
    BuildResult build;
    BuildStep step = Step("main.c", -1, {"no-such-sdcc: could not be run"});
    step.started = false;
    build.steps.push_back(step);
    const std::vector<MessageLineRecord> log = BuildLogRecords(build, UnderProjectFolder(kFolder));
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[2].located, 0);
    EXPECT_EQ(Text(log[3]), GBK("\"traffic\" - 1 个错误, 0 个警告"));
}

TEST(BuildLog, OverlongLinesAreCutWithinTheRecord)
{
    BuildResult build;
    build.steps.push_back(Step("main.c", 0, {"main.c:3: warning 1: " + std::string(2000, 'x')}));
    const std::vector<MessageLineRecord> log = BuildLogRecords(build, UnderProjectFolder(std::string(600, 'p')));
    ASSERT_EQ(log.size(), 4u);
    const std::string text = log[2].text;
    EXPECT_LT(text.size(), sizeof log[2].text);
    EXPECT_TRUE(text.ends_with("\r\n"));
    EXPECT_LT(std::string(log[2].file).size(), sizeof log[2].file);
}

}  // namespace
