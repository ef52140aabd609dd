// C number constants as a 16-bit-int compiler reads them: decimal, octal and
// hexadecimal integers with u and l suffixes, and decimal floating constants.
#pragma once

#include <cstddef>
#include <string_view>

#include "demo/debugger/expression_lexer.h"

// Bytes of the number that starts text (a digit): digits, letters, '_', '.'
// and a sign right after a decimal exponent's 'e'.
std::size_t NumberLength(std::string_view text);
// The constant a number's spelling denotes; throws EvaluationError
// (WERR_EXPRESSION_FORMAT for a bad spelling, WERR_NUMERIC_TYPE above 32 bits).
Token ReadNumber(std::string_view spelling);
