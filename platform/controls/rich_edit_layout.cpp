#include "platform/controls/rich_edit_layout.h"

#include "platform/text/gbk.h"

namespace richedit {

Metrics MakeMetrics(const CRect& client, const gdi::FontMetrics& font)
{
    Metrics m;
    m.client = client;
    m.view = client;
    m.view.left = std::min(client.right, client.left + kLeftMargin);
    m.font = font;
    m.lineHeight = std::max(1, font.height);
    m.tabWidth = std::max(1, kTabStopChars * font.Advance(1));
    return m;
}

int TextX(const Metrics& m, const std::string& text, int offset)
{
    const int end = std::min(offset, static_cast<int>(text.size()));
    int x = 0;
    for (int pos = 0; pos < end; pos += GbkCharLength(text, static_cast<size_t>(pos))) x += CharAdvance(m, text, pos, x);
    return x;
}

int OffsetNearX(const Metrics& m, const std::string& text, int x)
{
    int left = 0;
    for (int pos = 0; pos < static_cast<int>(text.size());) {
        const int advance = CharAdvance(m, text, pos, left);
        if (x < left + advance / 2 + advance % 2) return pos;
        left += advance;
        pos += GbkCharLength(text, static_cast<size_t>(pos));
    }
    return static_cast<int>(text.size());
}

int OffsetUnderX(const Metrics& m, const std::string& text, int x)
{
    int left = 0;
    int last = 0;
    for (int pos = 0; pos < static_cast<int>(text.size());) {
        const int advance = CharAdvance(m, text, pos, left);
        if (x < left + advance) return pos;
        left += advance;
        last = pos;
        pos += GbkCharLength(text, static_cast<size_t>(pos));
    }
    return last;
}

}  // namespace richedit
