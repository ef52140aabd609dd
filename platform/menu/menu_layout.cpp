#include "platform/menu/menu_layout.h"

#include <algorithm>

#include "platform/core/thread.h"

namespace MenuLayout {

std::vector<int> RowTops(const std::vector<ShownMenuItem>& items)
{
    std::vector<int> tops;
    tops.reserve(items.size() + 1);
    int y = kBorder;
    for (const ShownMenuItem& item : items) {
        tops.push_back(y);
        y += item.separator ? kSeparatorHeight : kItemHeight;
    }
    tops.push_back(y);
    return tops;
}

int ItemAt(const std::vector<int>& rowTops, POINT client, int width)
{
    if (rowTops.size() < 2 || client.x < kBorder || client.x >= width - kBorder) return -1;
    if (client.y < rowTops.front() || client.y >= rowTops.back()) return -1;
    // Rows are sorted by their tops: the last top at or above the point.
    const auto after = std::upper_bound(rowTops.begin(), rowTops.end(), static_cast<int>(client.y));
    return static_cast<int>(after - rowTops.begin()) - 1;
}

UINT MnemonicOf(const std::string& text)
{
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x80) {
            ++i;  // a double-byte character's trail byte may look like '&'
            continue;
        }
        if (byte != '&') continue;
        const auto next = static_cast<unsigned char>(text[i + 1]);
        if (next == '&') {
            ++i;
            continue;
        }
        if (next >= 'a' && next <= 'z') return next - 'a' + 'A';
        return next < 0x80 && next > ' ' ? next : 0;
    }
    return 0;
}

POINT FitOnScreen(POINT at, SIZE size)
{
    CWnd* main = AfxGetMainWnd();
    if (!main || !main->GetSafeHwnd()) return at;
    CRect screen;
    main->GetWindowRect(&screen);
    if (at.x + size.cx > screen.right) at.x -= size.cx;
    if (at.y + size.cy > screen.bottom) at.y -= size.cy;
    at.x = std::max<LONG>(at.x, screen.left);
    at.y = std::max<LONG>(at.y, screen.top);
    return at;
}

}  // namespace MenuLayout

