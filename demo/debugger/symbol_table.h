// The global variables of a program: where each lives and of what type.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
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

    void Add(Symbol symbol) { m_symbols.push_back(std::move(symbol)); }
    // Names compare byte for byte, as C's do; null when none matches.
    const Symbol* Find(std::string_view name) const;
    // Every symbol, in the order added.
    const std::vector<Symbol>& All() const { return m_symbols; }

private:
    TypeTable m_types;
    std::vector<Symbol> m_symbols;
};
