// The type names a cast may spell: C's basic types, SDCC's bit, 8051 memory
// qualifiers for the space a pointer points into (xdata or __xdata, code,
// data, idata, pdata) and the stars that make pointers.
#pragma once

#include <cstddef>
#include <vector>

#include "demo/debugger/expression_lexer.h"
#include "demo/debugger/expression_node.h"

// Whether "(" followed by this token opens a cast: a basic type's keyword,
// signed, unsigned, const, volatile, struct, union, enum, or a memory
// qualifier spelled with its underscores. The plain qualifiers (xdata, code,
// data, ...) are taken after one of these but open nothing: a program may
// have variables of those names.
bool StartsTypeName(const Token& token);

// Reads a type name from tokens[next] up to the ")" that ends it, which it
// leaves. A qualifier without a star is taken and means nothing: a value
// lives in no space. Throws EvaluationError: WERR_EXPRESSION_FORMAT for words that make
// no type ("struct" without a tag, "unsigned float", "long char", two memory
// qualifiers, a qualifier alone, more than a few stars), WERR_NUMERIC_TYPE
// for a type a watch value cannot have (a structure, union or enumeration,
// long long, void).
CastType ReadTypeName(const std::vector<Token>& tokens, std::size_t& next);
