#include "demo/toolchain/debug_info.h"

#include <algorithm>

bool StructType::IsUnion() const
{
    const auto atZero = [](const StructMember& member) { return member.offset == 0; };
    const auto isBitField = [](const StructMember& member) { return member.type.base == BaseType::BitField && member.type.declarators.empty(); };
    return members.size() > 1 && std::all_of(members.begin(), members.end(), atZero) &&
           !std::all_of(members.begin(), members.end(), isBitField);
}

std::uint32_t StructType::Size() const
{
    std::uint32_t size = 0;
    for (const StructMember& member : members) size = std::max(size, member.offset + member.type.size);
    return size;
}

const StructType* DebugInfo::FindStruct(std::string_view module, std::string_view name) const
{
    std::optional<std::size_t> index;
    if (const auto own = m_structByKey.find(std::string(module) + "$" + std::string(name)); own != m_structByKey.end()) {
        index = own->second;
    } else if (const auto any = m_structByName.find(std::string(name)); any != m_structByName.end()) {
        index = any->second;
    }
    return index && *index < structs.size() ? &structs[*index] : nullptr;
}

const DebugSymbol* DebugInfo::FindVariable(std::string_view name) const
{
    const DebugSymbol* fileLevel = nullptr;
    for (const DebugSymbol& symbol : symbols) {
        if (symbol.name != name || symbol.type.IsFunction() || symbol.scope == SymbolScope::Local) continue;
        if (symbol.scope == SymbolScope::Global) return &symbol;
        if (!fileLevel) fileLevel = &symbol;
    }
    return fileLevel;
}

const DebugFunction* DebugInfo::FindFunction(std::string_view name) const
{
    const auto found = std::find_if(functions.begin(), functions.end(), [&](const DebugFunction& f) { return f.name == name; });
    return found == functions.end() ? nullptr : &*found;
}

std::vector<const DebugFunction*> DebugInfo::FunctionsInFile(std::string_view file) const
{
    std::vector<const DebugFunction*> found;
    for (const DebugFunction& function : functions) {
        if (function.file == file) found.push_back(&function);
    }
    std::sort(found.begin(), found.end(), [](const DebugFunction* a, const DebugFunction* b) { return a->line < b->line; });
    return found;
}

void DebugInfo::Index()
{
    m_structByKey.clear();
    m_structByName.clear();
    for (std::size_t i = 0; i < structs.size(); ++i) {
        m_structByKey.emplace(structs[i].module + "$" + structs[i].name, i);
        m_structByName.emplace(structs[i].name, i);
    }
    m_byStart.clear();
    for (std::size_t i = 0; i < functions.size(); ++i) {
        if (functions[i].start) m_byStart.push_back(i);
    }
    std::sort(m_byStart.begin(), m_byStart.end(), [this](std::size_t a, std::size_t b) { return *functions[a].start < *functions[b].start; });
}

const DebugFunction* DebugInfo::FunctionAt(std::uint32_t address) const
{
    const auto after = std::upper_bound(m_byStart.begin(), m_byStart.end(), address,
                                        [this](std::uint32_t key, std::size_t f) { return key < *functions[f].start; });
    if (after == m_byStart.begin()) return nullptr;
    const DebugFunction* function = &functions[*std::prev(after)];
    return address <= function->end.value_or(*function->start) ? function : nullptr;
}
