#include "platform/menu/submenu_wnd.h"

#include "platform/core/paint_dc.h"
#include "platform/menu/menu_layout.h"
#include "platform/menu/menu_paint.h"

namespace {

// A submenu overlaps its menu's frame, so that the eye follows across.
constexpr int kOverlap = MenuLayout::kBorder;

}  // namespace

BEGIN_MESSAGE_MAP(SubmenuWnd, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

SubmenuWnd::SubmenuWnd(const std::vector<ShownMenuItem>& items)
    : m_items(&items), m_rowTops(MenuLayout::RowTops(items)), m_tracker(items)
{
}

SubmenuWnd::~SubmenuWnd()
{
    if (m_hWnd) DestroyWindow();
}

BOOL SubmenuWnd::Open(CWnd* owner, const CRect& item)
{
    const CSize size = MeasureMenu(*m_items, m_rowTops);
    // Its first item level with the one it opened from.
    const CPoint at(item.right - kOverlap, item.top - MenuLayout::kBorder);
    return CreateEx(0, "BCGPPopupMenu", "", WS_POPUP | WS_VISIBLE, CRect(CPoint(MenuLayout::FitOnScreen(at, size)), size), owner, 0);
}

void SubmenuWnd::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    PaintMenu(dc, client, *m_items, m_rowTops, m_tracker.Hot());
}
