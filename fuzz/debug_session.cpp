// The demo debugger service's answers to a watch, over the sample program
// on its simulated target: expressions a user types (any bytes), and
// records a confused or hostile watch sends back (any fields: types, spaces,
// sizes, counts, member indexes, element templates). Beyond "no crash, no
// sanitizer report", a list is written into exactly the entries its size
// announced, and element blocks are exactly count x size bytes (the watch
// frees them); both are heap blocks of that size, so a byte past them is a
// report.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "demo/debugger/debug_session.h"
#include "demo/debugger/simulated_target.h"
#include "demo/debugger/traffic_symbols.h"
#include "fuzz/support/fuzz_check.h"

namespace {

const SymbolTable& ProgramSymbols()
{
    static const SymbolTable symbols = Traffic::Symbols();
    return symbols;
}

// The records a watch would send: those the service made, or raw bytes, or
// one of the service's with a field changed.
class Records {
public:
    explicit Records(FuzzedDataProvider& input) : m_input(input) {}

    WatchRecord Next()
    {
        WatchRecord record{};
        switch (m_input.ConsumeIntegralInRange(0, 2)) {
        case 0:
            if (!m_made.empty()) return m_made[m_input.ConsumeIntegralInRange<size_t>(0, m_made.size() - 1)];
            [[fallthrough]];
        case 1:
            m_input.ConsumeData(&record, sizeof record);
            return record;
        default:
            if (!m_made.empty()) record = m_made[m_input.ConsumeIntegralInRange<size_t>(0, m_made.size() - 1)];
            ChangeField(record);
            return record;
        }
    }

    void Keep(const WatchRecord& record)
    {
        if (record.status && m_made.size() < 16) m_made.push_back(record);
    }

private:
    void ChangeField(WatchRecord& record)
    {
        const auto value = m_input.ConsumeIntegral<std::uint32_t>();
        switch (m_input.ConsumeIntegralInRange(0, 6)) {
        case 0: record.type = value; break;
        case 1: record.space = value; break;
        case 2: record.size = value; break;
        case 3: record.address = value; break;
        case 4: record.typeRef = value; break;
        case 5: record.count = static_cast<std::int32_t>(value); break;
        default: record.value = value; break;
        }
    }

    FuzzedDataProvider& m_input;
    std::vector<WatchRecord> m_made;
};

std::string Text(FuzzedDataProvider& input) { return input.ConsumeRandomLengthString(80); }

void Elements(DebugSession& session, WatchRecord array, WatchRecord element)
{
    ElementBlock block{&array, &element, nullptr, nullptr};
    session.GetElements(block);
    FUZZ_CHECK((block.data == nullptr) == (block.valid == nullptr));
    if (block.data) {
        // count x size bytes, the count cut to what a 64 KiB space holds;
        // each validity byte is 0 or 1, and a byte not read is 0.
        FUZZ_CHECK(array.count > 0 && element.size > 0 && element.size <= 65536);
        const size_t count = std::min<size_t>(static_cast<size_t>(array.count), 65536 / element.size);
        for (size_t i = 0; i < count * element.size; ++i)
            FUZZ_CHECK(block.valid[i] <= 1 && (block.valid[i] || block.data[i] == 0));
    }
    std::free(block.data);
    std::free(block.valid);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    FuzzedDataProvider input(data, size);
    std::vector<std::string> listNames;
    for (int i = input.ConsumeIntegralInRange(0, 4); i > 0; --i) listNames.push_back(Text(input));
    DebugSession session(std::make_unique<SimulatedTarget>(), ProgramSymbols(), listNames);
    Records records(input);

    for (int step = 0; step < 48 && input.remaining_bytes() > 0; ++step) {
        switch (input.ConsumeIntegralInRange(0, 8)) {
        case 0: {
            WatchRecord record = records.Next();
            session.Evaluate(Text(input).c_str(), record);
            records.Keep(record);
            break;
        }
        case 1: session.WriteValue(records.Next()); break;
        case 2: {
            WatchRecord record = records.Next();
            session.GetCount(record);
            break;
        }
        case 3: {
            WatchRecord record = records.Next();
            session.GetMember(record);
            records.Keep(record);
            break;
        }
        case 4: {
            WatchRecord record = records.Next();
            session.ReadValue(record);
            break;
        }
        case 5: {
            std::int32_t count = -1;
            session.GetListSize(count);
            FUZZ_CHECK(count >= 0 && count <= kMaxWatchListEntries);
            auto entries = std::make_unique<WatchListEntry[]>(static_cast<size_t>(count) + (count == 0));
            session.GetList(entries.get());
            break;
        }
        case 6: {
            const WatchRecord array = records.Next();
            Elements(session, array, records.Next());
            break;
        }
        case 7: session.Step(); break;
        default: session.ShowMemory(Text(input).c_str(), [](const MemoryShowRequest&) {}); break;
        }
    }
    return 0;
}
