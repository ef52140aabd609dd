// Copy, cut, paste and clear through the platform's clipboard (CF_TEXT).
#include "platform/controls/edit_control.h"

#include <cstring>
#include <string>

#include "platform/ole/clipboard.h"

namespace edit {

namespace {

bool PutText(HWND owner, std::string_view text)
{
    if (!OpenClipboard(owner)) return false;
    bool done = false;
    if (EmptyClipboard()) {
        if (HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1)) {
            if (auto* bytes = static_cast<char*>(GlobalLock(block))) {
                std::memcpy(bytes, text.data(), text.size());
                bytes[text.size()] = '\0';
                GlobalUnlock(block);
                done = SetClipboardData(CF_TEXT, block) != nullptr;
            }
            if (!done) GlobalFree(block);
        }
    }
    CloseClipboard();
    return done;
}

bool GetText(HWND owner, std::string* text)
{
    if (!OpenClipboard(owner)) return false;
    bool done = false;
    if (HGLOBAL block = GetClipboardData(CF_TEXT)) {
        if (const auto* bytes = static_cast<const char*>(GlobalLock(block))) {
            // The block ends in a zero byte; a block without one ends at its size.
            const size_t size = GlobalSize(block);
            const void* zero = std::memchr(bytes, 0, size);
            const size_t length = zero ? static_cast<size_t>(static_cast<const char*>(zero) - bytes) : size;
            text->assign(bytes, length);
            GlobalUnlock(block);
            done = true;
        }
    }
    CloseClipboard();
    return done;
}

}  // namespace

void EditControl::Copy()
{
    // A password never leaves the control.
    if (!m_buffer.HasSelection() || Has(ES_PASSWORD)) return;
    PutText(Hwnd(), m_buffer.Selected());
}

bool EditControl::Cut()
{
    if (!m_buffer.HasSelection() || Has(ES_PASSWORD)) return true;
    if (!PutText(Hwnd(), m_buffer.Selected())) return true;
    return ClearSelection();
}

bool EditControl::Paste()
{
    std::string text;
    if (!GetText(Hwnd(), &text)) return true;
    // One line takes the text up to its first line break.
    if (!Has(ES_MULTILINE)) text = text.substr(0, text.find_first_of("\r\n"));
    if (text.empty()) return true;
    return Replace(text, true, true);
}

bool EditControl::ClearSelection()
{
    if (!m_buffer.HasSelection()) return true;
    return Replace("", false, true);
}

}  // namespace edit
