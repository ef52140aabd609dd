// Copy, cut, paste and clear through the platform's clipboard (CF_TEXT).
#include "platform/controls/edit_control.h"

#include <string>

#include "platform/ole/clipboard.h"

namespace edit {

void EditControl::Copy()
{
    // A password never leaves the control.
    if (!m_buffer.HasSelection() || Has(ES_PASSWORD)) return;
    SetClipboardText(Hwnd(), m_buffer.Selected());
}

bool EditControl::Cut()
{
    if (!m_buffer.HasSelection() || Has(ES_PASSWORD)) return true;
    if (!SetClipboardText(Hwnd(), m_buffer.Selected())) return true;
    return ClearSelection();
}

bool EditControl::Paste()
{
    std::string text;
    if (!GetClipboardText(Hwnd(), &text)) return true;
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
