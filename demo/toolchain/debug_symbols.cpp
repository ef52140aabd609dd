#include "demo/toolchain/debug_symbols.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "watch/debug_protocol.h"

namespace {

// The compiler's names for string literals, which no C name reaches.
constexpr std::string_view kStringLiteralPrefix = "__str_";

std::optional<std::uint32_t> WatchSpaceOf(AddressSpace space)
{
    switch (space) {
    case AddressSpace::Bit:
    case AddressSpace::Sbit:
        return WS_BIT;
    case AddressSpace::Data:
    case AddressSpace::Sfr:  // direct addresses 0x80 and up are the SFRs
        return WS_DATA;
    case AddressSpace::Idata:
        return WS_IDATA;
    case AddressSpace::Xdata:
        return WS_XDATA;
    case AddressSpace::Pdata:
        return WS_PDATA;
    case AddressSpace::Code:
    case AddressSpace::CodeStatic:
        return WS_CODE;
    case AddressSpace::InternalStack:
        return WS_STACK;
    default:
        return std::nullopt;
    }
}

std::uint32_t WatchSpaceOf(PointerSpace space)
{
    switch (space) {
    case PointerSpace::Data: return WS_DATA;
    case PointerSpace::Idata: return WS_IDATA;
    case PointerSpace::Xdata: return WS_XDATA;
    case PointerSpace::Pdata: return WS_PDATA;
    case PointerSpace::Code: return WS_CODE;
    default: return WS_NONE;
    }
}

std::uint32_t IntegerCode(std::uint32_t bytes, bool isSigned)
{
    switch (bytes) {
    case 1: return isSigned ? WT_CHAR : WT_UCHAR;
    case 2: return isSigned ? WT_INT : WT_UINT;
    case 4: return isSigned ? WT_LONG : WT_ULONG;
    default: return 0;
    }
}

class TypeConverter {
public:
    TypeConverter(const DebugInfo& info, TypeTable& types) : m_info(info), m_types(types) {}

    // kNoType for a type the watch cannot show.
    TypeId Convert(const TypeChain& chain, std::string_view module, AddressSpace space)
    {
        TypeId type = Base(chain, module, space);
        for (auto declarator = chain.declarators.rbegin(); declarator != chain.declarators.rend(); ++declarator) {
            switch (declarator->kind) {
            case Declarator::Function:
                type = kNoType;  // only a pointer to it has a value
                break;
            case Declarator::Pointer:
                type = m_types.Pointer(type, WatchSpaceOf(declarator->space));
                break;
            case Declarator::Array:
                if (type == kNoType || declarator->count == 0) return kNoType;
                type = m_types.Array(type, declarator->count);
                break;
            }
        }
        return type;
    }

private:
    TypeId Base(const TypeChain& chain, std::string_view module, AddressSpace space)
    {
        switch (chain.base) {
        case BaseType::Char:
        case BaseType::Short:
        case BaseType::Int:
        case BaseType::Long:
            return m_types.Scalar(IntegerCode(chain.baseBytes, chain.isSigned));
        case BaseType::Bool:
            return m_types.Scalar(WT_UCHAR);
        case BaseType::Float:
            return m_types.Scalar(WT_FLOAT);
        case BaseType::Sbit:
            return m_types.Scalar(WT_BIT);
        case BaseType::BitField:
            // A __bit variable is written as a one-bit field in bit space; a
            // structure's bit field shows as the bytes that hold it.
            if (space == AddressSpace::Bit) return m_types.Scalar(WT_BIT);
            return m_types.Scalar(IntegerCode(chain.size, false));
        case BaseType::Struct:
            if (const StructType* found = m_info.FindStruct(module, chain.structName)) return Record(*found);
            return kNoType;
        default:
            return kNoType;
        }
    }

    TypeId Record(const StructType& record)
    {
        const auto known = m_records.find(&record);
        if (known != m_records.end()) return known->second;
        // Known before its members, so a member that points back finds it.
        const TypeId id = m_types.LaidOutRecord(record.IsUnion() ? WT_UNION : WT_STRUCT, record.Size());
        m_records.emplace(&record, id);
        std::vector<TypeMember> members;
        for (const StructMember& member : record.members) {
            members.push_back({member.name, Convert(member.type, record.module, AddressSpace::Undefined), member.offset});
        }
        m_types.SetMembers(id, std::move(members));
        return id;
    }

    const DebugInfo& m_info;
    TypeTable& m_types;
    std::unordered_map<const StructType*, TypeId> m_records;
};

bool IsVariable(const DebugSymbol& symbol, SymbolScope scope)
{
    return symbol.scope == scope && symbol.level == 0 && symbol.address && !symbol.type.IsFunction() &&
           !symbol.name.starts_with(kStringLiteralPrefix);
}

}  // namespace

SymbolTable SymbolsFromDebugInfo(const DebugInfo& info)
{
    SymbolTable table;
    TypeConverter converter(info, table.Types());
    std::unordered_set<std::string_view> taken;
    for (const SymbolScope scope : {SymbolScope::Global, SymbolScope::File}) {
        for (const DebugSymbol& symbol : info.symbols) {
            if (!IsVariable(symbol, scope) || taken.contains(symbol.name)) continue;
            const auto space = WatchSpaceOf(symbol.space);
            if (!space) continue;
            const TypeId type = converter.Convert(symbol.type, symbol.module, symbol.space);
            if (type == kNoType) continue;
            taken.insert(symbol.name);
            table.Add({symbol.name, type, *space, *symbol.address});
        }
    }
    return table;
}
