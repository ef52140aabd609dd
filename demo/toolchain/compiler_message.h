// One line of what SDCC and its linker print, taken apart: where a
// diagnostic points and how severe it is. Forms seen from SDCC 4.2:
//   main.c:8: error 20: Undefined identifier 'foo'
//   w.c:2: warning 158: overflow in implicit constant conversion
//   bad.c:11: syntax error: token -> ';' ; column 12
//   inc.c:1:21: fatal error: nothere.h: No such file or directory   (preprocessor)
//   ?ASlink-Warning-Undefined Global '_f' referenced by module 'u'
// Anything else (a diagnostic's "from type ..." lines, say) is Other.
#pragma once

#include <string>
#include <string_view>

enum class MessageKind { Diagnostic, Linker, Other };
enum class Severity { None, Warning, Error };

struct CompilerMessage {
    MessageKind kind = MessageKind::Other;
    Severity severity = Severity::None;
    std::string file;  // as the compiler wrote the path
    int line = 0;
    int column = 0;    // the preprocessor's; 0 when not given
    std::string text;  // after the location: "warning 158: overflow ..."
};

CompilerMessage ParseCompilerLine(std::string_view line);
