// ucsim's s51 as a child process, driven through its command console. The
// console runs over pipes on s51's stdin and stdout; s51 prints no
// prompt there, so each request ends with an `expression` of a number that
// changes per request, and the reply is everything before that number's line.
// Every request is bounded by a timeout; a simulator that times out, dies or
// answers garbage is killed and reaped, and every later request fails at once.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct UcsimLaunch {
    std::string executable = "s51";
    // An 8052: the sample keeps its stack and idata above 0x7F.
    std::string cpu = "8052";
    std::string program;  // an Intel HEX file; its path holds no double quote
    // The serial port's output goes to a pipe UartFd() reads.
    bool captureUart = true;
};

class UcsimProcess {
public:
    static constexpr std::chrono::milliseconds kDefaultTimeout{2000};

    // Starts s51 and waits (within the default timeout) until it has loaded
    // the program; Alive() is false when it could not.
    explicit UcsimProcess(const UcsimLaunch& launch);
    ~UcsimProcess();
    UcsimProcess(const UcsimProcess&) = delete;
    UcsimProcess& operator=(const UcsimProcess&) = delete;

    // The console's reply to one command line (echoes removed), or nothing
    // when the simulator is dead, the command holds a line break, or no reply
    // came within timeout (the simulator is then killed).
    std::optional<std::string> Request(std::string_view command, std::chrono::milliseconds timeout = kDefaultTimeout);
    // Several commands in one round trip, their replies in order; all or
    // nothing, as Request. s51 reads its console only every so often when
    // idle, so the round trips, not the commands, set the cost.
    std::optional<std::vector<std::string>> Batch(std::span<const std::string> commands,
                                                  std::chrono::milliseconds timeout = kDefaultTimeout);

    bool Alive();
    // The child's id while it has not been reaped, else -1.
    pid_t Pid() const { return m_pid; }
    // Round trips to the simulator so far (a batch is one), and the commands
    // they carried; the start-up handshake included.
    std::size_t RequestCount() const { return m_requests; }
    std::size_t CommandCount() const { return m_commands; }
    // Read end (non-blocking) of the serial output pipe, or -1.
    int UartFd() const { return m_uart; }
    // Ends the simulator and reaps it: quit, then SIGTERM, then SIGKILL.
    void Shutdown();

private:
    bool Spawn(const UcsimLaunch& launch);
    bool Send(std::string_view text);
    // Reads until a line equal to marker; nothing on EOF, timeout or overflow.
    std::optional<std::vector<std::string>> ReadUntil(const std::string& marker, std::chrono::steady_clock::time_point deadline);
    void Kill();
    bool WaitExit(std::chrono::milliseconds bound);

    pid_t m_pid = -1;
    int m_input = -1;   // the console's stdin
    int m_output = -1;  // its stdout and stderr
    int m_uart = -1;
    bool m_dead = true;
    std::uint64_t m_sequence = 0;
    std::size_t m_requests = 0;
    std::size_t m_commands = 0;
    std::string m_pending;  // bytes read past the last complete line
};
