// The type names a cast may spell: C's basic types, SDCC's bit, 8051 memory
// qualifiers for the space a pointer points into (xdata or __xdata, code,
// data, idata, pdata) and the stars that make pointers.
#pragma once

#include <cstddef>
#include <vector>

#include "demo/debugger/expression_lexer.h"
#include "demo/debugger/expression_node.h"

// Whether a "(" before tokens[at] opens a cast: a basic type's keyword,
// signed, unsigned, const, volatile, struct, union, enum, or a memory
// qualifier spelled with its underscores. A plain qualifier (xdata, code,
// data, ...) opens one only before such a word: a program may have
// variables of those names.
bool StartsTypeName(const std::vector<Token>& tokens, std::size_t at);

// Reads a type name from tokens[next] up to the ")" that ends it, which it
// leaves. A qualifier without a star is taken and means nothing: a value
// lives in no space. Throws EvaluationError: WERR_EXPRESSION_FORMAT for words that make
// no type ("struct" without a tag, "unsigned float", "long char", two memory
// qualifiers, a qualifier alone, more than a few stars), WERR_NUMERIC_TYPE
// for a type a watch value cannot have (a structure, union or enumeration,
// long long, void), WERR_NO_SPACE for a special function register's
// qualifier (sfr, __sfr, sbit, ...): no pointer can locate that space.
CastType ReadTypeName(const std::vector<Token>& tokens, std::size_t& next);
