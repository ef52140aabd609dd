#include "demo/toolchain/type_chain.h"

#include "demo/toolchain/text_fields.h"

namespace {

std::optional<Declarator> ParseDeclarator(std::string_view item)
{
    if (item.size() < 2 || item[0] != 'D') return std::nullopt;
    Declarator declarator;
    switch (item[1]) {
    case 'A': {
        // The count may carry a one-letter suffix ("DA3d").
        std::string_view count = item.substr(2);
        if (!count.empty() && (count.back() < '0' || count.back() > '9')) count.remove_suffix(1);
        const auto elements = ParseUnsigned(count);
        if (!elements) return std::nullopt;
        declarator.count = *elements;
        return declarator;
    }
    case 'F':
        declarator.kind = Declarator::Function;
        return item.size() == 2 ? std::optional(declarator) : std::nullopt;
    default:
        break;
    }
    declarator.kind = Declarator::Pointer;
    if (item.size() != 2) return std::nullopt;
    switch (item[1]) {
    case 'G': declarator.space = PointerSpace::Generic; break;
    case 'D': declarator.space = PointerSpace::Data; break;
    case 'I': declarator.space = PointerSpace::Idata; break;
    case 'X': declarator.space = PointerSpace::Xdata; break;
    case 'P': declarator.space = PointerSpace::Pdata; break;
    case 'C': declarator.space = PointerSpace::Code; break;
    default: return std::nullopt;
    }
    return declarator;
}

// The specifier's own bytes as the letter implies them.
std::uint32_t LetterBytes(BaseType base)
{
    switch (base) {
    case BaseType::Short:
    case BaseType::Int:
        return 2;
    case BaseType::Long:
    case BaseType::Float:
        return 4;
    case BaseType::Void:
        return 0;
    default:
        return 1;
    }
}

bool ParseSpecifier(std::string_view item, TypeChain& chain)
{
    // A _Bool has no letter at all.
    if (item.empty()) {
        chain.base = BaseType::Bool;
        return true;
    }
    if (item.size() < 2 || item[0] != 'S') return false;
    const std::string_view rest = item.substr(2);
    switch (item[1]) {
    case 'C': chain.base = BaseType::Char; break;
    case 'S': chain.base = BaseType::Short; break;
    case 'I': chain.base = BaseType::Int; break;
    case 'L': chain.base = BaseType::Long; break;
    case 'F': chain.base = BaseType::Float; break;
    case 'V': chain.base = BaseType::Void; break;
    case 'X': chain.base = BaseType::Sbit; break;
    case 'T':
        if (rest.empty()) return false;
        chain.base = BaseType::Struct;
        chain.structName = std::string(rest);
        return true;
    case 'B': {
        // "SB<first bit>$<width>"
        const std::size_t dollar = rest.find('$');
        const auto start = ParseUnsigned(rest.substr(0, dollar));
        const auto width = dollar == std::string_view::npos ? std::nullopt : ParseUnsigned(rest.substr(dollar + 1));
        if (!start || !width) return false;
        chain.base = BaseType::BitField;
        chain.bitStart = *start;
        chain.bitWidth = *width;
        return true;
    }
    default:
        return false;
    }
    return rest.empty();
}

// SDCC writes long long as "SI" with 8 bytes: where only arrays wrap the
// specifier, the chain's size tells its real width.
std::uint32_t BaseBytes(const TypeChain& chain)
{
    std::uint64_t elements = 1;
    for (const Declarator& declarator : chain.declarators) {
        if (declarator.kind != Declarator::Array || declarator.count == 0) return LetterBytes(chain.base);
        elements *= declarator.count;
    }
    if (chain.base == BaseType::Struct || chain.base == BaseType::BitField) return LetterBytes(chain.base);
    return elements != 0 && chain.size % elements == 0 ? static_cast<std::uint32_t>(chain.size / elements)
                                                         : LetterBytes(chain.base);
}

}  // namespace

std::optional<TypeChain> ParseTypeChain(std::string_view text, std::size_t* used)
{
    if (!text.starts_with("({")) return std::nullopt;
    const std::size_t sizeEnd = text.find('}');
    const std::size_t close = text.find(')');
    if (sizeEnd == std::string_view::npos || close == std::string_view::npos || close < sizeEnd) return std::nullopt;
    TypeChain chain;
    const auto size = ParseUnsigned(text.substr(2, sizeEnd - 2));
    if (!size) return std::nullopt;
    chain.size = *size;

    const std::string_view body = text.substr(sizeEnd + 1, close - sizeEnd - 1);
    const std::size_t colon = body.rfind(':');
    if (colon == std::string_view::npos || colon + 2 != body.size()) return std::nullopt;
    const char sign = body[colon + 1];
    if (sign != 'S' && sign != 'U') return std::nullopt;
    chain.isSigned = sign == 'S';

    const std::vector<std::string_view> items = SplitFields(body.substr(0, colon), ',');
    for (std::size_t i = 0; i + 1 < items.size(); ++i) {
        const auto declarator = ParseDeclarator(items[i]);
        if (!declarator) return std::nullopt;
        chain.declarators.push_back(*declarator);
    }
    if (!ParseSpecifier(items.back(), chain)) return std::nullopt;
    chain.baseBytes = BaseBytes(chain);
    if (used) *used = close + 1;
    return chain;
}
