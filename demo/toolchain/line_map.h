// Source lines and the code addresses the compiler gave them, both ways:
// a breakpoint needs a line's address, a stop needs the address's line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct LineEntry {
    std::string file;  // as the compiler names it: the source's file name
    int line = 0;
    int level = 0;  // block nesting: 0 is a function's own line
    int block = 0;
    std::uint32_t address = 0;
};

class LineMap {
public:
    // Records in file order; Index must follow before any lookup.
    void Add(LineEntry entry) { m_entries.push_back(std::move(entry)); }
    void Index();

    // The lowest address of a line's code; nullopt for a line without code.
    std::optional<std::uint32_t> AddressOf(std::string_view file, int line) const;
    // The line whose code holds the address: the last record at or below it.
    // Where several lines share an address the one recorded last wins: it is
    // the statement about to run. Null below the first record.
    const LineEntry* LineAt(std::uint32_t address) const;

    // The records whose addresses lie in [first, last], by address.
    std::vector<const LineEntry*> Within(std::uint32_t first, std::uint32_t last) const;

    const std::vector<LineEntry>& Entries() const { return m_entries; }

private:
    std::vector<LineEntry> m_entries;       // file order
    std::vector<std::size_t> m_byAddress;   // indices, by address then file order
    std::vector<std::size_t> m_byLine;      // indices, by file, line, address
};
