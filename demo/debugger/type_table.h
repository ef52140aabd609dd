// The types of a program: scalars, pointers, arrays, structures and unions,
// each named by an id. The id of a structure, union or array is the typeRef
// its watch records carry, so a record sent back names its type again.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <deque>
#include <vector>

using TypeId = std::uint32_t;
constexpr TypeId kNoType = 0;

struct TypeMember {
    std::string name;
    TypeId type = kNoType;
    std::uint32_t offset = 0;
};

struct TypeInfo {
    std::uint32_t code = 0;           // a WatchType
    std::uint32_t size = 0;           // bytes; a bit counts as one
    TypeId target = kNoType;          // an array's element, a pointer's pointee
    std::uint32_t targetSpace = 0;    // the space a typed pointer points into
    std::uint32_t count = 0;          // an array's elements
    std::vector<TypeMember> members;  // a structure's or union's, in order
};

class TypeTable {
public:
    // Holds the scalar types from the start.
    TypeTable();

    // A scalar type by its code; kNoType for a code that is no scalar.
    TypeId Scalar(std::uint32_t code) const;
    // The pointer to target in space (WS_NONE: a generic pointer), added once.
    TypeId Pointer(TypeId target, std::uint32_t space);
    TypeId Array(TypeId element, std::uint32_t count);
    // A structure or union (WT_STRUCT, WT_UNION) of named fields, laid out
    // without padding as an 8051 compiler does.
    TypeId Record(std::uint32_t code, const std::vector<std::pair<std::string, TypeId>>& fields);
    // A structure or union as a compiler's debug information lays it out:
    // its size given, its members (with their offsets) set afterwards, so a
    // structure can point to its own kind. SetMembers ignores other ids.
    TypeId LaidOutRecord(std::uint32_t code, std::uint32_t size);
    void SetMembers(TypeId record, std::vector<TypeMember> members);

    // Null for kNoType and for an id this table never gave.
    const TypeInfo* Find(TypeId id) const;

private:
    TypeId Add(TypeInfo info);

    std::deque<TypeInfo> m_types;  // grows while evaluating; references stay valid
};
