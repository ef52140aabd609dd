// What SDCC's debug information (.cdb) says of a linked program: its
// symbols with their types and addresses, its structures, its functions and
// the map between source lines and code addresses.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "demo/toolchain/line_map.h"
#include "demo/toolchain/type_chain.h"

// Where a symbol lives, by the letter the compiler writes for it.
enum class AddressSpace : char {
    ExternalStack = 'A',
    InternalStack = 'B',
    Code = 'C',
    CodeStatic = 'D',  // constants and initialised data in code memory
    Data = 'E',        // internal RAM, directly addressed
    Xdata = 'F',
    Idata = 'G',
    Bit = 'H',
    Sfr = 'I',
    Sbit = 'J',
    Pdata = 'P',
    Register = 'R',
    Undefined = 'Z',
};

enum class SymbolScope { Global, File, Local };

struct DebugSymbol {
    std::string name;
    SymbolScope scope = SymbolScope::Global;
    std::string module;    // the module declaring it (for a global, the first to)
    std::string function;  // the function of a local
    int level = 0;         // nesting of the block that declares it; 0 at file level
    int block = 0;
    TypeChain type;
    AddressSpace space = AddressSpace::Undefined;
    std::vector<std::string> registers;  // where a register-allocated local lives
    std::optional<std::uint32_t> address;  // from the linker's records
};

struct StructMember {
    std::string name;
    std::uint32_t offset = 0;
    TypeChain type;
};

struct StructType {
    std::string module;
    std::string name;
    std::vector<StructMember> members;
    // The records do not say struct or union: members that all overlap at
    // offset 0 make a union (bit fields share a byte in a structure too).
    bool IsUnion() const;
    // The bytes it covers, from its members.
    std::uint32_t Size() const;
};

struct DebugFunction {
    std::string name;
    SymbolScope scope = SymbolScope::Global;
    std::string module;
    TypeChain type;
    bool interrupt = false;
    int interruptNumber = 0;
    int registerBank = 0;
    std::string file;  // from its line records; empty without code
    int line = 0;      // its first line record's line
    std::optional<std::uint32_t> start;
    std::optional<std::uint32_t> end;  // the address of its last instruction
};

struct AsmLine {
    std::string module;
    int line = 0;
    std::uint32_t address = 0;
};

struct DebugInfo {
    std::vector<std::string> modules;
    std::vector<DebugSymbol> symbols;  // each scope's symbol once, in file order
    std::vector<StructType> structs;
    std::vector<DebugFunction> functions;
    LineMap lines;
    std::vector<AsmLine> asmLines;
    int skippedLines = 0;  // records that did not parse and were left out

    // A structure as a symbol of the module names it: the module's own first,
    // else any module's (headers declare the same structure in each).
    const StructType* FindStruct(std::string_view module, std::string_view name) const;
    // A global or, failing that, a file-level symbol by name; null when none.
    const DebugSymbol* FindVariable(std::string_view name) const;
    const DebugFunction* FindFunction(std::string_view name) const;
    // The functions whose code a source file holds, by line: a function list.
    std::vector<const DebugFunction*> FunctionsInFile(std::string_view file) const;
    // The function whose code holds the address; null outside every function.
    const DebugFunction* FunctionAt(std::uint32_t address) const;

    // Indexes structures by name and functions by address for the lookups
    // above; the parser calls it, and so must whoever edits the vectors.
    void Index();

private:
    // Indices rather than pointers, so that a copy stays right.
    std::vector<std::size_t> m_byStart;  // functions with code, by start
    std::unordered_map<std::string, std::size_t> m_structByKey;   // "module$name"
    std::unordered_map<std::string, std::size_t> m_structByName;  // the first of each name
};
