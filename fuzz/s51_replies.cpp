// What ucsim's s51 prints back to the demo's driver: memory dump replies
// for any first address and count, console lines with their escapes, the
// numbers in them, and the serial port's byte stream in any chunks. Beyond
// "no crash, no sanitizer report": a dump that parses holds exactly the
// bytes asked for, a cleaned line keeps no carriage return, and no serial
// line handed on is longer than the cap, nor is any byte lost or added.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "demo/debugger/ucsim/console_text.h"
#include "demo/debugger/ucsim/hex_dump.h"
#include "demo/debugger/ucsim/uart_lines.h"
#include "fuzz/support/fuzz_check.h"

namespace {

void Dump(FuzzedDataProvider& input)
{
    const auto first = input.ConsumeIntegral<std::uint32_t>();
    const std::uint32_t count = kDumpBytesPerLine * input.ConsumeIntegralInRange<std::uint32_t>(0, 16);
    const std::string reply = input.ConsumeRandomLengthString(2000);
    DumpCommand(reply.substr(0, 8), first, count);
    if (const auto bytes = ParseHexDump(reply, first, count)) FUZZ_CHECK(bytes->size() == count);
}

void Console(FuzzedDataProvider& input)
{
    const std::string raw = input.ConsumeRandomLengthString(300);
    FUZZ_CHECK(CleanConsoleLine(raw).find('\r') == std::string::npos);
    ParseConsoleNumber(raw);
}

void Serial(FuzzedDataProvider& input)
{
    size_t handedOn = 0;
    size_t lineFeeds = 0;
    UartLines lines([&](const std::string& line) {
        FUZZ_CHECK(line.size() <= UartLines::kMaxLine);
        handedOn += line.size();
    });
    size_t fed = 0;
    size_t returns = 0;
    for (int chunks = input.ConsumeIntegralInRange(1, 8); chunks > 0; --chunks) {
        const std::string chunk = input.ConsumeRandomLengthString(6000);
        for (char byte : chunk) {
            lineFeeds += byte == '\n';
            returns += byte == '\r';
        }
        fed += chunk.size();
        lines.Feed(chunk);
    }
    // Whatever was fed is handed on, or still waits for its line feed,
    // apart from the line feeds themselves and the carriage returns before them.
    FUZZ_CHECK(handedOn + lineFeeds <= fed && handedOn + lineFeeds + returns + UartLines::kMaxLine >= fed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    FuzzedDataProvider input(data, size);
    for (int step = 0; step < 8 && input.remaining_bytes() > 0; ++step) {
        switch (input.ConsumeIntegralInRange(0, 2)) {
        case 0: Dump(input); break;
        case 1: Console(input); break;
        default: Serial(input); break;
        }
    }
    return 0;
}
