// Parses an expression's text into a tree, by C's precedence: postfix
// ([] . ->), unary (- + ~ * &), then * / %, + -, << >>, &, ^, |.
#pragma once

#include <memory>
#include <string_view>

#include "demo/debugger/expression_node.h"

// Throws EvaluationError: the lexer's errors first, then WERR_MISSING_OPEN
// for a ")" or "]" that closes nothing open (or closes the other kind),
// WERR_MISSING_CLOSE for a "(" or "[" left open, WERR_WRONG_EXPRESSION for a
// string, which has no value here, and WERR_EXPRESSION_FORMAT for any other
// text that is no expression (empty, "a +", "1 2", nested too deep).
std::unique_ptr<ExpressionNode> ParseExpression(std::string_view text);
