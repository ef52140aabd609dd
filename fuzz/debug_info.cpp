// SDCC's debug information as the demo reads it after a build: any text as
// a .cdb file, its symbols turned into the debugger's symbol table, and each
// of them evaluated, counted and expanded by the debugger service over a
// target, as the watch would after the user typed its name. Beyond "no
// crash, no sanitizer report": every lookup by a name the file declares
// finds a symbol of that name, and every line the reader kept maps back to
// an address.
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "demo/debugger/debug_session.h"
#include "demo/debugger/simulated_target.h"
#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/debug_symbols.h"
#include "fuzz/support/fuzz_check.h"

namespace {

void Lookups(const DebugInfo& info)
{
    for (const DebugSymbol& symbol : info.symbols) {
        if (symbol.scope == SymbolScope::Local || symbol.type.IsFunction()) continue;
        const DebugSymbol* found = info.FindVariable(symbol.name);
        FUZZ_CHECK(found && found->name == symbol.name);
    }
    for (const DebugFunction& function : info.functions) {
        const DebugFunction* found = info.FindFunction(function.name);
        FUZZ_CHECK(found && found->name == function.name);
        info.FunctionsInFile(function.file);
        if (function.start) info.FunctionAt(*function.start);
    }
    for (const LineEntry& line : info.lines.Entries()) FUZZ_CHECK(info.lines.AddressOf(line.file, line.line).has_value());
}

// What the watch does with a name: evaluate it, count its children, fetch
// the first few and any element block.
void Watch(DebugSession& session, const Symbol& symbol)
{
    WatchRecord record{};
    session.Evaluate(symbol.name.c_str(), record);
    session.GetCount(record);
    for (std::int32_t index = 0; index < record.count && index < 4; ++index) {
        WatchRecord member = record;
        member.count = index;
        session.GetMember(member);
    }
    WatchRecord element{};
    ElementBlock block{&record, &element, nullptr, nullptr};
    session.GetElements(block);
    std::free(block.data);
    std::free(block.valid);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const DebugInfo info = ParseDebugInfo(std::string_view(reinterpret_cast<const char*>(data), size));
    Lookups(info);

    SymbolTable symbols = SymbolsFromDebugInfo(info);
    for (const Symbol& symbol : symbols.All()) FUZZ_CHECK(symbols.Find(symbol.name) != nullptr);
    const SymbolTable watched = symbols;
    DebugSession session(std::make_unique<SimulatedTarget>(), std::move(symbols), {});
    int shown = 0;
    for (const Symbol& symbol : watched.All())
        if (++shown <= 32) Watch(session, symbol);
    return 0;
}
