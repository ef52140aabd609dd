// The clipboard's CF_TEXT as a test puts and reads it, with the raw calls
// another program would make rather than the helpers under test.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/ole/clipboard.h"

namespace test_clipboard {

// Closes and empties the clipboard, whatever a test left there.
inline void CleanClipboard()
{
    while (CloseClipboard()) {
    }
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
}

// The clipboard's CF_TEXT, "<none>" without any, "<closed>" when another
// window has it open.
inline std::string ClipboardText()
{
    std::string text = "<none>";
    if (!OpenClipboard(nullptr)) return "<closed>";
    if (HGLOBAL mem = GetClipboardData(CF_TEXT)) {
        const auto* bytes = static_cast<const char*>(GlobalLock(mem));
        const size_t size = GlobalSize(mem);
        // CF_TEXT ends in its zero byte, and nothing follows it.
        text = bytes && size > 0 && bytes[size - 1] == '\0' ? std::string(bytes, size - 1) : "<unterminated>";
        GlobalUnlock(mem);
    }
    CloseClipboard();
    return text;
}

// Replaces the clipboard's contents with text; data needs an owner window.
inline void PutClipboardText(HWND owner, const std::string& text)
{
    ASSERT_TRUE(OpenClipboard(owner));
    ASSERT_TRUE(EmptyClipboard());
    HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    ASSERT_NE(mem, nullptr);
    std::memcpy(GlobalLock(mem), text.c_str(), text.size() + 1);
    GlobalUnlock(mem);
    EXPECT_NE(SetClipboardData(CF_TEXT, mem), nullptr);
    CloseClipboard();
}

}  // namespace test_clipboard
