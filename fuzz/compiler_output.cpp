// What the compiler and linker print, as the demo turns it into build log
// lines for the message view: any bytes as the output of a few compiler
// runs (any line lengths, paths, numbers, GBK and invalid bytes). Beyond
// "no crash, no sanitizer report": every record's texts are terminated
// inside their fields, and a line the parser locates keeps its file.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>
#include <string>
#include <vector>

#include "demo/toolchain/build_log.h"
#include "demo/toolchain/compiler_message.h"
#include "demo/toolchain/sample_build.h"
#include "fuzz/support/fuzz_check.h"

namespace {

template <size_t N>
bool Terminated(const char (&field)[N])
{
    return std::memchr(field, '\0', N) != nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    FuzzedDataProvider input(data, size);
    BuildResult build;
    build.success = input.ConsumeBool();
    for (int steps = input.ConsumeIntegralInRange(1, 4); steps > 0 && input.remaining_bytes() > 0; --steps) {
        BuildStep step;
        step.source = input.ConsumeRandomLengthString(300);
        step.started = input.ConsumeBool();
        step.exitCode = input.ConsumeIntegral<int>();
        for (int lines = input.ConsumeIntegralInRange(0, 16); lines > 0; --lines) {
            step.lines.push_back(input.ConsumeRandomLengthString(600));
            const CompilerMessage message = ParseCompilerLine(step.lines.back());
            if (message.kind == MessageKind::Diagnostic) FUZZ_CHECK(!message.file.empty());
        }
        build.steps.push_back(std::move(step));
    }

    const std::string folder = input.ConsumeRandomLengthString(300);
    for (const MessageLineRecord& record : BuildLogRecords(build, UnderProjectFolder(folder))) {
        FUZZ_CHECK(Terminated(record.text));
        FUZZ_CHECK(Terminated(record.file));
    }
    return 0;
}
