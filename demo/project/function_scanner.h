// The function definitions of a C source file, found by a brace-depth scan
// (not a C parser) for the function list: enough for SDCC sources, with
// their storage and interrupt attributes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct ScannedFunction {
    std::string type;    // what precedes the name ("static unsigned char *"), whitespace collapsed
    std::string name;
    std::string params;  // "(" through ")" and any attributes after it, whitespace collapsed
    int line = 0;        // 1-based line of the name
};

// Definitions at file level in order of appearance; prototypes, calls and
// text inside comments, strings, preprocessor lines or bodies are skipped.
std::vector<ScannedFunction> ScanFunctions(std::string_view cSource);
