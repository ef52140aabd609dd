#include "demo/toolchain/cdb_reader.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "demo/toolchain/text_fields.h"

namespace {

// "G", "Fmodule" or "Lmodule.function" (older compilers: "Lfunction"),
// then name, level and block: the name of a symbol in every record kind.
struct ScopedName {
    SymbolScope scope = SymbolScope::Global;
    std::string module;
    std::string function;
    std::string name;
    int level = 0;
    int block = 0;

    // Records name one symbol alike whether they write the level "1_0" or "1".
    std::string Key() const
    {
        const char tag = scope == SymbolScope::Global ? 'G' : scope == SymbolScope::File ? 'F' : 'L';
        return tag + module + "." + function + "$" + name + "$" + std::to_string(level) + "$" + std::to_string(block);
    }
};

bool ParseScope(std::string_view token, ScopedName& out)
{
    if (token == "G") return true;
    if (token.size() < 2) return false;
    if (token[0] == 'F') {
        out.scope = SymbolScope::File;
        out.module = std::string(token.substr(1));
        return true;
    }
    if (token[0] != 'L') return false;
    out.scope = SymbolScope::Local;
    const std::string_view rest = token.substr(1);
    const std::size_t dot = rest.find('.');
    if (dot != std::string_view::npos) out.module = std::string(rest.substr(0, dot));
    out.function = std::string(dot == std::string_view::npos ? rest : rest.substr(dot + 1));
    return !out.function.empty();
}

// The level may carry a sub-level after an underscore, which scoping ignores.
std::optional<int> ParseLevel(std::string_view token)
{
    return ParseInt(token.substr(0, token.find('_')));
}

// `allowStruct` admits the "S" scope of structure members.
std::optional<ScopedName> ParseScopedName(std::string_view text, bool allowStruct = false)
{
    const std::vector<std::string_view> fields = SplitFields(text, '$');
    if (fields.size() != 4 || fields[1].empty()) return std::nullopt;
    ScopedName scoped;
    if (!(allowStruct && fields[0] == "S") && !ParseScope(fields[0], scoped)) return std::nullopt;
    const auto level = ParseLevel(fields[2]);
    const auto block = ParseInt(fields[3]);
    if (!level || !block) return std::nullopt;
    scoped.name = std::string(fields[1]);
    scoped.level = *level;
    scoped.block = *block;
    return scoped;
}

std::optional<AddressSpace> ParseSpace(std::string_view field)
{
    static constexpr std::string_view kLetters = "ABCDEFGHIJPRZ";
    if (field.size() != 1 || kLetters.find(field[0]) == std::string_view::npos) return std::nullopt;
    return static_cast<AddressSpace>(field[0]);
}

// "name(chain)" then the comma-separated fields after the chain.
struct SymbolBody {
    ScopedName name;
    TypeChain type;
    std::string_view tail;  // after the chain's ')', from its first comma
};

std::optional<SymbolBody> ParseSymbolBody(std::string_view text, bool allowStruct = false)
{
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos) return std::nullopt;
    auto name = ParseScopedName(text.substr(0, open), allowStruct);
    std::size_t used = 0;
    auto type = ParseTypeChain(text.substr(open), &used);
    if (!name || !type) return std::nullopt;
    const std::string_view tail = text.substr(open + used);
    if (!tail.starts_with(',')) return std::nullopt;
    return SymbolBody{std::move(*name), std::move(*type), tail.substr(1)};
}

// "R,0,0,[r6,r7]": the registers of a local held in them.
std::vector<std::string> ParseRegisters(std::string_view list)
{
    std::vector<std::string> registers;
    if (list.size() < 2 || list.front() != '[' || list.back() != ']') return registers;
    list = list.substr(1, list.size() - 2);
    if (list.empty()) return registers;
    for (std::string_view reg : SplitFields(list, ',')) registers.emplace_back(reg);
    return registers;
}

class Reader {
public:
    void Line(std::string_view line);
    DebugInfo Finish();

private:
    bool Symbol(std::string_view body);
    bool Function(std::string_view body);
    bool Struct(std::string_view body);
    bool Linker(std::string_view body);

    DebugInfo m_info;
    std::string m_module;
    std::unordered_set<std::string> m_symbolKeys;
    std::vector<std::string> m_functionKeys;  // parallel to m_info.functions
    std::unordered_set<std::string> m_structKeys;
    std::unordered_map<std::string, std::uint32_t> m_addresses;  // symbol and function starts
    std::unordered_map<std::string, std::uint32_t> m_ends;       // function ends
};

void Reader::Line(std::string_view line)
{
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty()) return;
    bool ok = false;
    if (line.size() >= 2 && line[1] == ':') {
        const std::string_view body = line.substr(2);
        switch (line[0]) {
        case 'M':
            ok = !body.empty();
            if (ok) {
                m_module = std::string(body);
                m_info.modules.push_back(m_module);
            }
            break;
        case 'S': ok = Symbol(body); break;
        case 'F': ok = Function(body); break;
        case 'T': ok = Struct(body); break;
        case 'L': ok = Linker(body); break;
        default: break;
        }
    }
    if (!ok) ++m_info.skippedLines;
}

bool Reader::Symbol(std::string_view text)
{
    auto body = ParseSymbolBody(text);
    if (!body) return false;
    const std::size_t bracket = body->tail.find('[');
    const std::vector<std::string_view> fields = SplitFields(body->tail.substr(0, bracket), ',');
    if (fields.size() < 3) return false;
    const auto space = ParseSpace(fields[0]);
    if (!space) return false;
    // Every module repeats the globals it declares; the first record stands.
    if (!m_symbolKeys.insert(body->name.Key()).second) return true;
    DebugSymbol symbol;
    symbol.name = std::move(body->name.name);
    symbol.scope = body->name.scope;
    symbol.module = body->name.scope == SymbolScope::Global ? m_module : std::move(body->name.module);
    symbol.function = std::move(body->name.function);
    symbol.level = body->name.level;
    symbol.block = body->name.block;
    symbol.type = std::move(body->type);
    symbol.space = *space;
    if (bracket != std::string_view::npos) symbol.registers = ParseRegisters(body->tail.substr(bracket));
    m_info.symbols.push_back(std::move(symbol));
    return true;
}

bool Reader::Function(std::string_view text)
{
    auto body = ParseSymbolBody(text);
    if (!body || body->name.scope == SymbolScope::Local || !body->type.IsFunction()) return false;
    // space, on stack, stack offset, interrupt, its number, register bank
    const std::vector<std::string_view> fields = SplitFields(body->tail, ',');
    if (fields.size() < 6 || !ParseSpace(fields[0])) return false;
    const auto interrupt = ParseInt(fields[3]);
    const auto number = ParseInt(fields[4]);
    const auto bank = ParseInt(fields[5]);
    if (!interrupt || !number || !bank) return false;
    DebugFunction function;
    function.name = body->name.name;
    function.scope = body->name.scope;
    function.module = body->name.module.empty() ? m_module : body->name.module;
    function.type = std::move(body->type);
    function.interrupt = *interrupt != 0;
    function.interruptNumber = *number;
    function.registerBank = *bank;
    m_functionKeys.push_back(body->name.Key());
    m_info.functions.push_back(std::move(function));
    return true;
}

// "Fmodule$name[({offset}S:S$member$0_0$0(chain),Z,0,0)...]"
bool Reader::Struct(std::string_view text)
{
    const std::size_t open = text.find('[');
    if (open == std::string_view::npos || !text.ends_with(']')) return false;
    const std::vector<std::string_view> head = SplitFields(text.substr(0, open), '$');
    if (head.size() != 2 || head[0].size() < 2 || head[0][0] != 'F' || head[1].empty()) return false;
    StructType type;
    type.module = std::string(head[0].substr(1));
    type.name = std::string(head[1]);
    std::string_view rest = text.substr(open + 1, text.size() - open - 2);
    while (!rest.empty()) {
        if (!rest.starts_with("({")) return false;
        const std::size_t brace = rest.find('}');
        if (brace == std::string_view::npos) return false;
        const auto offset = ParseUnsigned(rest.substr(2, brace - 2));
        std::string_view member = rest.substr(brace + 1);
        if (!offset || !member.starts_with("S:")) return false;
        auto body = ParseSymbolBody(member.substr(2), true);
        if (!body) return false;
        // The member's own fields run to the ')' that closes it.
        const std::size_t close = body->tail.find(')');
        if (close == std::string_view::npos) return false;
        type.members.push_back({std::move(body->name.name), *offset, std::move(body->type)});
        rest = body->tail.substr(close + 1);
    }
    if (m_structKeys.insert(type.module + "$" + type.name).second) m_info.structs.push_back(std::move(type));
    return true;
}

bool Reader::Linker(std::string_view text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos) return false;
    const auto address = ParseUnsigned(text.substr(colon + 1), 16);
    if (!address) return false;
    const std::string_view name = text.substr(0, colon);
    if (name.starts_with("C$")) {
        // "C$file$line$level$block": the file is all before the last three fields.
        std::vector<std::string_view> fields = SplitFields(name.substr(2), '$');
        if (fields.size() < 4) return false;
        const auto line = ParseInt(fields[fields.size() - 3]);
        const auto level = ParseLevel(fields[fields.size() - 2]);
        const auto block = ParseInt(fields.back());
        const std::size_t fileEnd = static_cast<std::size_t>(fields[fields.size() - 3].data() - name.data()) - 1;
        if (!line || !level || !block || fileEnd <= 2) return false;
        m_info.lines.Add({std::string(name.substr(2, fileEnd - 2)), *line, *level, *block, *address});
        return true;
    }
    if (name.starts_with("A$")) {
        const std::size_t dollar = name.rfind('$');
        const auto line = ParseInt(name.substr(dollar + 1));
        if (dollar <= 2 || !line) return false;
        m_info.asmLines.push_back({std::string(name.substr(2, dollar - 2)), *line, *address});
        return true;
    }
    const bool end = name.starts_with('X');
    const auto scoped = ParseScopedName(end ? name.substr(1) : name);
    if (!scoped) return false;
    (end ? m_ends : m_addresses)[scoped->Key()] = *address;
    return true;
}

DebugInfo Reader::Finish()
{
    m_info.lines.Index();
    for (DebugSymbol& symbol : m_info.symbols) {
        const std::string module = symbol.scope == SymbolScope::Global ? std::string() : symbol.module;
        const ScopedName key{symbol.scope, module, symbol.function, symbol.name, symbol.level, symbol.block};
        const auto found = m_addresses.find(key.Key());
        if (found != m_addresses.end()) symbol.address = found->second;
    }
    for (std::size_t i = 0; i < m_info.functions.size(); ++i) {
        DebugFunction& function = m_info.functions[i];
        const auto start = m_addresses.find(m_functionKeys[i]);
        const auto end = m_ends.find(m_functionKeys[i]);
        if (start == m_addresses.end()) continue;
        function.start = start->second;
        if (end != m_ends.end() && end->second >= start->second) function.end = end->second;
        // Its first line is the lowest line its code holds: the line of its name.
        const LineEntry* first = nullptr;
        for (const LineEntry* entry : m_info.lines.Within(*function.start, function.end.value_or(*function.start))) {
            if (!first || entry->line < first->line) first = entry;
        }
        if (first) {
            function.file = first->file;
            function.line = first->line;
        }
    }
    m_info.Index();
    return std::move(m_info);
}

}  // namespace

DebugInfo ParseDebugInfo(std::string_view text)
{
    Reader reader;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        reader.Line(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return reader.Finish();
}

std::optional<DebugInfo> LoadDebugInfo(const std::filesystem::path& cdbFile)
{
    std::ifstream in(cdbFile, std::ios::binary);
    if (!in) return std::nullopt;
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return ParseDebugInfo(text);
}
