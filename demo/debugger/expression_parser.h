// Parses an expression's text into a tree, by C's precedence: postfix
// ([] . ->), unary (- + ~ ! * & and casts), then * / %, + -, << >>,
// < > <= >=, == !=, &, ^, |, &&, ||.
#pragma once

#include <memory>
#include <string_view>

#include "demo/debugger/expression_node.h"

// Throws EvaluationError: the lexer's errors first, then WERR_MISSING_OPEN
// for a ")" or "]" that closes nothing open (or closes the other kind),
// WERR_MISSING_CLOSE for a "(" or "[" left open, then WERR_WRONG_EXPRESSION
// for an assignment ("=", "+=", ...) and for a string, which has no value
// here, WERR_UNDEFINED for a cast to a name that is no type ("(byte)x"), the
// type name's errors (see type_name.h), and WERR_EXPRESSION_FORMAT for any
// other text that is no expression (empty, "a +", "1 2", a cast without an
// operand, nested too deep).
std::unique_ptr<ExpressionNode> ParseExpression(std::string_view text);
