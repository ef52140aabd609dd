#include "demo/toolchain/sample_build.h"

#include <algorithm>

#include "demo/toolchain/process_run.h"

namespace {

// The flags of build.sh: the compiler's own data stays below the fixed
// variables, the stack above them, the code above the fixed constants.
// Plain char is signed, as the simulated target's model of the program
// takes it (SDCC makes it unsigned by default).
const std::vector<std::string> kCompileFlags = {"-mmcs51", "--model-small", "--std-sdcc11", "--fsigned-char", "--debug"};
const std::vector<std::string> kLinkFlags = {"--idata-loc", "0x90", "-Wl-bCSEG=0x0818", "--xram-size", "0x0800",
                                             "--code-size", "0x2000"};
constexpr const char* kProgram = "traffic";
// Where a replaced source is copied, inside the output folder.
constexpr const char* kVariantFolder = "variant";

// main.c first: the linker takes the reset and interrupt vectors from the
// first object. Then by name, as build.sh lists them.
std::vector<std::string> SourceNames(const std::filesystem::path& sources)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(sources, error)) {
        if (entry.is_regular_file() && entry.path().extension() == ".c") names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return std::pair(a != "main.c", a) < std::pair(b != "main.c", b); });
    return names;
}

void Append(std::vector<std::string>& to, const std::vector<std::string>& from)
{
    to.insert(to.end(), from.begin(), from.end());
}

BuildStep Run(std::string source, std::vector<std::string> command)
{
    ProcessResult run = RunProcess(command);
    BuildStep step{std::move(source), std::move(command), run.started, run.exitCode, std::move(run.lines)};
    if (!step.started) step.lines.push_back(step.command.front() + ": could not be run");
    return step;
}

}  // namespace

std::vector<std::string> BuildResult::Lines() const
{
    std::vector<std::string> lines;
    for (const BuildStep& step : steps) Append(lines, step.lines);
    return lines;
}

BuildResult BuildSample(const std::filesystem::path& sources, const std::filesystem::path& out, const BuildOptions& options)
{
    BuildResult result;
    std::error_code error;
    std::filesystem::create_directories(out, error);
    std::vector<std::string> objects;
    bool compiled = true;
    for (const std::string& name : SourceNames(sources)) {
        std::filesystem::path source = sources / name;
        if (!options.replacedFile.empty() && name == options.replacedFile) {
            const std::filesystem::path copy = out / kVariantFolder / name;
            std::filesystem::create_directories(copy.parent_path(), error);
            std::filesystem::copy_file(options.replacement, copy, std::filesystem::copy_options::overwrite_existing, error);
            source = copy;
        }
        const std::filesystem::path object = (out / name).replace_extension(".rel");
        std::vector<std::string> command{options.compiler};
        Append(command, kCompileFlags);
        Append(command, options.extraFlags);
        Append(command, {"-I" + sources.string(), "-c", source.string(), "-o", object.string()});
        result.steps.push_back(Run(name, std::move(command)));
        compiled = compiled && result.steps.back().exitCode == 0;
        objects.push_back(object.string());
    }
    if (!compiled || objects.empty()) return result;

    const std::filesystem::path ihx = out / (std::string(kProgram) + ".ihx");
    const std::filesystem::path cdb = std::filesystem::path(ihx).replace_extension(".cdb");
    // A failed link must not leave an earlier build's files looking fresh.
    std::filesystem::remove(ihx, error);
    std::filesystem::remove(cdb, error);
    std::vector<std::string> command{options.compiler};
    Append(command, kCompileFlags);
    Append(command, options.extraFlags);
    Append(command, kLinkFlags);
    Append(command, objects);
    Append(command, {"-o", ihx.string()});
    result.steps.push_back(Run({}, std::move(command)));
    result.success = result.steps.back().exitCode == 0 && std::filesystem::exists(ihx, error);
    if (result.success) {
        result.ihx = ihx;
        if (std::filesystem::exists(cdb, error)) result.cdb = cdb;
    }
    return result;
}
