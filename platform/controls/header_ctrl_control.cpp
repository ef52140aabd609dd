// The HDM_* messages, item changes with their notifications, hit testing.
#include "platform/controls/header_ctrl_control.h"

#include <algorithm>
#include <cstdlib>

#include "platform/controls/control_notify.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/font.h"
#include "platform/text/gbk.h"

namespace header {

int HeightFor(const gdi::FontMetrics& font)
{
    return font.height + kTextVerticalSpace;
}

HeaderControl::HeaderControl(CWnd* wnd) : m_wnd(wnd) {}

bool HeaderControl::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    switch (message) {
    case HDM_GETITEMCOUNT:
        *result = Count();
        return true;
    case HDM_INSERTITEM:
        *result = OnInsertItem(static_cast<int>(wParam), reinterpret_cast<const HDITEM*>(lParam));
        return true;
    case HDM_DELETEITEM:
        *result = OnDeleteItem(static_cast<int>(wParam));
        return true;
    case HDM_GETITEM:
        *result = OnGetItem(static_cast<int>(wParam), reinterpret_cast<HDITEM*>(lParam));
        return true;
    case HDM_SETITEM: {
        const auto* change = reinterpret_cast<const HDITEM*>(lParam);
        *result = change && ChangeItem(static_cast<int>(wParam), *change) ? TRUE : FALSE;
        return true;
    }
    case HDM_GETITEMRECT: {
        auto* rect = reinterpret_cast<RECT*>(lParam);
        const int index = static_cast<int>(wParam);
        if (!rect || !Valid(index)) return true;
        *rect = ItemRect(index);
        *result = TRUE;
        return true;
    }
    case HDM_HITTEST: {
        auto* info = reinterpret_cast<HDHITTESTINFO*>(lParam);
        if (!info) {
            *result = -1;
            return true;
        }
        info->iItem = HitTest(info->pt, &info->flags);
        *result = info->iItem;
        return true;
    }
    case WM_PAINT: {
        CPaintDC dc(m_wnd);
        Paint(dc);
        return true;
    }
    case WM_ERASEBKGND:
        *result = 1;  // painting covers the whole client area
        return true;
    case WM_SETFONT:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        m_wnd->Invalidate();
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        OnLButtonDown(CPoint(lParam), message == WM_LBUTTONDBLCLK);
        return true;
    case WM_MOUSEMOVE:
        OnMouseMove(CPoint(lParam));
        return true;
    case WM_LBUTTONUP:
        OnLButtonUp(CPoint(lParam));
        return true;
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(lParam) != Hwnd()) EndTracking(false);
        return true;
    default:
        return false;
    }
}

// ---------------------------------------------------------------- items

int HeaderControl::OnInsertItem(int index, const HDITEM* item)
{
    if (!item || index < 0) return -1;
    index = std::min(index, Count());
    Item added;
    if (item->mask & HDI_TEXT) added.text = item->pszText ? item->pszText : "";
    if (item->mask & HDI_WIDTH) added.width = std::max(item->cxy, 0);
    if (item->mask & HDI_FORMAT) added.format = item->fmt;
    if (item->mask & HDI_LPARAM) added.lParam = item->lParam;
    if (item->mask & HDI_IMAGE) added.image = item->iImage;
    m_items.insert(m_items.begin() + index, std::move(added));
    if (m_pressed >= index) ++m_pressed;
    InvalidateFrom(index);
    return index;
}

BOOL HeaderControl::OnDeleteItem(int index)
{
    if (!Valid(index)) return FALSE;
    if (m_tracking >= 0) EndTracking(false);
    m_items.erase(m_items.begin() + index);
    if (m_pressed == index) m_pressed = -1;
    else if (m_pressed > index) --m_pressed;
    InvalidateFrom(index);
    return TRUE;
}

BOOL HeaderControl::OnGetItem(int index, HDITEM* item) const
{
    if (!item || !Valid(index)) return FALSE;
    const Item& source = m_items[static_cast<size_t>(index)];
    if (item->mask & HDI_WIDTH) item->cxy = source.width;
    if (item->mask & HDI_TEXT) CopyGbkText(source.text, item->pszText, static_cast<size_t>(std::max(item->cchTextMax, 0)));
    if (item->mask & HDI_FORMAT) item->fmt = source.format;
    if (item->mask & HDI_LPARAM) item->lParam = source.lParam;
    if (item->mask & HDI_IMAGE) item->iImage = source.image;
    if (item->mask & HDI_ORDER) item->iOrder = index;
    return TRUE;
}

bool HeaderControl::ChangeItem(int index, const HDITEM& change)
{
    if (!Valid(index)) return false;
    HDITEM asked = change;
    LRESULT refused = 0;
    if (!Notify(HDN_ITEMCHANGING, index, &asked, &refused)) return false;
    // The parent may have changed the items meanwhile.
    if (refused || !Valid(index)) return false;
    Item& item = m_items[static_cast<size_t>(index)];
    if (change.mask & HDI_WIDTH) item.width = std::max(change.cxy, 0);
    if (change.mask & HDI_TEXT) item.text = change.pszText ? change.pszText : "";
    if (change.mask & HDI_FORMAT) item.format = change.fmt;
    if (change.mask & HDI_LPARAM) item.lParam = change.lParam;
    if (change.mask & HDI_IMAGE) item.image = change.iImage;
    InvalidateFrom(index);
    HDITEM done = change;
    return Notify(HDN_ITEMCHANGED, index, &done);
}

bool HeaderControl::SetWidth(int index, int width)
{
    HDITEM change;
    change.mask = HDI_WIDTH;
    change.cxy = std::max(width, 0);
    return ChangeItem(index, change);
}

int HeaderControl::LeftOf(int index) const
{
    int left = 0;
    for (int i = 0; i < index && i < Count(); ++i) left += m_items[static_cast<size_t>(i)].width;
    return left;
}

CRect HeaderControl::ItemRect(int index) const
{
    CRect client;
    m_wnd->GetClientRect(&client);
    const int left = LeftOf(index);
    return CRect(left, 0, left + m_items[static_cast<size_t>(index)].width, client.bottom);
}

int HeaderControl::HitTest(POINT pt, UINT* flags) const
{
    UINT dummy = 0;
    if (!flags) flags = &dummy;
    CRect client;
    m_wnd->GetClientRect(&client);
    UINT outside = 0;
    if (pt.x < client.left) outside |= HHT_TOLEFT;
    else if (pt.x >= client.right) outside |= HHT_TORIGHT;
    if (pt.y < client.top) outside |= HHT_ABOVE;
    else if (pt.y >= client.bottom) outside |= HHT_BELOW;
    if (outside) {
        *flags = outside;
        return -1;
    }
    // A divider within the grip comes before the button under the point.
    // The nearest edge wins; at equal distance the later item, so that a
    // column dragged down to nothing can be pulled open again.
    int divider = -1;
    int best = kDividerGrip + 1;
    int under = -1;
    int left = 0;
    for (int i = 0; i < Count(); ++i) {
        const int right = left + m_items[static_cast<size_t>(i)].width;
        const int distance = std::abs(pt.x - right);
        if (distance <= best && (distance < best || pt.x >= right)) {
            best = distance;
            divider = i;
        }
        if (under < 0 && pt.x >= left && pt.x < right) under = i;
        left = right;
    }
    if (divider >= 0) {
        *flags = HHT_ONDIVIDER;
        return divider;
    }
    *flags = under >= 0 ? HHT_ONHEADER : HHT_NOWHERE;
    return under;
}

bool HeaderControl::Notify(UINT code, int index, HDITEM* item, LRESULT* result)
{
    NMHEADER nm;
    nm.iItem = index;
    nm.iButton = 0;
    nm.pitem = item;
    return SendNotify(m_wnd, nm.hdr, code, result);
}

void HeaderControl::InvalidateFrom(int index)
{
    if (!Hwnd()) return;
    CRect client;
    m_wnd->GetClientRect(&client);
    CRect area(LeftOf(index), client.top, client.right, client.bottom);
    ::InvalidateRect(Hwnd(), &area, TRUE);
}

}  // namespace header
