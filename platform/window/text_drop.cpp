#include "platform/window/text_drop.h"

#include "platform/input/input.h"
#include "platform/ole/clipboard.h"
#include "platform/ole/format_blocks.h"
#include "platform/ole/global_text.h"
#include "platform/window/desktop_text.h"

void TextDrop::Begin()
{
    m_utf8.clear();
    m_hasText = false;
}

void TextDrop::AddText(std::string_view utf8)
{
    // Pieces are the lines of the text dropped.
    if (m_hasText) m_utf8 += '\n';
    m_utf8 += utf8;
    m_hasText = true;
}

void TextDrop::Complete(CWnd& frame, POINT screen)
{
    if (!m_hasText) return;
    const std::string gbk = DesktopText::FromDesktop(m_utf8);
    Begin();
    FormatBlocks data;
    HGLOBAL mem = GlobalText::Alloc(gbk);
    if (!mem) return;
    if (!data.Set(CF_TEXT, mem)) {
        GlobalFree(mem);
        return;
    }
    POINT at = screen;
    frame.ScreenToClient(&at);
    Input::DropFromOutside(data, Input::Gesture().MoveTo(&frame, at).Release(), DROPEFFECT_COPY);
}
