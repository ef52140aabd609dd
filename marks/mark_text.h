// The node text of a mark: "(文件:<file relative to the project>, 行:<line>)",
// padded with spaces to kMarkPositionWidth bytes, then the mark's own text.
// The marks of one file share everything up to the line number, so that part
// is made once per file, and every text is made in one reused buffer.
#pragma once

#include <string>
#include <string_view>

#include "platform/core/win_types.h"

// Position texts shorter than this many bytes are padded with spaces, so that
// the marks' texts line up in a fixed-pitch font.
constexpr int kMarkPositionWidth = 25;

class AFX_EXT_CLASS CMarkTextMaker {
public:
    // Starts the marks of a file (a full path) under the project directory.
    void BeginFile(const char* file, const char* baseDirectory);
    // The text of a mark of that file, zero-terminated; valid until the next call.
    const std::string& Text(int line, std::string_view markText);

private:
    std::string m_prefix;  // "(文件:<relative file>, 行:"
    std::string m_text;
};
