// Drives the simulated debugger service the way the watch does: every
// request goes through SendMessage to its window, and the transcript lines
// it writes are kept.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "demo/debugger/simulated_debugger_service.h"

class ServiceDriver {
public:
    // The sample program on the simulated target.
    ServiceDriver();
    // The sample program's symbols and list over another target.
    explicit ServiceDriver(std::unique_ptr<DebugTarget> target);

    SimulatedDebuggerService service;
    std::vector<std::string> transcript;

    // The record an expression evaluates to, starting from a zero record.
    WatchRecord Evaluate(std::string_view text);
    // The error id of an expression that must fail; 0 when it evaluated.
    std::uint32_t ErrorOf(std::string_view text);
    void Request(unsigned code, void* argument);
    // DRQ_GET_MEMBER on a copy of parent with index as its count.
    WatchRecord Member(const WatchRecord& parent, int index);
    // DRQ_GET_COUNT on a copy.
    std::int32_t Count(WatchRecord record);

private:
    void Start();
};
