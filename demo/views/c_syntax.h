// Colouring of C source, one line at a time: the only state carried from a
// line to the next is whether it ends inside a block comment.
#pragma once

#include <string_view>
#include <vector>

enum class SyntaxKind { Plain, Keyword, Comment, String, Number, Preprocessor };

// A run of bytes of one kind; runs cover the line in order.
struct SyntaxRun {
    size_t start = 0;
    size_t length = 0;
    SyntaxKind kind = SyntaxKind::Plain;
};

// The runs of one line. inComment says whether the line starts inside a
// block comment and is left saying whether it ends inside one.
std::vector<SyntaxRun> ColourLine(std::string_view line, bool& inComment);
