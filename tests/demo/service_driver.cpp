#include "tests/demo/service_driver.h"

#include <gtest/gtest.h>

#include "demo/debugger/traffic_symbols.h"

ServiceDriver::ServiceDriver()
{
    Start();
}

ServiceDriver::ServiceDriver(std::unique_ptr<DebugTarget> target)
    : service(std::move(target), Traffic::Symbols(), {"phase", "ticks", "cfg"})
{
    Start();
}

void ServiceDriver::Start()
{
    EXPECT_TRUE(service.Create(nullptr));
    service.transcript = [this](const std::string& line) { transcript.push_back(line); };
}

WatchRecord ServiceDriver::Evaluate(std::string_view text)
{
    const std::string terminated(text);
    WatchRecord record{};
    ::SendMessage(service.GetSafeHwnd(), UWM_DEBUG_REQUEST, reinterpret_cast<WPARAM>(terminated.c_str()),
                  reinterpret_cast<LPARAM>(&record));
    return record;
}

std::uint32_t ServiceDriver::ErrorOf(std::string_view text)
{
    const WatchRecord record = Evaluate(text);
    return record.status == 0 ? record.errorId : 0;
}

void ServiceDriver::Request(unsigned code, void* argument)
{
    ::SendMessage(service.GetSafeHwnd(), UWM_DEBUG_REQUEST, code, reinterpret_cast<LPARAM>(argument));
}

WatchRecord ServiceDriver::Member(const WatchRecord& parent, int index)
{
    WatchRecord member = parent;
    member.count = index;
    Request(DRQ_GET_MEMBER, &member);
    return member;
}

std::int32_t ServiceDriver::Count(WatchRecord record)
{
    Request(DRQ_GET_COUNT, &record);
    return record.count;
}
