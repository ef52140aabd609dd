#include "demo/toolchain/process_run.h"

#include <cerrno>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "demo/toolchain/text_fields.h"

extern char** environ;

namespace {

constexpr std::size_t kReadChunk = 4096;

std::vector<std::string> SplitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(std::move(line));
        start = end + 1;
    }
    return lines;
}

}  // namespace

ProcessResult RunProcess(const std::vector<std::string>& argv)
{
    ProcessResult result;
    if (argv.empty()) return result;
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) return result;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDERR_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[1]);

    std::vector<char*> args;
    for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    pid_t child = 0;
    const int spawned = posix_spawnp(&child, args[0], &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    if (spawned != 0) {
        close(pipeEnds[0]);
        return result;
    }
    result.started = true;

    std::string output;
    char buffer[kReadChunk];
    for (;;) {
        const ssize_t got = read(pipeEnds[0], buffer, sizeof buffer);
        if (got > 0) {
            output.append(buffer, static_cast<std::size_t>(got));
        } else if (got == 0 || errno != EINTR) {
            break;
        }
    }
    close(pipeEnds[0]);

    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    result.lines = SplitLines(output);
    return result;
}

std::optional<std::filesystem::path> FindOnPath(std::string_view program)
{
    const char* path = std::getenv("PATH");
    if (!path || program.empty()) return std::nullopt;
    for (std::string_view folder : SplitFields(path, ':')) {
        if (folder.empty()) continue;
        const std::filesystem::path candidate = std::filesystem::path(folder) / program;
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error) && access(candidate.c_str(), X_OK) == 0) return candidate;
    }
    return std::nullopt;
}
