// The global variables of a program: where each lives and of what type.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "demo/debugger/type_table.h"

struct Symbol {
    std::string name;
    TypeId type = kNoType;
    std::uint32_t space = 0;
    std::uint32_t address = 0;
};

class SymbolTable {
public:
    TypeTable& Types() { return m_types; }
    const TypeTable& Types() const { return m_types; }

    void Add(Symbol symbol);
    // Names compare byte for byte, as C's do; the first added of a name wins;
    // null when none matches.
    const Symbol* Find(std::string_view name) const;
    // Every symbol, in the order added.
    const std::vector<Symbol>& All() const { return m_symbols; }

private:
    // Looks names up by their view, without making a string of each.
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
    };

    TypeTable m_types;
    std::vector<Symbol> m_symbols;
    // Every evaluation looks its identifiers up here: by index into m_symbols.
    std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> m_byName;
};
