#include "demo/debugger/watch_list.h"

#include <algorithm>

#include "demo/debugger/record_description.h"
#include "demo/debugger/symbol_table.h"

std::vector<WatchListEntry> MakeWatchList(const SymbolTable& symbols, const std::vector<std::string>& names,
                                          DebugTarget& target)
{
    std::vector<WatchListEntry> entries;
    for (const std::string& name : names) {
        const Symbol* symbol = symbols.Find(name);
        if (!symbol) continue;
        WatchRecord record{};
        Describe({symbol->type, symbol->space, symbol->address, 0}, symbols.Types(), target, record);
        WatchListEntry entry{};
        // Zero-terminated when shorter than the field, as the entry's name is read.
        std::copy_n(name.begin(), std::min(name.size(), sizeof entry.name), entry.name);
        entry.space = static_cast<std::uint8_t>(record.space);
        entry.address = static_cast<std::uint16_t>(record.address);
        entry.type = static_cast<std::uint8_t>(record.type);
        entry.typeRef = record.typeRef;
        entry.size = static_cast<std::uint16_t>(record.size);
        entry.arrayFlag = record.arrayFlag;
        entries.push_back(entry);
    }
    return entries;
}
