// A program the end-to-end test starts and stops: spawned with extra
// environment, waited for with a deadline so a hung child fails the test
// instead of hanging it.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

class ChildProcess {
public:
    // Starts `argv[0]` (a path) with the parent's environment plus `env`
    // ("NAME=value"). Started() tells whether it ran.
    ChildProcess(const std::vector<std::string>& argv, const std::vector<std::string>& env);
    ~ChildProcess();  // kills a child still running

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool Started() const { return m_pid > 0; }
    // The exit code once it has exited within `limit`; nothing if it is
    // still running then, or was ended by a signal.
    std::optional<int> WaitForExit(std::chrono::milliseconds limit);
    bool Running();

private:
    pid_t m_pid = -1;
    bool m_reaped = false;
};

// Runs a command line through the shell with extra environment and returns
// its exit status (as system() gives it).
int RunCommand(const std::string& command, const std::string& env);
