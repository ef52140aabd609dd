#include "platform/core/message_box_layout.h"

#include <algorithm>

#include "platform/gdi/dc.h"
#include "platform/gdi/gdi_object.h"
#include "platform/text/gbk.h"

namespace MessageBoxGeometry {
namespace {

constexpr int kMargin = 12;         // around the text and the buttons
constexpr int kCaptionHeight = 20;  // one line of caption text plus room
constexpr int kIconSize = 32;       // a standard large icon
constexpr int kButtonWidth = 75;    // a dialog's push button
constexpr int kButtonHeight = 23;
constexpr int kButtonGap = 8;
constexpr int kMinWidth = 180;      // room for a caption even over a short text
// Where a box with neither owner nor main window is centred: the area a
// first window would take.
constexpr int kDefaultScreenWidth = 800;
constexpr int kDefaultScreenHeight = 600;

constexpr UINT kTypeMask = 0x0F;
constexpr UINT kIconMask = 0xF0;

std::string TrimRight(std::string line)
{
    while (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
}

// Breaks one paragraph (no "\n" in it) into lines.
void WrapParagraph(std::string_view text, int maxWidth, const TextWidth& width, std::vector<std::string>& lines)
{
    std::string line;
    int lineWidth = 0;
    size_t breakAt = 0;  // bytes of `line` before the last place it may break; 0: none
    int widthAtBreak = 0;
    bool wrapped = false;  // a wrapped line starts without the spaces that ended the last one
    for (size_t pos = 0; pos < text.size();) {
        const size_t length = static_cast<size_t>(GbkCharLength(text, pos));
        const std::string_view ch = text.substr(pos, length);
        pos += length;
        if (ch == "\r") continue;
        if (wrapped && line.empty() && ch == " ") continue;
        const bool wide = length == 2;
        const int w = width(ch);
        if (wide && !line.empty()) {
            breakAt = line.size();
            widthAtBreak = lineWidth;
        }
        if (!line.empty() && lineWidth + w > maxWidth) {
            if (breakAt == 0) {
                lines.push_back(TrimRight(std::move(line)));
                line.clear();
                lineWidth = 0;
            } else {
                lines.push_back(TrimRight(line.substr(0, breakAt)));
                line.erase(0, breakAt);
                lineWidth -= widthAtBreak;
            }
            breakAt = 0;
            wrapped = true;
            if (line.empty() && ch == " ") continue;
        }
        line.append(ch);
        lineWidth += w;
        if (wide || ch == " ") {
            breakAt = line.size();
            widthAtBreak = lineWidth;
        }
    }
    lines.push_back(TrimRight(std::move(line)));
}

CRect Centred(const CRect& over, int width, int height)
{
    const CRect area = over.IsRectEmpty() ? CRect(0, 0, kDefaultScreenWidth, kDefaultScreenHeight) : over;
    // Kept on the screen's top-left side so that its caption stays in reach.
    const int left = std::max(0, static_cast<int>(area.left) + (area.Width() - width) / 2);
    const int top = std::max(0, static_cast<int>(area.top) + (area.Height() - height) / 2);
    return CRect(left, top, left + width, top + height);
}

}  // namespace

int DialogFontWidth(std::string_view text)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SelectObject(CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT)));
    return dc.GetTextExtent(text.data(), static_cast<int>(text.size())).cx;
}

std::vector<std::string> WrapText(std::string_view text, int maxWidth, const TextWidth& width)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start <= text.size() && lines.size() < static_cast<size_t>(kMaxLines)) {
        const size_t end = std::min(text.find('\n', start), text.size());
        WrapParagraph(text.substr(start, end - start), maxWidth, width, lines);
        start = end + 1;
    }
    if (lines.size() > static_cast<size_t>(kMaxLines)) lines.resize(kMaxLines);
    return lines;
}

std::vector<MessageBoxButton> ButtonsOf(UINT type, int* defaultButton, int* cancelButton)
{
    std::vector<MessageBoxButton> buttons;
    int cancel = 0;
    switch (type & kTypeMask) {
    case MB_OKCANCEL:
        buttons = {{IDOK, GBK(u8"确定"), 0, {}}, {IDCANCEL, GBK(u8"取消"), 0, {}}};
        cancel = 1;
        break;
    case MB_YESNO:
        buttons = {{IDYES, GBK(u8"是(&Y)"), 'Y', {}}, {IDNO, GBK(u8"否(&N)"), 'N', {}}};
        cancel = 1;
        break;
    default:
        buttons = {{IDOK, GBK(u8"确定"), 0, {}}};
        break;
    }
    if (defaultButton) *defaultButton = 0;
    if (cancelButton) *cancelButton = cancel;
    return buttons;
}

MessageBoxLayout LayOut(const MessageBoxRecord& record, const CRect& over, const TextWidth& width)
{
    MessageBoxLayout layout;
    layout.buttons = ButtonsOf(record.type, &layout.defaultButton, &layout.cancelButton);
    layout.lines = WrapText(record.text, kMaxTextWidth, width);
    int textWidth = 0;
    for (const std::string& line : layout.lines) textWidth = std::max(textWidth, width(line));
    const int textHeight = static_cast<int>(layout.lines.size()) * kLineHeight;

    const bool icon = (record.type & kIconMask) != 0;
    const int textLeft = kMargin + (icon ? kIconSize + kMargin : 0);
    const int count = static_cast<int>(layout.buttons.size());
    const int buttonsWidth = count * kButtonWidth + (count - 1) * kButtonGap;
    // A long caption ends in "..." rather than widening the box without end.
    const int captionWidth = std::min(width(record.caption), kMaxTextWidth) + 2 * kMargin;
    const int clientWidth = std::max({textLeft + textWidth + kMargin, buttonsWidth + 2 * kMargin, captionWidth, kMinWidth});
    const int bodyHeight = std::max(textHeight, icon ? kIconSize : 0);
    const int buttonsTop = kCaptionHeight + kMargin + bodyHeight + kMargin;
    const int clientHeight = buttonsTop + kButtonHeight + kMargin;

    layout.window = Centred(over, clientWidth, clientHeight);
    layout.caption = CRect(0, 0, clientWidth, kCaptionHeight);
    if (icon) layout.icon = CRect(kMargin, kCaptionHeight + kMargin, kMargin + kIconSize, kCaptionHeight + kMargin + kIconSize);
    // A short text sits level with the icon's middle.
    const int textTop = kCaptionHeight + kMargin + (bodyHeight - textHeight) / 2;
    layout.text = CRect(textLeft, textTop, textLeft + textWidth, textTop + textHeight);
    int left = (clientWidth - buttonsWidth) / 2;
    for (MessageBoxButton& button : layout.buttons) {
        button.rect = CRect(left, buttonsTop, left + kButtonWidth, buttonsTop + kButtonHeight);
        left += kButtonWidth + kButtonGap;
    }
    return layout;
}

}  // namespace MessageBoxGeometry
