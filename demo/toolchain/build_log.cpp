#include "demo/toolchain/build_log.h"

#include "demo/toolchain/compiler_message.h"
#include "demo/toolchain/message_line.h"
#include "platform/text/gbk.h"

namespace {

// The program's name in the header and the summary.
constexpr const char* kTarget = "traffic";

struct Counts {
    int errors = 0;
    int warnings = 0;
};

void Count(Severity severity, Counts& counts)
{
    if (severity == Severity::Error) ++counts.errors;
    if (severity == Severity::Warning) ++counts.warnings;
}

// One step's lines; lines after a diagnostic that continue it keep its place.
void AddStep(const BuildStep& step, const ProjectPathOf& projectPath, std::vector<MessageLineRecord>& log, Counts& counts)
{
    std::string lastPath;
    int lastLine = 0;
    int errorsBefore = counts.errors;
    for (const std::string& text : step.lines) {
        if (text.empty()) continue;
        const CompilerMessage message = ParseCompilerLine(text);
        Count(message.severity, counts);
        if (message.kind == MessageKind::Diagnostic) {
            lastPath = projectPath(message.file);
            lastLine = message.line;
            const std::string name = std::filesystem::path(message.file).filename().string();
            log.push_back(MessageLine(2, name + "(" + std::to_string(message.line) + "): " + message.text, lastPath, lastLine));
        } else if (message.kind == MessageKind::Other && !lastPath.empty()) {
            log.push_back(MessageLine(2, message.text, lastPath, lastLine));
        } else {
            log.push_back(MessageLine(2, message.text));
        }
    }
    // A run that failed without saying why still failed.
    if ((!step.started || step.exitCode != 0) && counts.errors == errorsBefore) ++counts.errors;
}

}  // namespace

ProjectPathOf UnderProjectFolder(std::string folder)
{
    return [folder = std::move(folder)](const std::filesystem::path& path) { return folder + path.filename().string(); };
}

std::vector<MessageLineRecord> BuildLogRecords(const BuildResult& build, const ProjectPathOf& projectPath)
{
    std::vector<MessageLineRecord> log{MessageLine(0, GBK("构建目标 '") + kTarget + "'")};
    Counts counts;
    for (const BuildStep& step : build.steps) {
        log.push_back(MessageLine(1, step.source.empty() ? GBK("正在链接...") : GBK("正在编译 ") + step.source + "..."));
        AddStep(step, projectPath, log, counts);
    }
    log.push_back(MessageLine(1, "\"" + std::string(kTarget) + "\" - " + std::to_string(counts.errors) + GBK(" 个错误, ") +
                                     std::to_string(counts.warnings) + GBK(" 个警告")));
    return log;
}
