// What the debugger service knows and does, without its window: a target,
// the program's symbols, its own watch list, and what the memory view shows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "demo/debugger/debug_target.h"
#include "demo/debugger/memory_show_request.h"
#include "demo/debugger/symbol_table.h"
#include "watch/debug_protocol.h"

class DebugSession {
public:
    DebugSession(std::unique_ptr<DebugTarget> target, SymbolTable symbols, const std::vector<std::string>& listNames);

    // Each answers one request, arguments already checked for null, and says
    // what it did in a transcript line (UTF-8).
    std::string Evaluate(const char* text, WatchRecord& record);
    std::string WriteValue(const WatchRecord& record);
    std::string GetCount(WatchRecord& record) const;
    std::string GetMember(WatchRecord& record);
    std::string ReadValue(WatchRecord& record);
    std::string GetListSize(std::int32_t& size) const;
    std::string GetList(WatchListEntry* entries) const;
    // Tells show where the object is when the text evaluates; a text that
    // does not shows nothing.
    std::string ShowMemory(const char* text, const std::function<void(const MemoryShowRequest&)>& show);
    std::string GetElements(ElementBlock& block);
    std::string Step();

    // The text of the object last shown in the memory view (GBK).
    const std::string& MemoryViewShows() const { return m_memoryView; }
    // The target whose bytes a memory view reads.
    DebugTarget& Target() { return *m_target; }

private:
    void EvaluateInto(std::string_view expression, WatchRecord& record);

    std::unique_ptr<DebugTarget> m_target;
    SymbolTable m_symbols;
    std::vector<WatchListEntry> m_list;
    std::string m_memoryView;
};
