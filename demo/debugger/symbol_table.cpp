#include "demo/debugger/symbol_table.h"

#include <algorithm>

const Symbol* SymbolTable::Find(std::string_view name) const
{
    const auto found = std::find_if(m_symbols.begin(), m_symbols.end(), [&](const Symbol& s) { return s.name == name; });
    return found == m_symbols.end() ? nullptr : &*found;
}
