// Evaluates a parsed expression over a program's symbols and a target's
// memory, as C would: names are objects, arrays decay to pointers to their
// first element, arithmetic reads the objects' values, comparisons and
// logical operators give the int 0 or 1, casts convert values.
#pragma once

#include <cstdint>
#include <string>

#include "demo/debugger/evaluated.h"
#include "demo/debugger/expression_node.h"

class DebugTarget;
class SymbolTable;
class TypeTable;
struct TypeInfo;

class ExpressionEvaluator {
public:
    // Pointer types that & makes are added to the symbols' type table.
    ExpressionEvaluator(SymbolTable& symbols, DebugTarget& target);

    // Throws EvaluationError: WERR_UNDEFINED for an unknown name or member,
    // WERR_NUMERIC_TYPE for an operator its operand's type does not take,
    // WERR_READ_FAILED for a value that cannot be read or an index outside
    // its array, WERR_INVALID_POINTER for a null pointer or one naming no
    // space, WERR_NOT_BIT_ADDRESSABLE for the address of a bit,
    // WERR_WRONG_EXPRESSION for the address of a value, and the arithmetic's.
    // Structures and unions have no value to compare, test or cast
    // (WERR_NUMERIC_TYPE), nor have floats compared with pointers.
    Evaluated Evaluate(const ExpressionNode& node);

private:
    Evaluated Name(const std::string& name) const;
    Evaluated Unary(const ExpressionNode& node);
    Evaluated Binary(const ExpressionNode& node);
    Evaluated Logical(const ExpressionNode& node);
    bool IsTrue(const Evaluated& value) const;
    // The type a cast names, its pointer types added to the table.
    TypeId CastTarget(const CastType& cast);
    Evaluated Index(const ExpressionNode& node);
    Evaluated Member(const Evaluated& object, const std::string& name) const;

    // An object's value read from the target; an array's is a pointer to its
    // first element; a computed value as it is.
    Evaluated ValueOf(const Evaluated& what);
    Evaluated AddressOf(const Evaluated& object);
    Evaluated PointerTo(TypeId type, std::uint32_t space, std::uint32_t address);
    Evaluated Dereference(const Evaluated& pointer) const;
    // The pointer moved by a number of its pointee's size.
    Evaluated Offset(const Evaluated& pointer, std::int64_t elements) const;
    const TypeInfo& TypeOf(const Evaluated& what) const;

    SymbolTable& m_symbols;
    TypeTable& m_types;
    DebugTarget& m_target;
};
