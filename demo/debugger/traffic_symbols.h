// The symbols of the sample traffic-light program, as its compiler's debug
// information would give them.
#pragma once

#include "demo/debugger/symbol_table.h"

namespace Traffic {

SymbolTable Symbols();

}  // namespace Traffic
