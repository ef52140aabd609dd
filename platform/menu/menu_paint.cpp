#include "platform/menu/menu_paint.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/gdi/gdi_object.h"
#include "platform/gdi/sys_color.h"
#include "platform/menu/menu_layout.h"

namespace {

using MenuLayout::kBorder;
using MenuLayout::kItemHeight;
using MenuLayout::kSeparatorHeight;

// Columns of a drawn popup menu.
constexpr int kTextLeft = 20;         // room for a check mark
constexpr int kTextRight = 24;        // room for a submenu arrow
constexpr int kColumnGap = 16;        // between an item's text and its key label

// "text\tkey" splits into the text and the key label shown right-aligned.
std::pair<std::string, std::string> SplitAtTab(const std::string& text)
{
    const auto tab = text.find('\t');
    if (tab == std::string::npos) return {text, {}};
    return {text.substr(0, tab), text.substr(tab + 1)};
}

}  // namespace

CSize MeasureMenu(const std::vector<ShownMenuItem>& items, const std::vector<int>& rowTops)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SelectObject(CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT)));
    int textWidth = 0;
    int keyWidth = 0;
    for (const ShownMenuItem& item : items) {
        if (item.separator) continue;
        const auto [text, key] = SplitAtTab(item.text);
        textWidth = std::max(textWidth, static_cast<int>(dc.GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx));
        if (!key.empty()) keyWidth = std::max(keyWidth, static_cast<int>(dc.GetTextExtent(key.c_str(), static_cast<int>(key.size())).cx));
    }
    const int height = (rowTops.empty() ? kBorder : rowTops.back()) + kBorder;
    const int width = 2 * kBorder + kTextLeft + textWidth + (keyWidth ? kColumnGap + keyWidth : 0) + kTextRight;
    return CSize(width, height);
}

void PaintMenu(CDC& dc, const CRect& client, const std::vector<ShownMenuItem>& items, const std::vector<int>& rowTops,
               int hot)
{
    dc.FillSolidRect(&client, GetSysColor(COLOR_MENU));
    dc.Draw3dRect(&client, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_3DDKSHADOW));
    CRect inner = client;
    inner.DeflateRect(1, 1);
    dc.Draw3dRect(&inner, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_BTNSHADOW));
    dc.SelectObject(CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT)));
    dc.SetBkMode(TRANSPARENT);

    for (size_t i = 0; i < items.size() && i < rowTops.size(); ++i) {
        const ShownMenuItem& item = items[i];
        const int y = rowTops[i];
        if (item.separator) {
            const int middle = y + kSeparatorHeight / 2 - 1;
            dc.FillSolidRect(kBorder + 1, middle, client.Width() - 2 * kBorder - 2, 1, GetSysColor(COLOR_BTNSHADOW));
            dc.FillSolidRect(kBorder + 1, middle + 1, client.Width() - 2 * kBorder - 2, 1, GetSysColor(COLOR_BTNHIGHLIGHT));
            continue;
        }
        const auto [text, key] = SplitAtTab(item.text);
        CRect row(kBorder + kTextLeft, y, client.Width() - kBorder - kTextRight, y + kItemHeight);
        const bool lit = static_cast<int>(i) == hot;
        if (lit) dc.FillSolidRect(kBorder, y, client.Width() - 2 * kBorder, kItemHeight, GetSysColor(COLOR_HIGHLIGHT));
        COLORREF colour = item.enabled ? GetSysColor(COLOR_MENUTEXT) : GetSysColor(COLOR_GRAYTEXT);
        if (lit) colour = GetSysColor(COLOR_HIGHLIGHTTEXT);
        if (!item.enabled && !lit) {
            // Disabled items look etched: a highlight copy one pixel down-right.
            dc.SetTextColor(GetSysColor(COLOR_BTNHIGHLIGHT));
            CRect etched = row;
            etched.OffsetRect(1, 1);
            dc.DrawText(text.c_str(), static_cast<int>(text.size()), &etched, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
        }
        dc.SetTextColor(colour);
        dc.DrawText(text.c_str(), static_cast<int>(text.size()), &row, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
        if (!key.empty()) dc.DrawText(key.c_str(), static_cast<int>(key.size()), &row, DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
        if (item.IsPopup()) {
            // A small solid arrow pointing right.
            const int ax = client.Width() - kBorder - 12;
            const int ay = y + kItemHeight / 2;
            for (int d = 0; d < 4; ++d) dc.FillSolidRect(ax + d, ay - 3 + d, 1, 7 - 2 * d, colour);
        }
    }
}
