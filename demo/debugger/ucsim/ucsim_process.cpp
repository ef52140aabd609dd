#include "demo/debugger/ucsim/ucsim_process.h"

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <thread>
#include <unordered_set>

#include "demo/debugger/ucsim/console_text.h"

extern char** environ;

namespace {

// Where the child finds the serial pipe.
constexpr int kChildUart = 3;
// Parent-side descriptors go above the child's fixed ones, so a dup2 in the
// child never meets a descriptor it would keep open by accident.
constexpr int kFirstParentFd = 10;
// Sentinel numbers start high so they never look like a small reply value.
constexpr std::uint64_t kSentinelBase = 0x5EED0000;
// A reply longer than this is no reply of ours: the console lost its framing.
constexpr std::size_t kMaxReplyBytes = 4u << 20;
// How long each stage of a shutdown may take before the next, harder one.
constexpr std::chrono::milliseconds kQuitGrace{300};
constexpr std::chrono::milliseconds kTermGrace{300};
// How often a shutdown looks whether the child has exited.
constexpr std::chrono::milliseconds kReapPoll{2};

int Lift(int fd)
{
    if (fd < 0) return fd;
    const int lifted = fcntl(fd, F_DUPFD_CLOEXEC, kFirstParentFd);
    close(fd);
    return lifted;
}

}  // namespace

UcsimProcess::UcsimProcess(const UcsimLaunch& launch)
{
    if (!Spawn(launch)) {
        Kill();
        return;
    }
    m_dead = false;
    // Loaded by command rather than argument: s51 then says when it cannot
    // (and stays silent when it can); it would start empty instead.
    const bool quotable = launch.program.find('"') == std::string::npos;
    // The first reply carries s51's banner.
    const bool greeted = Request("").has_value();
    const auto loaded = quotable && greeted ? Request("file \"" + launch.program + "\"") : std::nullopt;
    if (!loaded || !loaded->empty()) Shutdown();
}

UcsimProcess::~UcsimProcess()
{
    Shutdown();
    if (m_uart >= 0) close(m_uart);
}

bool UcsimProcess::Spawn(const UcsimLaunch& launch)
{
    // Plain pipes: on a socket s51 would speak telnet.
    int toChild[2], fromChild[2], uart[2] = {-1, -1};
    if (pipe2(toChild, O_CLOEXEC) != 0) return false;
    if (pipe2(fromChild, O_CLOEXEC) != 0) {
        close(toChild[0]);
        close(toChild[1]);
        return false;
    }
    if (launch.captureUart && pipe2(uart, O_CLOEXEC) != 0) uart[0] = uart[1] = -1;
    m_input = Lift(toChild[1]);
    m_output = Lift(fromChild[0]);
    m_uart = Lift(uart[0]);
    const int childIn = Lift(toChild[0]);
    const int childOut = Lift(fromChild[1]);
    const int childUart = Lift(uart[1]);
    // Only our end of the serial pipe is polled; s51 writes it blocking.
    if (m_uart >= 0) fcntl(m_uart, F_SETFL, O_NONBLOCK);
    const auto closeChildEnds = [&] {
        for (const int fd : {childIn, childOut, childUart})
            if (fd >= 0) close(fd);
    };
    if (m_input < 0 || m_output < 0 || childIn < 0 || childOut < 0 || (launch.captureUart && (m_uart < 0 || childUart < 0))) {
        closeChildEnds();
        return false;
    }

    // -b: no colour escapes in the replies.
    std::vector<std::string> args = {launch.executable, "-t", launch.cpu, "-b"};
    if (launch.captureUart) {
        args.push_back("-S");
        args.push_back("out=/dev/fd/" + std::to_string(kChildUart));
    }
    std::vector<char*> argv;
    for (auto& arg : args) argv.push_back(arg.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, childIn, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, childOut, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, childOut, STDERR_FILENO);
    if (childUart >= 0) posix_spawn_file_actions_adddup2(&actions, childUart, kChildUart);
    pid_t pid = -1;
    const int failed = posix_spawnp(&pid, launch.executable.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    closeChildEnds();
    if (failed != 0) return false;
    m_pid = pid;
    return true;
}

bool UcsimProcess::Alive()
{
    if (m_dead) return false;
    int status = 0;
    if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
        m_pid = -1;
        Kill();
    }
    return !m_dead;
}

std::optional<std::string> UcsimProcess::Request(std::string_view command, std::chrono::milliseconds timeout)
{
    const std::string commands[] = {std::string(command)};
    auto replies = Batch(commands, timeout);
    if (!replies) return std::nullopt;
    return std::move(replies->front());
}

std::optional<std::vector<std::string>> UcsimProcess::Batch(std::span<const std::string> commands,
                                                            std::chrono::milliseconds timeout)
{
    if (m_dead || commands.empty()) return std::nullopt;
    for (const auto& command : commands)
        if (command.find_first_of("\r\n") != std::string::npos) return std::nullopt;
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    // The console echoes each line when it reads it, which may be before the
    // replies to earlier lines: every line sent is dropped from every reply.
    std::vector<std::string> markers;
    std::unordered_set<std::string> sent;
    std::string text;
    for (const auto& command : commands) {
        markers.push_back(std::to_string(kSentinelBase + ++m_sequence));
        const std::string sentinel = "expression " + markers.back();
        if (!command.empty()) text += command + '\n';
        text += sentinel + '\n';
        sent.insert(command);
        sent.insert(sentinel);
    }
    ++m_requests;
    m_commands += commands.size();
    if (!Send(text)) {
        Kill();
        return std::nullopt;
    }
    std::vector<std::string> replies;
    for (const auto& marker : markers) {
        auto lines = ReadUntil(marker, deadline);
        if (!lines) {
            Kill();
            return std::nullopt;
        }
        std::string& reply = replies.emplace_back();
        for (const auto& line : *lines) {
            if (sent.contains(line)) continue;
            reply += line;
            reply += '\n';
        }
    }
    return replies;
}

bool UcsimProcess::Send(std::string_view text)
{
    if (m_input < 0) return false;
    // A write to a dead simulator's pipe raises SIGPIPE, which would end this
    // process: hold it blocked for the write and take it back if it came.
    sigset_t pipeSignal, previous;
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipeSignal, &previous);
    bool broken = false;
    while (!text.empty()) {
        const ssize_t sent = write(m_input, text.data(), text.size());
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) {
            broken = true;
            break;
        }
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
    if (broken && errno == EPIPE) {
        const timespec now{};
        sigtimedwait(&pipeSignal, nullptr, &now);
    }
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    return !broken;
}

std::optional<std::vector<std::string>> UcsimProcess::ReadUntil(const std::string& marker,
                                                                std::chrono::steady_clock::time_point deadline)
{
    std::vector<std::string> lines;
    std::size_t total = 0;
    char buffer[4096];
    for (;;) {
        std::size_t end;
        while ((end = m_pending.find('\n')) != std::string::npos) {
            std::string line = CleanConsoleLine(std::string_view(m_pending).substr(0, end));
            m_pending.erase(0, end + 1);
            if (line == marker) return lines;
            total += line.size();
            lines.push_back(std::move(line));
        }
        if (total + m_pending.size() > kMaxReplyBytes) return std::nullopt;
        // Rounded up: a request never gives up before its deadline.
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) return std::nullopt;
        pollfd fd{m_output, POLLIN, 0};
        const int ready = poll(&fd, 1, static_cast<int>(left.count()));
        if (ready == 0 || (ready < 0 && errno == EINTR)) continue;
        if (ready < 0) return std::nullopt;
        const ssize_t got = read(m_output, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return std::nullopt;
        m_pending.append(buffer, static_cast<std::size_t>(got));
    }
}

void UcsimProcess::Shutdown()
{
    if (m_pid > 0 && !m_dead) {
        // A polite quit first: s51 then closes its files itself.
        Send("quit\n");
        if (!WaitExit(kQuitGrace)) {
            kill(m_pid, SIGTERM);
            WaitExit(kTermGrace);
        }
    }
    Kill();
}

void UcsimProcess::Kill()
{
    m_dead = true;
    if (m_pid > 0) {
        kill(m_pid, SIGKILL);
        while (waitpid(m_pid, nullptr, 0) < 0 && errno == EINTR) {
        }
        m_pid = -1;
    }
    for (int* fd : {&m_input, &m_output}) {
        if (*fd >= 0) close(*fd);
        *fd = -1;
    }
    m_pending.clear();
    // The serial pipe stays open: lines s51 wrote before it ended are still
    // there to read.
}

bool UcsimProcess::WaitExit(std::chrono::milliseconds bound)
{
    const auto deadline = std::chrono::steady_clock::now() + bound;
    for (;;) {
        const pid_t done = waitpid(m_pid, nullptr, WNOHANG);
        if (done == m_pid || (done < 0 && errno == ECHILD)) {
            m_pid = -1;
            return true;
        }
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(kReapPoll);
    }
}
