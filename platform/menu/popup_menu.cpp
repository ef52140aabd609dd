#include "platform/menu/popup_menu.h"

#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/core/thread.h"
#include "platform/menu/menu_layout.h"
#include "platform/menu/menu_paint.h"

namespace {

int g_liveCount = 0;

}  // namespace

BEGIN_MESSAGE_MAP(CBCGPPopupMenu, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

CBCGPPopupMenu::CBCGPPopupMenu() { ++g_liveCount; }
CBCGPPopupMenu::~CBCGPPopupMenu() { --g_liveCount; }

int CBCGPPopupMenu::LiveCount() { return g_liveCount; }

void CBCGPPopupMenu::PostNcDestroy()
{
    if (!m_tracking) delete this;
}

ShownMenuItem CBCGPPopupMenu::Describe(const MenuItemData& item, CCmdTarget* target) const
{
    ShownMenuItem shown;
    shown.id = item.id;
    shown.text = item.text;
    shown.separator = (item.flags & MF_SEPARATOR) != 0;
    shown.checked = (item.flags & MF_CHECKED) != 0;
    if (item.submenu) {
        for (const MenuItemData& child : item.submenu->items) shown.children.push_back(Describe(child, target));
        return shown;
    }
    if (shown.separator) return shown;
    // The owner's update handlers decide; a command nobody handles is disabled.
    CCmdUI state;
    state.m_nID = item.id;
    state.Enable(!(item.flags & (MF_GRAYED | MF_DISABLED)));
    state.DoUpdate(target, TRUE);
    shown.enabled = state.IsEnabled();
    if (state.GetCheck()) shown.checked = true;
    return shown;
}

BOOL CBCGPPopupMenu::Create(CWnd* pWndParent, int x, int y, HMENU hMenu, BOOL, BOOL bOwnMessage)
{
    const HWND owner = pWndParent ? pWndParent->GetSafeHwnd() : nullptr;
    if (!IsWindow(owner) || !IsMenu(hMenu)) {
        delete this;  // owned from Create on, even when it fails
        return FALSE;
    }
    m_items = CopyMenuItems(hMenu);
    CWnd* main = AfxGetMainWnd();
    const HWND target = bOwnMessage || !main ? owner : main->GetSafeHwnd();

    ::SendMessage(owner, WM_ENTERMENULOOP, TRUE, 0);
    m_shown.owner = owner;
    m_shown.target = target;
    m_shown.point = POINT{x, y};
    if (CWnd* targetWnd = CWnd::FromHandle(target)) {
        for (const MenuItemData& item : m_items) m_shown.items.push_back(Describe(item, targetWnd));
    }
    m_rowTops = MenuLayout::RowTops(m_shown.items);
    const CSize size = MeasureMenu(m_shown.items, m_rowTops);
    const POINT at = MenuLayout::FitOnScreen(POINT{x, y}, size);
    CreateEx(0, "BCGPPopupMenu", "", WS_POPUP | WS_VISIBLE, CRect(CPoint(at), size), pWndParent, 0);
    Paint::UpdateAllWindows();

    const UINT chosen = MenuDriver::Run(m_shown, [this] { return Track(); });

    if (IsWindow(owner)) ::SendMessage(owner, WM_EXITMENULOOP, TRUE, 0);
    // The window's end deletes this object; only locals are used afterwards.
    if (m_hWnd) DestroyWindow();
    else delete this;
    if (chosen && IsWindow(target)) ::SendMessage(target, WM_COMMAND, chosen, 0);
    return TRUE;
}

void CBCGPPopupMenu::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    PaintMenu(dc, client, m_shown.items, m_rowTops, m_tracker.Hot());
}
