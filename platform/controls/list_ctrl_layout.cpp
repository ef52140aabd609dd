// The arithmetic of lines and columns.
#include "platform/controls/list_ctrl_layout.h"

#include <algorithm>
#include <limits>

#include "platform/controls/list_ctrl.h"

namespace listview {

namespace {

LONG Pin(long long value)
{
    constexpr long long low = std::numeric_limits<LONG>::min() / 2;
    constexpr long long high = std::numeric_limits<LONG>::max() / 2;
    return static_cast<LONG>(std::clamp(value, low, high));
}

}  // namespace

int Geometry::PageLines() const
{
    const int height = static_cast<int>(client.bottom) - ItemsTop();
    return std::max(1, height / std::max(1, lineHeight));
}

int Geometry::MaxTop() const
{
    return std::max(0, count - PageLines());
}

int Geometry::MaxScrollX() const
{
    return std::max(0, TotalWidth() - static_cast<int>(client.Width()));
}

int Geometry::ClampTop(long long wanted) const
{
    return static_cast<int>(std::clamp<long long>(wanted, 0, MaxTop()));
}

int Geometry::ClampScrollX(long long wanted) const
{
    return static_cast<int>(std::clamp<long long>(wanted, 0, MaxScrollX()));
}

LONG Geometry::LineTop(int index) const
{
    return Pin(static_cast<long long>(ItemsTop()) + (static_cast<long long>(index) - top) * std::max(1, lineHeight));
}

CRect Geometry::LineBounds(int index) const
{
    const LONG y = LineTop(index);
    return CRect(client.left - scrollX, y, client.left - scrollX + TotalWidth(), y + lineHeight);
}

CRect Geometry::CellRect(int index, int column) const
{
    if (column < 0 || column >= static_cast<int>(columns.size())) return CRect();
    const Column& c = columns[static_cast<size_t>(column)];
    const LONG y = LineTop(index);
    return CRect(client.left - scrollX + c.left, y, client.left - scrollX + c.right, y + lineHeight);
}

CRect Geometry::RowsRect(int from, int to) const
{
    return CRect(client.left, LineTop(from), client.right, LineTop(to));
}

std::pair<int, int> Geometry::LinesIn(int yTop, int yBottom) const
{
    const int from = std::max(yTop, ItemsTop());
    if (yBottom <= from) return {top, top};
    const int h = std::max(1, lineHeight);
    const long long first = top + static_cast<long long>(from - ItemsTop()) / h;
    const long long last = top + (static_cast<long long>(yBottom - ItemsTop()) + h - 1) / h;
    const auto fit = [](long long v) { return static_cast<int>(std::clamp<long long>(v, 0, std::numeric_limits<int>::max())); };
    return {fit(first), fit(last)};
}

int Geometry::ColumnAt(int x) const
{
    const int content = x - static_cast<int>(client.left) + scrollX;
    for (size_t i = 0; i < columns.size(); ++i) {
        if (content >= columns[i].left && content < columns[i].right) return static_cast<int>(i);
    }
    return -1;
}

UINT Geometry::HitTest(POINT pt, bool fullRow, int* item, int* column) const
{
    *item = -1;
    *column = -1;
    UINT outside = 0;
    if (pt.x < client.left) outside |= LVHT_TOLEFT;
    else if (pt.x >= client.right) outside |= LVHT_TORIGHT;
    if (pt.y < client.top) outside |= LVHT_ABOVE;
    else if (pt.y >= client.bottom) outside |= LVHT_BELOW;
    if (outside) return outside;
    if (pt.y < ItemsTop()) return LVHT_NOWHERE;  // under the header
    const long long line = top + static_cast<long long>(pt.y - ItemsTop()) / std::max(1, lineHeight);
    if (line >= count) return LVHT_NOWHERE;
    const int at = ColumnAt(pt.x);
    if (at < 0 || (at > 0 && !fullRow)) return LVHT_NOWHERE;
    *item = static_cast<int>(line);
    *column = at;
    return LVHT_ONITEMLABEL;
}

}  // namespace listview
