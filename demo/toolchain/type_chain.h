// SDCC's type chain, as the debug information writes it: "({2}DX,STlight:S)"
// is a 2-byte pointer into external RAM to struct light. Declarators come
// outermost first, then one specifier with its sign.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The space a typed pointer points into; Generic carries its space in a tag byte.
enum class PointerSpace { Generic, Data, Idata, Xdata, Pdata, Code };

struct Declarator {
    enum Kind { Array, Function, Pointer } kind = Array;
    std::uint32_t count = 0;                       // an array's elements
    PointerSpace space = PointerSpace::Generic;    // a pointer's target space
};

enum class BaseType { Void, Bool, Char, Short, Int, Long, Float, Sbit, BitField, Struct };

struct TypeChain {
    std::uint32_t size = 0;  // bytes of the whole type
    std::vector<Declarator> declarators;
    BaseType base = BaseType::Void;
    bool isSigned = false;
    std::string structName;           // BaseType::Struct
    std::uint32_t bitStart = 0;       // BaseType::BitField: first bit and width
    std::uint32_t bitWidth = 0;
    std::uint32_t baseBytes = 0;      // the specifier's own bytes where the chain shows them

    bool IsFunction() const { return !declarators.empty() && declarators.front().kind == Declarator::Function; }
};

// Parses "({size}items:sign)" at the start of text; on success `used` is
// the characters it took. Anything malformed gives nullopt.
std::optional<TypeChain> ParseTypeChain(std::string_view text, std::size_t* used = nullptr);
