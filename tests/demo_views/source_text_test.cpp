// Loading a file's text for the source view, and colouring its lines.
#include <gtest/gtest.h>

#include "demo/views/c_syntax.h"
#include "demo/views/source_text.h"

namespace {

TEST(SourceText, SplitsLinesAtEitherLineEndAndExpandsTabs)
{
    const SourceText text("a\tb\r\n\tx\n12345\tz\nend");
    ASSERT_EQ(text.LineCount(), 4);
    EXPECT_EQ(text.Line(0), "a   b");
    EXPECT_EQ(text.Line(1), "    x");
    EXPECT_EQ(text.Line(2), "12345   z");
    EXPECT_EQ(text.Line(3), "end");
    EXPECT_EQ(text.MaxColumns(), 9);
    EXPECT_EQ(text.Line(4), "");
    EXPECT_EQ(text.Line(-1), "");
}

TEST(SourceText, CountsLinesAsAnEditorDoes)
{
    EXPECT_EQ(SourceText("").LineCount(), 1);
    EXPECT_EQ(SourceText("a\n").LineCount(), 1);
    EXPECT_EQ(SourceText("a\n\n").LineCount(), 2);
    EXPECT_EQ(SourceText("\r\n\r\n").Line(1), "");
    // A double-byte character is two columns wide, and tab stops count it so.
    const SourceText wide("\xD6\xD0\t|");
    EXPECT_EQ(wide.Line(0), "\xD6\xD0  |");
    EXPECT_EQ(wide.MaxColumns(), 5);
}

std::string Kinds(std::string_view line, bool& inComment)
{
    // One letter per byte: p(lain) k(eyword) c(omment) s(tring) n(umber) d(irective).
    std::string out(line.size(), '?');
    for (const SyntaxRun& run : ColourLine(line, inComment)) out.replace(run.start, run.length, std::string(run.length, "pkcsnd"[static_cast<int>(run.kind)]));
    return out;
}

TEST(ColourLine, CoversTheLineAndCarriesBlockComments)
{
    bool inComment = false;
    EXPECT_EQ(Kinds("int x = 10; // n", inComment), "kkkpppppnnppcccc");
    EXPECT_FALSE(inComment);
    EXPECT_EQ(Kinds("s = \"/*\"; /* open", inComment), "ppppssssppccccccc");
    EXPECT_TRUE(inComment);
    EXPECT_EQ(Kinds("still */ if", inComment), "ccccccccpkk");
    EXPECT_FALSE(inComment);
    EXPECT_EQ(Kinds("  #include <x.h>", inComment), "ppdddddddddppppp");
    EXPECT_EQ(Kinds("c = '\\''; x", inComment), "ppppssssppp");
    // A second byte that looks like a backslash escapes nothing.
    EXPECT_EQ(Kinds("\"\x81\\\" x", inComment), "sssspp");
}

}  // namespace
