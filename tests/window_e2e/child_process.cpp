#include "tests/window_e2e/child_process.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

extern char** environ;

namespace {

// How often a wait looks at the child again.
constexpr std::chrono::milliseconds kPoll(20);

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& argv, const std::vector<std::string>& env)
{
    std::vector<char*> args;
    for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    std::vector<std::string> environment(env);
    for (char** entry = environ; *entry; ++entry) environment.emplace_back(*entry);
    std::vector<char*> envp;
    for (std::string& entry : environment) envp.push_back(entry.data());
    envp.push_back(nullptr);
    if (posix_spawn(&m_pid, args[0], nullptr, nullptr, args.data(), envp.data()) != 0) m_pid = -1;
}

ChildProcess::~ChildProcess()
{
    if (m_pid <= 0 || m_reaped) return;
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
}

bool ChildProcess::Running()
{
    if (m_pid <= 0 || m_reaped) return false;
    return waitpid(m_pid, nullptr, WNOHANG) == 0;
}

std::optional<int> ChildProcess::WaitForExit(std::chrono::milliseconds limit)
{
    if (m_pid <= 0 || m_reaped) return std::nullopt;
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < deadline) {
        int status = 0;
        const pid_t done = waitpid(m_pid, &status, WNOHANG);
        if (done == m_pid) {
            m_reaped = true;
            if (WIFEXITED(status)) return WEXITSTATUS(status);
            return std::nullopt;
        }
        std::this_thread::sleep_for(kPoll);
    }
    return std::nullopt;
}

int RunCommand(const std::string& command, const std::string& env)
{
    return std::system((env + " " + command).c_str());
}
