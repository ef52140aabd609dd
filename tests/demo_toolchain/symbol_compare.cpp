#include "symbol_compare.h"

namespace {

// Deep enough for the sample's nesting; it stops a type that points to itself.
constexpr int kMaxDepth = 8;

void CompareTypes(const TypeTable& expectedTypes, TypeId expected, const TypeTable& actualTypes, TypeId actual,
                  const std::string& where, int depth, std::vector<std::string>& out)
{
    const TypeInfo* e = expectedTypes.Find(expected);
    const TypeInfo* a = actualTypes.Find(actual);
    if (!e || !a) {
        if (e != a) out.push_back(where + ": type missing");
        return;
    }
    const auto differ = [&](const char* what, std::uint32_t x, std::uint32_t y) {
        if (x != y) out.push_back(where + ": " + what + " " + std::to_string(x) + " != " + std::to_string(y));
        return x != y;
    };
    if (differ("code", e->code, a->code) || depth >= kMaxDepth) return;
    differ("size", e->size, a->size);
    differ("target space", e->targetSpace, a->targetSpace);
    differ("count", e->count, a->count);
    if (e->target != kNoType || a->target != kNoType) {
        CompareTypes(expectedTypes, e->target, actualTypes, a->target, where + "[target]", depth + 1, out);
    }
    if (differ("members", static_cast<std::uint32_t>(e->members.size()), static_cast<std::uint32_t>(a->members.size()))) return;
    for (std::size_t i = 0; i < e->members.size(); ++i) {
        const std::string member = where + "." + e->members[i].name;
        if (e->members[i].name != a->members[i].name) out.push_back(member + ": named " + a->members[i].name);
        differ((member + " offset").c_str(), e->members[i].offset, a->members[i].offset);
        CompareTypes(expectedTypes, e->members[i].type, actualTypes, a->members[i].type, member, depth + 1, out);
    }
}

}  // namespace

std::vector<std::string> CompareSymbols(const SymbolTable& expected, const SymbolTable& actual)
{
    std::vector<std::string> out;
    for (const Symbol& symbol : expected.All()) {
        const Symbol* found = actual.Find(symbol.name);
        if (!found) {
            out.push_back(symbol.name + ": missing");
            continue;
        }
        if (found->space != symbol.space) out.push_back(symbol.name + ": space " + std::to_string(found->space));
        if (found->address != symbol.address) out.push_back(symbol.name + ": address " + std::to_string(found->address));
        CompareTypes(expected.Types(), symbol.type, actual.Types(), found->type, symbol.name, 0, out);
    }
    return out;
}
