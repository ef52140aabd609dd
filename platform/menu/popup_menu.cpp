#include "platform/menu/popup_menu.h"

#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/core/thread.h"
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

int g_liveCount = 0;

// "text\tkey" splits into the text and the key label shown right-aligned.
std::pair<std::string, std::string> SplitAtTab(const std::string& text)
{
    const auto tab = text.find('\t');
    if (tab == std::string::npos) return {text, {}};
    return {text.substr(0, tab), text.substr(tab + 1)};
}

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

CSize CBCGPPopupMenu::MeasureItems() const
{
    CFont* font = CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SelectObject(font);
    int textWidth = 0;
    int keyWidth = 0;
    for (const MenuItemData& item : m_items) {
        if (item.flags & MF_SEPARATOR) continue;
        const auto [text, key] = SplitAtTab(item.text);
        textWidth = std::max(textWidth, static_cast<int>(dc.GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx));
        if (!key.empty()) keyWidth = std::max(keyWidth, static_cast<int>(dc.GetTextExtent(key.c_str(), static_cast<int>(key.size())).cx));
    }
    const int height = (m_rowTops.empty() ? kBorder : m_rowTops.back()) + kBorder;
    const int width = 2 * kBorder + kTextLeft + textWidth + (keyWidth ? kColumnGap + keyWidth : 0) + kTextRight;
    return CSize(width, height);
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
    const CSize size = MeasureItems();
    CreateEx(0, "BCGPPopupMenu", "", WS_POPUP | WS_VISIBLE, CRect(CPoint(x, y), size), pWndParent, 0);
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
    dc.FillSolidRect(&client, GetSysColor(COLOR_MENU));
    dc.Draw3dRect(&client, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_3DDKSHADOW));
    CRect inner = client;
    inner.DeflateRect(1, 1);
    dc.Draw3dRect(&inner, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_BTNSHADOW));
    dc.SelectObject(CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT)));
    dc.SetBkMode(TRANSPARENT);

    const size_t count = std::min(m_items.size(), m_shown.items.size());
    for (size_t i = 0; i < count && i < m_rowTops.size(); ++i) {
        const ShownMenuItem& item = m_shown.items[i];
        const int y = m_rowTops[i];
        if (item.separator) {
            const int middle = y + kSeparatorHeight / 2 - 1;
            dc.FillSolidRect(kBorder + 1, middle, client.Width() - 2 * kBorder - 2, 1, GetSysColor(COLOR_BTNSHADOW));
            dc.FillSolidRect(kBorder + 1, middle + 1, client.Width() - 2 * kBorder - 2, 1, GetSysColor(COLOR_BTNHIGHLIGHT));
            continue;
        }
        const auto [text, key] = SplitAtTab(item.text);
        CRect row(kBorder + kTextLeft, y, client.Width() - kBorder - kTextRight, y + kItemHeight);
        const bool hot = static_cast<int>(i) == m_tracker.Hot();
        if (hot) dc.FillSolidRect(kBorder, y, client.Width() - 2 * kBorder, kItemHeight, GetSysColor(COLOR_HIGHLIGHT));
        COLORREF colour = item.enabled ? GetSysColor(COLOR_MENUTEXT) : GetSysColor(COLOR_GRAYTEXT);
        if (hot) colour = GetSysColor(COLOR_HIGHLIGHTTEXT);
        if (!item.enabled && !hot) {
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
