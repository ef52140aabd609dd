// The function scan over C snippets of the kinds an SDCC project holds.
#include <gtest/gtest.h>

#include "demo/project/function_items.h"
#include "demo/project/function_scanner.h"

namespace {

struct Expected {
    std::string type, name, params;
    int line;
};

struct Case {
    const char* title;
    const char* source;
    std::vector<Expected> functions;
};

void PrintTo(const Case& c, std::ostream* os) { *os << c.title; }

class ScanFunctionsTable : public ::testing::TestWithParam<Case> {};

TEST_P(ScanFunctionsTable, FindsTheDefinitionsAndNothingElse)
{
    const Case& c = GetParam();
    const std::vector<ScannedFunction> found = ScanFunctions(c.source);
    ASSERT_EQ(found.size(), c.functions.size());
    for (size_t i = 0; i < found.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(found[i].type, c.functions[i].type);
        EXPECT_EQ(found[i].name, c.functions[i].name);
        EXPECT_EQ(found[i].params, c.functions[i].params);
        EXPECT_EQ(found[i].line, c.functions[i].line);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Snippets, ScanFunctionsTable,
    ::testing::Values(
        Case{"prototype then definition", "void f(void);\nvoid f(void)\n{\n}\n", {{"void", "f", "(void)", 2}}},
        Case{"calls inside a body are not definitions",
             "int main(void) {\n  g(1);\n  if (x) { h(); }\n  return 0;\n}\n", {{"int", "main", "(void)", 1}}},
        Case{"interrupt and register bank attributes",
             "void timer0_isr(void) __interrupt(1) __using(1)\n{\n  ticks++;\n}\n",
             {{"void", "timer0_isr", "(void) __interrupt(1) __using(1)", 1}}},
        Case{"old attribute spelling and reentrant",
             "int fact(int n) reentrant { return n; }\nvoid isr(void) interrupt 2 { }\n",
             {{"int", "fact", "(int n) reentrant", 1}, {"void", "isr", "(void) interrupt 2", 2}}},
        Case{"braces and parentheses inside comments",
             "/* void fake(void) { */\n// int other(int a) {\nvoid real(void) { }\n", {{"void", "real", "(void)", 3}}},
        Case{"braces inside strings and characters",
             "char *s = \"{ not(void) {\";\nchar c = '{';\nvoid after(void) { puts(\"}\"); }\nvoid last(void) {}\n",
             {{"void", "after", "(void)", 3}, {"void", "last", "(void)", 4}}},
        Case{"parameters over several lines, whitespace collapsed",
             "static unsigned char\nmix(unsigned char a,\n    unsigned char  b)\n{\n}\n",
             {{"static unsigned char", "mix", "(unsigned char a, unsigned char b)", 2}}},
        Case{"pointer return types", "__xdata char *buffer_at(int i) { return 0; }\nconst char* name(void) {}\n",
             {{"__xdata char *", "buffer_at", "(int i)", 1}, {"const char*", "name", "(void)", 2}}},
        Case{"preprocessor lines with parentheses",
             "#define MAX(a, b) ((a) > (b) ? (a) : (b))\n#if defined(X)\nvoid x(void) {}\n#endif\n", {{"void", "x", "(void)", 3}}},
        Case{"structures, initialisers and function pointers",
             "struct point { int x; int (*get)(void); } origin;\nint table[] = { f(1), 2 };\nvoid (*handler)(void);\n"
             "struct point *make(void) { }\n",
             {{"struct point *", "make", "(void)", 4}}},
        Case{"SFR declarations with an address", "__sfr __at (0x80) P0;\n__sbit __at (0x90) LED;\nvoid main(void) {}\n",
             {{"void", "main", "(void)", 3}}},
        Case{"a macro used without a semicolon", "DECLARE_TABLE(x)\nvoid go(void) {}\n", {{"void", "go", "(void)", 2}}},
        Case{"CRLF line ends", "void a(void)\r\n{\r\n}\r\nint b(int v)\r\n{\r\n}\r\n", {{"void", "a", "(void)", 1}, {"int", "b", "(int v)", 4}}},
        Case{"an unclosed body or comment ends the scan", "void open(void) {\n  if (x) {\n", {{"void", "open", "(void)", 1}}},
        Case{"an unclosed comment hides the rest", "/* void f(void) {}\n", {}}));

TEST(ScanFunctions, ToleratesTruncatedText)
{
    // Cut at every length: no crash, and never a function from a truncated prototype.
    const std::string source = "void a(int x) __interrupt(1) { \"}\" }\nchar 'x';\n/* c */ int b(void);\n";
    for (size_t n = 0; n <= source.size(); ++n) {
        for (const ScannedFunction& f : ScanFunctions(std::string_view(source).substr(0, n))) EXPECT_EQ(f.name, "a");
    }
}

TEST(FuncSeekItems, AreOrderedByFoldedFirstLetterKeepingFileOrder)
{
    const std::vector<ScannedFunction> scanned = {
        {"void", "beta", "(void)", 3}, {"int", "Alpha", "(int a)", 9}, {"void", "apple", "(void)", 12}, {"void", "_x", "()", 1}};
    CFuncSeekItems items;
    FillFuncSeekItems(scanned, items);
    ASSERT_EQ(items.GetSize(), 4);
    const char* names[] = {"Alpha", "apple", "beta", "_x"};
    for (int i = 0; i < 4; ++i) EXPECT_STREQ(static_cast<const char*>(items.ItemAt(i)->name), names[i]);
    EXPECT_STREQ(static_cast<const char*>(items.ItemAt(0)->typeText), "int");
    EXPECT_STREQ(static_cast<const char*>(items.ItemAt(0)->paramText), "(int a)");
    EXPECT_EQ(items.ItemAt(0)->line, 9);

    FillFuncSeekItems({}, items);
    EXPECT_EQ(items.GetSize(), 0);
}

}  // namespace
