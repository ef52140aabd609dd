#include "demo/debugger/symbol_table.h"

void SymbolTable::Add(Symbol symbol)
{
    m_byName.try_emplace(symbol.name, m_symbols.size());
    m_symbols.push_back(std::move(symbol));
}

const Symbol* SymbolTable::Find(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : &m_symbols[found->second];
}
