#include "tests/demo_ucsim/sample_build.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/process_run.h"
#include "demo/toolchain/sample_build.h"

namespace {

struct Build {
    std::filesystem::path folder;
    BuildResult result;
    std::optional<DebugInfo> info;

    ~Build()
    {
        std::error_code ignored;
        if (!folder.empty()) std::filesystem::remove_all(folder, ignored);
    }
};

Build& TheBuild()
{
    static Build build = [] {
        Build b;
        char pattern[] = "/tmp/ucsim_sample_XXXXXX";
        if (!mkdtemp(pattern)) return b;
        b.folder = pattern;
        b.result = BuildSample(DEMO_SAMPLE_DIR, b.folder);
        if (b.result.success) b.info = LoadDebugInfo(b.result.cdb);
        return b;
    }();
    return build;
}

}  // namespace

std::string SkipReason()
{
    if (!FindOnPath("s51")) return "s51 (ucsim, Debian package sdcc-ucsim) is not on PATH";
    if (!FindOnPath("sdcc")) return "sdcc (Debian package sdcc) is not on PATH";
    if (!TheBuild().result.success || !TheBuild().info) {
        std::string log;
        for (const std::string& line : TheBuild().result.Lines()) log += "\n" + line;
        return "the sample did not build:" + log;
    }
    return {};
}

const std::string& SampleHex()
{
    static const std::string hex = TheBuild().result.ihx.string();
    return hex;
}

std::optional<std::uint32_t> FunctionAddress(const std::string& name)
{
    const DebugFunction* function = TheBuild().info ? TheBuild().info->FindFunction(name) : nullptr;
    return function ? function->start : std::nullopt;
}

std::unique_ptr<UcsimProcess> StartSample(bool captureUart)
{
    UcsimLaunch launch;
    launch.program = SampleHex();
    launch.captureUart = captureUart;
    return std::make_unique<UcsimProcess>(launch);
}

bool ChildExists(pid_t pid)
{
    return pid > 0 && (kill(pid, 0) == 0 || errno != ESRCH);
}
