#include "demo/debugger/expression_evaluator.h"

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/generic_pointer.h"
#include "demo/debugger/number_arithmetic.h"
#include "demo/debugger/object_value.h"
#include "demo/debugger/symbol_table.h"
#include "demo/debugger/type_codes.h"
#include "demo/debugger/value_cast.h"

namespace {

Evaluated Computed(TypeId type, std::uint32_t bits)
{
    return {type, WS_NUMBER, 0, bits};
}

// What a comparison with a pointer compares, as unsigned long. Two pointers
// compare by where they point: a space's pointer as the generic pointer to
// the same place, so pointers into different spaces never meet. A pointer
// meets a whole number by the bits it holds, as its value shows.
std::uint32_t ComparisonKey(const Evaluated& value, const TypeInfo& type, bool otherIsPointer)
{
    if (type.code == WT_POINTER && otherIsPointer) return EncodeGenericPointer(type.targetSpace, value.bits);
    if (IsPointerCode(type.code)) return value.bits;
    if (!IsIntegral(type.code)) Fail(WERR_NUMERIC_TYPE);
    return static_cast<std::uint32_t>(IntegerOf({type.code, value.bits}));
}

}  // namespace

ExpressionEvaluator::ExpressionEvaluator(SymbolTable& symbols, DebugTarget& target)
    : m_symbols(symbols), m_types(symbols.Types()), m_target(target)
{
}

Evaluated ExpressionEvaluator::Evaluate(const ExpressionNode& node)
{
    switch (node.kind) {
    case ExpressionNode::Kind::Name:
        return Name(node.text);
    case ExpressionNode::Kind::Number:
        return Computed(m_types.Scalar(node.type), node.bits);
    case ExpressionNode::Kind::Unary:
        return Unary(node);
    case ExpressionNode::Kind::Binary:
        return Binary(node);
    case ExpressionNode::Kind::Index:
        return Index(node);
    case ExpressionNode::Kind::Member:
        return Member(Evaluate(*node.left), node.text);
    case ExpressionNode::Kind::Arrow:
        return Member(Dereference(ValueOf(Evaluate(*node.left))), node.text);
    case ExpressionNode::Kind::Cast:
        return CastValue(ValueOf(Evaluate(*node.left)), CastTarget(node.cast), m_types);
    }
    Fail(WERR_EXPRESSION_FORMAT);
}

Evaluated ExpressionEvaluator::Name(const std::string& name) const
{
    const Symbol* symbol = m_symbols.Find(name);
    if (!symbol) Fail(WERR_UNDEFINED);
    return {symbol->type, symbol->space, symbol->address, 0};
}

Evaluated ExpressionEvaluator::Unary(const ExpressionNode& node)
{
    const Evaluated operand = Evaluate(*node.left);
    if (node.text == "&") return AddressOf(operand);
    const Evaluated value = ValueOf(operand);
    if (node.text == "*") return Dereference(value);
    if (node.text == "!") return Computed(m_types.Scalar(WT_INT), IsTrue(value) ? 0 : 1);
    const TypeInfo& type = TypeOf(value);
    if (IsPointerCode(type.code)) Fail(WERR_NUMERIC_TYPE);
    const Number result = ApplyUnary(node.text, {type.code, value.bits});
    return Computed(m_types.Scalar(result.type), result.bits);
}

Evaluated ExpressionEvaluator::Binary(const ExpressionNode& node)
{
    if (node.text == "&&" || node.text == "||") return Logical(node);
    const Evaluated left = ValueOf(Evaluate(*node.left));
    const Evaluated right = ValueOf(Evaluate(*node.right));
    const TypeInfo& leftType = TypeOf(left);
    const TypeInfo& rightType = TypeOf(right);
    const bool leftPointer = IsPointerCode(leftType.code);
    const bool rightPointer = IsPointerCode(rightType.code);
    if (IsComparison(node.text) && (leftPointer || rightPointer)) {
        const Number result = ApplyBinary(node.text, {WT_ULONG, ComparisonKey(left, leftType, rightPointer)},
                                          {WT_ULONG, ComparisonKey(right, rightType, leftPointer)});
        return Computed(m_types.Scalar(result.type), result.bits);
    }
    if (!leftPointer && !rightPointer) {
        const Number result = ApplyBinary(node.text, {leftType.code, left.bits}, {rightType.code, right.bits});
        return Computed(m_types.Scalar(result.type), result.bits);
    }
    // Pointer arithmetic: a pointer plus or minus a whole number of its pointees.
    const TypeInfo& offsetType = leftPointer ? rightType : leftType;
    const bool takes = node.text == "+" ? leftPointer != rightPointer : node.text == "-" && !rightPointer;
    if (!takes || !IsIntegral(offsetType.code)) Fail(WERR_NUMERIC_TYPE);
    const std::int64_t offset = IntegerOf({offsetType.code, leftPointer ? right.bits : left.bits});
    return Offset(leftPointer ? left : right, node.text == "-" ? -offset : offset);
}

Evaluated ExpressionEvaluator::Logical(const ExpressionNode& node)
{
    // The right operand is evaluated only when C would: "fault && fault->state"
    // is 0, not an invalid pointer.
    const bool left = IsTrue(ValueOf(Evaluate(*node.left)));
    const bool decided = node.text == "&&" ? !left : left;
    const bool result = decided ? left : IsTrue(ValueOf(Evaluate(*node.right)));
    return Computed(m_types.Scalar(WT_INT), result ? 1 : 0);
}

bool ExpressionEvaluator::IsTrue(const Evaluated& value) const
{
    const TypeInfo& type = TypeOf(value);
    if (IsPointerCode(type.code)) return value.bits != 0;
    if (IsAggregateCode(type.code)) Fail(WERR_NUMERIC_TYPE);
    return IsNonZero({type.code, value.bits});
}

TypeId ExpressionEvaluator::CastTarget(const CastType& cast)
{
    TypeId type = m_types.Scalar(cast.code);
    for (std::uint32_t level = 0; level < cast.pointers; ++level) {
        type = m_types.Pointer(type, level == 0 ? cast.space : WS_NONE);
    }
    return type;
}

Evaluated ExpressionEvaluator::Index(const ExpressionNode& node)
{
    const Evaluated base = Evaluate(*node.left);
    const Evaluated index = ValueOf(Evaluate(*node.right));
    const TypeInfo& indexType = TypeOf(index);
    if (!IsIntegral(indexType.code)) Fail(WERR_NUMERIC_TYPE);
    const std::int64_t i = IntegerOf({indexType.code, index.bits});
    const TypeInfo& type = TypeOf(base);
    if (type.code != WT_ARRAY) return Dereference(Offset(ValueOf(base), i));
    // A declared array knows its bounds; what lies past them is no element.
    if (i < 0 || i >= type.count) Fail(WERR_READ_FAILED);
    const std::uint32_t size = TypeOf({type.target}).size;
    return {type.target, base.space, base.address + static_cast<std::uint32_t>(i) * size, 0};
}

Evaluated ExpressionEvaluator::Member(const Evaluated& object, const std::string& name) const
{
    const TypeInfo& type = TypeOf(object);
    if (type.code != WT_STRUCT && type.code != WT_UNION) Fail(WERR_NUMERIC_TYPE);
    for (const TypeMember& member : type.members) {
        if (member.name == name) return {member.type, object.space, object.address + member.offset, 0};
    }
    Fail(WERR_UNDEFINED);
}

Evaluated ExpressionEvaluator::ValueOf(const Evaluated& what)
{
    if (!what.IsObject()) return what;
    const TypeInfo& type = TypeOf(what);
    if (type.code == WT_ARRAY) return PointerTo(type.target, what.space, what.address);
    if (IsAggregateCode(type.code)) Fail(WERR_NUMERIC_TYPE);
    const std::optional<std::uint32_t> value = ReadValue(m_target, what.space, what.address, type.size);
    if (!value) Fail(WERR_READ_FAILED);
    return Computed(what.type, *value);
}

Evaluated ExpressionEvaluator::AddressOf(const Evaluated& object)
{
    if (!object.IsObject()) Fail(WERR_WRONG_EXPRESSION);
    if (object.space == WS_BIT) Fail(WERR_NOT_BIT_ADDRESSABLE);
    return PointerTo(object.type, object.space, object.address);
}

Evaluated ExpressionEvaluator::PointerTo(TypeId type, std::uint32_t space, std::uint32_t address)
{
    const TypeId pointer = m_types.Pointer(type, space);
    const TypeInfo& info = TypeOf({pointer});
    const std::uint32_t bits = info.code == WT_GENERAL_POINTER ? EncodeGenericPointer(space, address)
                               : info.size == 1                ? address & 0xFF
                                                               : address & 0xFFFF;
    return Computed(pointer, bits);
}

Evaluated ExpressionEvaluator::Dereference(const Evaluated& pointer) const
{
    const TypeInfo& type = TypeOf(pointer);
    if (!IsPointerCode(type.code)) Fail(WERR_NUMERIC_TYPE);
    std::optional<PointerTarget> where = PointerTarget{type.targetSpace, pointer.bits};
    if (type.code == WT_GENERAL_POINTER) where = DecodeGenericPointer(pointer.bits);
    if (!where || where->address == 0) Fail(WERR_INVALID_POINTER);
    return {type.target, where->space, where->address, 0};
}

Evaluated ExpressionEvaluator::Offset(const Evaluated& pointer, std::int64_t elements) const
{
    const TypeInfo& type = TypeOf(pointer);
    if (!IsPointerCode(type.code)) Fail(WERR_NUMERIC_TYPE);
    const TypeInfo* pointee = m_types.Find(type.target);
    const std::int64_t step = pointee && pointee->size ? pointee->size : 1;
    // The address wraps within the pointer's own bytes; a generic pointer keeps its space.
    const std::uint32_t mask = type.size == 1 ? 0xFF : 0xFFFF;
    const auto moved = static_cast<std::uint32_t>(pointer.bits + static_cast<std::uint64_t>(elements * step));
    return Computed(pointer.type, (pointer.bits & ~mask) | (moved & mask));
}

const TypeInfo& ExpressionEvaluator::TypeOf(const Evaluated& what) const
{
    const TypeInfo* type = m_types.Find(what.type);
    if (!type) Fail(WERR_NUMERIC_TYPE);
    return *type;
}
