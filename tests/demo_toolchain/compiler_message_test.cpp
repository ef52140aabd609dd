// Lines SDCC 4.2 and its linker printed, taken apart.
#include <gtest/gtest.h>

#include "demo/toolchain/compiler_message.h"

namespace {

struct Case {
    const char* line;
    MessageKind kind;
    Severity severity;
    const char* file;
    int line_number;
    int column;
    const char* text;
};

TEST(CompilerMessage, RealLinesAreTakenApart)
{
    const Case cases[] = {
        {"/work/s/lights.c:56: error 20: Undefined identifier 'stat'", MessageKind::Diagnostic, Severity::Error,
         "/work/s/lights.c", 56, 0, "error 20: Undefined identifier 'stat'"},
        {"w.c:2: warning 158: overflow in implicit constant conversion", MessageKind::Diagnostic, Severity::Warning, "w.c", 2,
         0, "warning 158: overflow in implicit constant conversion"},
        {"bad.c:11: syntax error: token -> ';' ; column 12", MessageKind::Diagnostic, Severity::Error, "bad.c", 11, 0,
         "syntax error: token -> ';' ; column 12"},
        {"bad2.c:1: error 1: Syntax error, declaration ignored at 'x'", MessageKind::Diagnostic, Severity::Error, "bad2.c", 1,
         0, "error 1: Syntax error, declaration ignored at 'x'"},
        {"inc.c:1:21: fatal error: nothere.h: No such file or directory", MessageKind::Diagnostic, Severity::Error, "inc.c",
         1, 21, "fatal error: nothere.h: No such file or directory"},
        // SDCC pads some messages with blanks; they are dropped.
        {"x.c:61: error 47: indirections to different types assignment   ", MessageKind::Diagnostic, Severity::Error, "x.c",
         61, 0, "error 47: indirections to different types assignment"},
        {"C:\\8051\\main.c:7: warning 85: in function main unreferenced local variable : 'unused'", MessageKind::Diagnostic,
         Severity::Warning, "C:\\8051\\main.c", 7, 0, "warning 85: in function main unreferenced local variable : 'unused'"},
        {"?ASlink-Warning-Undefined Global '_undefined_fn' referenced by module 'u'", MessageKind::Linker, Severity::Warning,
         "", 0, 0, "?ASlink-Warning-Undefined Global '_undefined_fn' referenced by module 'u'"},
        {"?ASlink-Error-Could not get 3 consecutive bytes in internal RAM for area DSEG.", MessageKind::Linker,
         Severity::Error, "", 0, 0, "?ASlink-Error-Could not get 3 consecutive bytes in internal RAM for area DSEG."},
        // The lines that continue a diagnostic, and other chatter.
        {"from type 'volatile-struct light xdata'", MessageKind::Other, Severity::None, "", 0, 0,
         "from type 'volatile-struct light xdata'"},
        {"  to type 'volatile-struct light xdata* data'", MessageKind::Other, Severity::None, "", 0, 0,
         "  to type 'volatile-struct light xdata* data'"},
        {"compilation terminated.", MessageKind::Other, Severity::None, "", 0, 0, "compilation terminated."},
        // Almost a location: a number not followed by a colon, a colon with no text after it.
        {"time 12:30 done", MessageKind::Other, Severity::None, "", 0, 0, "time 12:30 done"},
        {"a.c:12:", MessageKind::Other, Severity::None, "", 0, 0, "a.c:12:"},
        {"a.c:99999999999: error 1: x", MessageKind::Other, Severity::None, "", 0, 0, "a.c:99999999999: error 1: x"},
        {"", MessageKind::Other, Severity::None, "", 0, 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const CompilerMessage message = ParseCompilerLine(c.line);
        EXPECT_EQ(message.kind, c.kind);
        EXPECT_EQ(message.severity, c.severity);
        EXPECT_EQ(message.file, c.file);
        EXPECT_EQ(message.line, c.line_number);
        EXPECT_EQ(message.column, c.column);
        EXPECT_EQ(message.text, c.text);
    }
}

}  // namespace
