// Casts of values to the basic types and to pointers, as an 8051 C compiler
// converts them: numbers as C's conversions do, a pointer to a number as the
// unsigned number of its bytes, a number to a pointer as its address bits,
// and a space's pointer to a generic one with that space's tag.
#pragma once

#include "demo/debugger/evaluated.h"

class TypeTable;

// The value (no object; arrays already decayed) as a value of type.
// Throws EvaluationError WERR_NUMERIC_TYPE for a structure, union or array
// on either side and for a float to or from a pointer, which C refuses.
Evaluated CastValue(const Evaluated& value, TypeId type, const TypeTable& types);
