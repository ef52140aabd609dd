// The TVM_* messages, selection, expansion, scrolling and notifications.
#include "platform/controls/tree_control.h"

#include <cstring>

#include "platform/controls/control_notify.h"
#include "platform/core/input_state.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/image_list.h"
#include "platform/text/gbk.h"

namespace tree {

static_assert(sizeof(HTREEITEM) <= sizeof(RECT), "TVM_GETITEMRECT passes the item in the rectangle");

TreeControl::TreeControl(CWnd* wnd) : m_wnd(wnd) {}

bool TreeControl::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    switch (message) {
    case TVM_INSERTITEM:
        *result = reinterpret_cast<LRESULT>(OnInsertItem(reinterpret_cast<const TVINSERTSTRUCT*>(lParam)));
        return true;
    case TVM_DELETEITEM:
        *result = OnDeleteItem(reinterpret_cast<HTREEITEM>(lParam));
        return true;
    case TVM_EXPAND: {
        const Slot slot = Resolve(reinterpret_cast<HTREEITEM>(lParam));
        *result = slot != kNone && Expand(slot, static_cast<UINT>(wParam), false) ? TRUE : FALSE;
        return true;
    }
    case TVM_GETITEMRECT:
        *result = OnGetItemRect(static_cast<BOOL>(wParam), reinterpret_cast<RECT*>(lParam));
        return true;
    case TVM_GETCOUNT:
        *result = static_cast<LRESULT>(m_model.Count());
        return true;
    case TVM_GETINDENT:
        *result = kIndent;
        return true;
    case TVM_GETIMAGELIST:
        *result = reinterpret_cast<LRESULT>(wParam == TVSIL_NORMAL ? m_images
                                            : wParam == TVSIL_STATE ? m_stateImages
                                                                    : nullptr);
        return true;
    case TVM_SETIMAGELIST:
        *result = reinterpret_cast<LRESULT>(OnSetImageList(static_cast<int>(wParam), reinterpret_cast<HIMAGELIST>(lParam)));
        return true;
    case TVM_GETNEXTITEM:
        *result = reinterpret_cast<LRESULT>(OnGetNextItem(static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam)));
        return true;
    case TVM_SELECTITEM:
        *result = OnSelectItem(static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam));
        return true;
    case TVM_GETITEM:
        *result = OnGetItem(reinterpret_cast<TVITEM*>(lParam));
        return true;
    case TVM_SETITEM:
        *result = OnSetItem(reinterpret_cast<const TVITEM*>(lParam));
        return true;
    case TVM_GETVISIBLECOUNT: {
        const Metrics m = ComputeMetrics();
        *result = std::max(0, m.client.Height() / m.itemHeight);
        return true;
    }
    case TVM_HITTEST:
        *result = reinterpret_cast<LRESULT>(OnHitTest(reinterpret_cast<TVHITTESTINFO*>(lParam)));
        return true;
    case TVM_ENSUREVISIBLE: {
        const Slot slot = Resolve(reinterpret_cast<HTREEITEM>(lParam));
        *result = slot != kNone && EnsureVisible(slot) ? TRUE : FALSE;
        return true;
    }
    case TVM_GETITEMHEIGHT:
        *result = ComputeMetrics().itemHeight;
        return true;

    case WM_PAINT: {
        FitScrollBars();  // before the paint takes its area: a bar may change it
        CPaintDC dc(m_wnd);
        Paint(dc, dc.m_ps.rcPaint);
        return true;
    }
    case WM_ERASEBKGND:
        *result = 1;  // painting fills what it paints
        return true;
    case WM_SETFONT:
        // The window keeps the font; the tree reads it back from there.
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        OnSetFont();
        return true;
    case WM_SETREDRAW:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        if (wParam) InvalidateAll();
        return true;
    case WM_SIZE:
        // Full-row highlights and the last page both depend on the size.
        TopIndex();
        InvalidateAll();
        FitScrollBars();
        return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnFocusChange(message == WM_SETFOCUS);
        return true;
    case WM_GETDLGCODE:
        *result = DLGC_WANTARROWS | DLGC_WANTCHARS;
        return true;
    case WM_LBUTTONDOWN:
        OnLButtonDown(CPoint(lParam));
        return true;
    case WM_LBUTTONUP:
        OnLButtonUp();
        return true;
    case WM_LBUTTONDBLCLK:
        OnLButtonDblClk(CPoint(lParam));
        return true;
    case WM_RBUTTONDOWN:
        ResetTypeAhead();
        m_wnd->SetFocus();
        return true;
    case WM_RBUTTONUP:
        *result = OnRButtonUp(wParam, lParam);
        return true;
    case WM_MOUSEMOVE:
        OnMouseMove(CPoint(lParam));
        return true;
    case WM_MOUSELEAVE:
        OnMouseLeave();
        return true;
    case WM_MOUSEWHEEL:
        OnMouseWheel(static_cast<short>(HIWORD(wParam)));
        return true;
    case WM_VSCROLL:
        OnVScroll(LOWORD(wParam), ScrollRequestPosition(Hwnd(), message, wParam));
        return true;
    case WM_HSCROLL:
        OnHScroll(LOWORD(wParam), ScrollRequestPosition(Hwnd(), message, wParam));
        return true;
    case WM_KEYDOWN:
        OnKeyDown(static_cast<UINT>(wParam));
        return true;
    case WM_CHAR:
        OnChar(static_cast<UINT>(wParam));
        return true;
    case WM_CAPTURECHANGED:
        m_leftPressed = false;
        return true;
    case WM_NCDESTROY:
        // The object may create another window later; it starts empty.
        DeleteAll(false);
        m_images = m_stateImages = nullptr;
        m_leftPressed = m_skipNextChar = false;
        m_wheelRemainder = 0;
        m_scrollX = 0;
        ResetTypeAhead();
        return false;
    default:
        return false;
    }
}

// ---------------------------------------------------------------- items

HTREEITEM TreeControl::OnInsertItem(const TVINSERTSTRUCT* insert)
{
    if (!insert) return nullptr;
    Slot parent = kRootSlot;
    if (insert->hParent && insert->hParent != TVI_ROOT) {
        parent = Resolve(insert->hParent);
        if (parent == kNone) return nullptr;
    }
    Where where = Where::Last;
    Slot after = kNone;
    if (insert->hInsertAfter == TVI_FIRST) {
        where = Where::First;
    } else if (insert->hInsertAfter && insert->hInsertAfter != TVI_LAST) {
        after = Resolve(insert->hInsertAfter);
        if (after == kNone || m_model.At(after).parent != parent) return nullptr;
        where = Where::After;
    }
    const Slot slot = m_model.Insert(parent, where, after);
    if (slot == kNone) return nullptr;

    Item& item = m_model.At(slot);
    const TVITEM& in = insert->item;
    if ((in.mask & TVIF_TEXT) && in.pszText) item.text = in.pszText;
    if (in.mask & TVIF_IMAGE) item.image = in.iImage;
    if (in.mask & TVIF_SELECTEDIMAGE) item.selectedImage = in.iSelectedImage;
    if (in.mask & TVIF_PARAM) item.data = in.lParam;
    // Selection belongs to the caret; it cannot be inserted.
    if (in.mask & TVIF_STATE) item.state = in.state & in.stateMask & ~TVIS_SELECTED;
    if (in.mask & TVIF_CHILDREN) item.forceButton = in.cChildren > 0;

    // A new row, or a new button on its parent; the rows below move anyway.
    if (parent == kRootSlot || m_model.IsVisible(parent)) InvalidateAll();
    return m_model.HandleOf(slot);
}

BOOL TreeControl::OnDeleteItem(HTREEITEM handle)
{
    if (!handle || handle == TVI_ROOT) {
        DeleteAll(true);
        return TRUE;
    }
    Slot slot = Resolve(handle);
    if (slot == kNone) return FALSE;
    const HWND self = Hwnd();

    // A caret inside the doomed subtree moves out first, as a normal
    // selection change the parent hears about.
    const auto insideDoomed = [this, handle](Slot s) {
        const Slot doomed = Resolve(handle);
        return s != kNone && doomed != kNone && (s == doomed || m_model.IsAncestor(doomed, s));
    };
    if (insideDoomed(Caret())) {
        const Item& item = m_model.At(slot);
        const Slot heir = item.next != kNone ? item.next : item.prev != kNone ? item.prev : m_model.IsItem(item.parent) ? item.parent : kNone;
        SelectCaret(heir, TVC_UNKNOWN, false);
        if (!IsWindow(self)) return FALSE;
        slot = Resolve(handle);
        if (slot == kNone) return TRUE;  // the parent deleted it meanwhile
        if (insideDoomed(Caret())) m_caret = nullptr;  // vetoed: no selection then
    }
    // The first row shown stays near where it was.
    const Slot top = Resolve(m_topItem);
    if (top != kNone && (top == slot || m_model.IsAncestor(slot, top))) {
        Slot heir = m_model.NextAfterSubtree(slot);
        if (heir == kNone) heir = m_model.PrevVisible(slot);
        m_topItem = m_model.HandleOf(heir);
    }
    const Slot parent = m_model.At(slot).parent;
    const bool shown = parent == kRootSlot || m_model.IsVisible(parent);
    m_model.Delete(slot);
    if (shown) InvalidateAll();
    return TRUE;
}

void TreeControl::DeleteAll(bool notify)
{
    if (notify && Caret() != kNone) {
        const HWND self = Hwnd();
        SelectCaret(kNone, TVC_UNKNOWN, false);
        if (!IsWindow(self)) return;
    }
    m_model.Clear();
    m_caret = m_drop = m_hot = m_topItem = nullptr;
    m_topIndex = 0;
    ResetTypeAhead();
    InvalidateAll();
}

HTREEITEM TreeControl::OnGetNextItem(UINT code, HTREEITEM handle)
{
    const Slot slot = Resolve(handle);
    switch (code) {
    case TVGN_ROOT:
        return m_model.HandleOf(m_model.At(kRootSlot).firstChild);
    case TVGN_CARET:
        return m_model.HandleOf(Caret());
    case TVGN_DROPHILITE:
        return m_model.HandleOf(Resolve(m_drop));
    case TVGN_FIRSTVISIBLE: {
        const Metrics m = ComputeMetrics();
        const int top = TopIndex(m);
        const auto& rows = m_model.Rows();
        return rows.empty() ? nullptr : m_model.HandleOf(rows[static_cast<size_t>(top)]);
    }
    case TVGN_LASTVISIBLE:
        return m_model.HandleOf(m_model.LastVisible());
    case TVGN_CHILD:
        if (!handle || handle == TVI_ROOT) return m_model.HandleOf(m_model.At(kRootSlot).firstChild);
        return slot == kNone ? nullptr : m_model.HandleOf(m_model.At(slot).firstChild);
    default:
        break;
    }
    if (slot == kNone) return nullptr;
    const Item& item = m_model.At(slot);
    switch (code) {
    case TVGN_NEXT: return m_model.HandleOf(item.next);
    case TVGN_PREVIOUS: return m_model.HandleOf(item.prev);
    case TVGN_PARENT: return m_model.HandleOf(item.parent);
    case TVGN_NEXTVISIBLE: return m_model.IsVisible(slot) ? m_model.HandleOf(m_model.NextVisible(slot)) : nullptr;
    case TVGN_PREVIOUSVISIBLE: return m_model.IsVisible(slot) ? m_model.HandleOf(m_model.PrevVisible(slot)) : nullptr;
    default: return nullptr;
    }
}

BOOL TreeControl::OnGetItem(TVITEM* out)
{
    if (!out) return FALSE;
    const Slot slot = Resolve(out->hItem);
    if (slot == kNone) return FALSE;
    const Item& item = m_model.At(slot);
    if (out->mask & TVIF_TEXT) CopyGbkText(item.text, out->pszText, static_cast<size_t>(std::max(out->cchTextMax, 0)));
    if (out->mask & TVIF_IMAGE) out->iImage = item.image;
    if (out->mask & TVIF_SELECTEDIMAGE) out->iSelectedImage = item.selectedImage;
    if (out->mask & TVIF_PARAM) out->lParam = item.data;
    if (out->mask & TVIF_STATE) out->state = item.state & out->stateMask;
    if (out->mask & TVIF_CHILDREN) out->cChildren = m_model.HasChildren(slot) ? 1 : 0;
    return TRUE;
}

bool TreeControl::Peek(HTREEITEM handle, TreeItemPeek& peek) const
{
    const Slot slot = Resolve(handle);
    if (slot == kNone) return false;
    const Item& item = m_model.At(slot);
    peek.text = item.text;
    peek.data = item.data;
    peek.image = item.image;
    peek.selectedImage = item.selectedImage;
    peek.nextSibling = m_model.HandleOf(item.next);
    return true;
}

BOOL TreeControl::OnSetItem(const TVITEM* in)
{
    if (!in) return FALSE;
    const Slot slot = Resolve(in->hItem);
    if (slot == kNone) return FALSE;
    Item& item = m_model.At(slot);
    bool rowsChange = false;
    if (in->mask & TVIF_TEXT) {
        item.text = in->pszText ? in->pszText : "";
        m_contentWidthKnown = false;
    }
    if (in->mask & TVIF_IMAGE) item.image = in->iImage;
    if (in->mask & TVIF_SELECTEDIMAGE) item.selectedImage = in->iSelectedImage;
    if (in->mask & TVIF_PARAM) item.data = in->lParam;
    if (in->mask & TVIF_CHILDREN) item.forceButton = in->cChildren > 0;
    if (in->mask & TVIF_STATE) {
        const UINT state = (item.state & ~in->stateMask) | (in->state & in->stateMask);
        rowsChange = ((state ^ item.state) & TVIS_EXPANDED) != 0 && item.firstChild != kNone && m_model.IsVisible(slot);
        item.state = state;
    }
    if (rowsChange) {
        InvalidateRowsChange(slot, (item.state & TVIS_EXPANDED) == 0);
        m_model.RowsChanged();
    } else if (in->mask & (TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE | TVIF_CHILDREN)) {
        InvalidateItem(slot);
    }
    return TRUE;
}

BOOL TreeControl::OnGetItemRect(BOOL textOnly, RECT* rect)
{
    if (!rect) return FALSE;
    HTREEITEM handle = nullptr;
    std::memcpy(&handle, static_cast<const void*>(rect), sizeof handle);
    const Slot slot = Resolve(handle);
    if (slot == kNone) return FALSE;
    const Metrics m = ComputeMetrics();
    const int row = m_model.RowOf(slot);
    if (row < 0) return FALSE;
    const RowLayout r = Layout(m, slot, row, TopIndex(m));
    *rect = textOnly ? r.label : r.row;
    return TRUE;
}

HTREEITEM TreeControl::OnHitTest(TVHITTESTINFO* info)
{
    if (!info) return nullptr;
    info->hItem = HitTest(info->pt, &info->flags);
    return info->hItem;
}

HIMAGELIST TreeControl::OnSetImageList(int kind, HIMAGELIST list)
{
    HIMAGELIST* target = kind == TVSIL_NORMAL ? &m_images : kind == TVSIL_STATE ? &m_stateImages : nullptr;
    if (!target) return nullptr;
    HIMAGELIST old = *target;
    *target = list;
    m_contentWidthKnown = false;
    // The row height may change with the images.
    TopIndex();
    InvalidateAll();
    return old;
}

void TreeControl::OnSetFont()
{
    // Heights and widths follow the font, so everything moves.
    m_contentWidthKnown = false;
    TopIndex();
    InvalidateAll();
}

void TreeControl::OnFocusChange(bool gained)
{
    if (!gained) ResetTypeAhead();
    InvalidateItem(Caret());
    NotifySimple(gained ? NM_SETFOCUS : NM_KILLFOCUS);
}

// ---------------------------------------------------------------- selection

BOOL TreeControl::OnSelectItem(UINT code, HTREEITEM handle)
{
    Slot slot = kNone;
    if (handle) {
        slot = Resolve(handle);
        if (slot == kNone) return FALSE;
    }
    switch (code) {
    case TVGN_CARET:
        return SelectCaret(slot, TVC_UNKNOWN, true) ? TRUE : FALSE;
    case TVGN_DROPHILITE:
        InvalidateItem(Resolve(m_drop));
        InvalidateItem(Caret());  // the caret shows unselected while a drop target does
        m_drop = m_model.HandleOf(slot);
        InvalidateItem(slot);
        return TRUE;
    case TVGN_FIRSTVISIBLE: {
        if (slot == kNone || !EnsureVisible(slot)) return FALSE;
        slot = Resolve(handle);
        if (slot == kNone) return FALSE;
        ScrollTo(m_model.RowOf(slot));
        return TRUE;
    }
    default:
        return FALSE;
    }
}

void TreeControl::Describe(Slot slot, TVITEM& item) const
{
    item = TVITEM{};
    if (!m_model.IsItem(slot)) return;
    const Item& source = m_model.At(slot);
    item.mask = TVIF_HANDLE | TVIF_STATE | TVIF_PARAM;
    item.hItem = m_model.HandleOf(slot);
    item.state = source.state;
    item.stateMask = 0xFFFF;
    item.lParam = source.data;
}

bool TreeControl::SelectCaret(Slot target, UINT action, bool ensureVisible)
{
    const HWND self = Hwnd();
    const HTREEITEM targetHandle = m_model.HandleOf(target);
    if (Caret() == target) {
        if (target != kNone && ensureVisible) EnsureVisible(target);
        return IsWindow(self) != FALSE;
    }
    NMTREEVIEW nm;
    nm.action = action;
    Describe(Caret(), nm.itemOld);
    Describe(target, nm.itemNew);
    LRESULT veto = 0;
    if (!Notify(nm.hdr, TVN_SELCHANGING, &veto) || veto) return false;
    // The handler may have deleted either item.
    target = Resolve(targetHandle);
    if (targetHandle && target == kNone) return false;

    const Slot old = Caret();
    if (old != kNone) {
        m_model.At(old).state &= ~TVIS_SELECTED;
        InvalidateItem(old);
    }
    m_caret = targetHandle;
    if (target != kNone) {
        m_model.At(target).state |= TVIS_SELECTED;
        InvalidateItem(target);
        if (ensureVisible) {
            EnsureVisible(target);
            if (!IsWindow(self)) return false;
        }
    }
    const HTREEITEM oldHandle = nm.itemOld.hItem;
    Describe(Resolve(oldHandle), nm.itemOld);
    nm.itemOld.hItem = oldHandle;
    Describe(Resolve(targetHandle), nm.itemNew);
    return Notify(nm.hdr, TVN_SELCHANGED);
}

// ---------------------------------------------------------------- expansion

bool TreeControl::Expand(Slot slot, UINT code, bool byUser)
{
    code &= TVE_TOGGLE;  // other action bits are not supported
    if (code == 0 || !m_model.HasChildren(slot)) return false;
    const bool expanded = m_model.IsExpanded(slot);
    const bool expand = code == TVE_EXPAND ? true : code == TVE_COLLAPSE ? false : !expanded;
    if (expand == expanded) return true;

    const HWND self = Hwnd();
    const HTREEITEM handle = m_model.HandleOf(slot);
    NMTREEVIEW nm;
    nm.action = expand ? TVE_EXPAND : TVE_COLLAPSE;
    Describe(slot, nm.itemNew);
    LRESULT veto = 0;
    if (!Notify(nm.hdr, TVN_ITEMEXPANDING, &veto) || veto) return false;
    slot = Resolve(handle);
    if (slot == kNone) return false;

    InvalidateRowsChange(slot, !expand);
    if (expand) m_model.At(slot).state |= TVIS_EXPANDED;
    else m_model.At(slot).state &= ~TVIS_EXPANDED;
    m_model.RowsChanged();
    if (!expand) {
        // A caret hidden by the collapse moves up to the collapsed item.
        const Slot caret = Caret();
        if (caret != kNone && m_model.IsAncestor(slot, caret)) {
            SelectCaret(slot, TVC_UNKNOWN, false);
            if (!IsWindow(self)) return false;
            slot = Resolve(handle);
            if (slot == kNone) return true;
        }
    }
    Describe(slot, nm.itemNew);
    if (!Notify(nm.hdr, TVN_ITEMEXPANDED)) return false;
    if (byUser && expand && (slot = Resolve(handle)) != kNone) ShowChildren(slot);
    return true;
}

void TreeControl::ExpandSubtree(Slot slot)
{
    const HWND self = Hwnd();
    const HTREEITEM rootHandle = m_model.HandleOf(slot);
    for (Slot s = slot; s != kNone;) {
        const HTREEITEM handle = m_model.HandleOf(s);
        if (m_model.HasChildren(s)) Expand(s, TVE_EXPAND, false);
        if (!IsWindow(self)) return;
        const Slot root = Resolve(rootHandle);
        s = Resolve(handle);
        if (root == kNone || s == kNone) return;
        // Pre-order within the subtree.
        if (m_model.At(s).firstChild != kNone) {
            s = m_model.At(s).firstChild;
            continue;
        }
        while (s != root && m_model.At(s).next == kNone) s = m_model.At(s).parent;
        s = s == root ? kNone : m_model.At(s).next;
    }
}

void TreeControl::ShowChildren(Slot slot)
{
    const Metrics m = ComputeMetrics();
    Slot last = slot;
    while (m_model.At(last).lastChild != kNone && m_model.IsExpanded(last)) last = m_model.At(last).lastChild;
    const int row = m_model.RowOf(slot);
    const int lastRow = m_model.RowOf(last);
    const int top = TopIndex(m);
    if (row < 0 || lastRow < top + m.PageRows()) return;
    ScrollTo(std::min(lastRow - m.PageRows() + 1, row));
}

bool TreeControl::EnsureVisible(Slot slot)
{
    const HWND self = Hwnd();
    const HTREEITEM handle = m_model.HandleOf(slot);
    std::vector<HTREEITEM> collapsed;
    for (Slot s = m_model.At(slot).parent; m_model.IsItem(s); s = m_model.At(s).parent) {
        if (!m_model.IsExpanded(s)) collapsed.push_back(m_model.HandleOf(s));
    }
    for (auto it = collapsed.rbegin(); it != collapsed.rend(); ++it) {
        const Slot s = Resolve(*it);
        if (s != kNone) Expand(s, TVE_EXPAND, false);
        if (!IsWindow(self)) return false;
    }
    slot = Resolve(handle);
    if (slot == kNone) return false;
    const Metrics m = ComputeMetrics();
    const int row = m_model.RowOf(slot);
    if (row < 0) return false;  // an expansion was vetoed
    const int top = TopIndex(m);
    if (row < top) ScrollTo(row);
    else if (row >= top + m.PageRows()) ScrollTo(row - m.PageRows() + 1);
    return true;
}

// ---------------------------------------------------------------- scrolling

int TreeControl::TopIndex(const Metrics& m)
{
    const auto& rows = m_model.Rows();
    int index = m_topIndex;
    Slot top = Resolve(m_topItem);
    // An anchor hidden by a collapse gives way to its nearest shown ancestor.
    while (m_model.IsItem(top) && m_model.At(top).row < 0) top = m_model.At(top).parent;
    if (m_model.IsItem(top)) index = m_model.At(top).row;
    const int last = std::max(0, static_cast<int>(rows.size()) - m.PageRows());
    index = std::clamp(index, 0, last);
    const HTREEITEM before = m_topItem;
    m_topIndex = index;
    m_topItem = rows.empty() ? nullptr : m_model.HandleOf(rows[static_cast<size_t>(index)]);
    // Another row on top moves every row shown.
    if (before && m_topItem != before) InvalidateAll();
    return index;
}

void TreeControl::ScrollTo(int top)
{
    const Metrics m = ComputeMetrics();
    const int before = TopIndex(m);
    const auto& rows = m_model.Rows();
    const int last = std::max(0, static_cast<int>(rows.size()) - m.PageRows());
    top = std::clamp(top, 0, last);
    if (top == before) return;
    m_topIndex = top;
    m_topItem = m_model.HandleOf(rows[static_cast<size_t>(top)]);
    InvalidateAll();
    FitScrollBars();
}

void TreeControl::ScrollXTo(int x)
{
    const Metrics m = ComputeMetrics();
    x = std::clamp(x, 0, std::max(0, ContentWidth(m) - m.client.Width()));
    if (x == m_scrollX) return;
    m_scrollX = x;
    InvalidateAll();
    FitScrollBars();
}

void TreeControl::OnHScroll(UINT code, int position)
{
    const Metrics m = ComputeMetrics();
    switch (code) {
    case SB_LINEUP: ScrollXTo(m_scrollX - kHorizontalLine); break;
    case SB_LINEDOWN: ScrollXTo(m_scrollX + kHorizontalLine); break;
    case SB_PAGEUP: ScrollXTo(m_scrollX - m.client.Width()); break;
    case SB_PAGEDOWN: ScrollXTo(m_scrollX + m.client.Width()); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollXTo(position); break;
    case SB_TOP: ScrollXTo(0); break;
    case SB_BOTTOM: ScrollXTo(ContentWidth(m)); break;
    default: break;
    }
}

int TreeControl::ContentWidth(const Metrics& m)
{
    const auto& rows = m_model.Rows();
    if (m_contentWidthKnown && m_contentWidthRows == m_model.RowsGeneration()) return m_contentWidth;
    int widest = 0;
    for (Slot slot : rows) {
        const Item& item = m_model.At(slot);
        widest = std::max(widest, RowExtent(m, item.depth, TextWidth(m, item)));
    }
    m_contentWidth = widest;
    m_contentWidthKnown = true;
    m_contentWidthRows = m_model.RowsGeneration();
    return widest;
}

void TreeControl::FitScrollBars()
{
    const HWND self = Hwnd();
    const DWORD style = m_wnd->GetStyle();
    if (!IsWindow(self) || (style & TVS_NOSCROLL)) return;
    const Metrics m = ComputeMetrics();
    const int rows = static_cast<int>(m_model.Rows().size());
    const int width = ContentWidth(m);
    // A size that now shows more can leave the view scrolled past its content.
    const int top = TopIndex(m);
    ::FitScrollBars(self, true, !(style & TVS_NOHSCROLL), [&](const CRect& client) {
        Metrics trial = m;
        trial.client = client;
        ScrollNeeds needs;
        needs.vertical = {rows, trial.PageRows(), top};
        needs.horizontal = {width, client.Width(), m_scrollX};
        return needs;
    });
    // The bar keeps its position where a whole page fits; the rows follow it.
    if (!IsWindow(self)) return;
    const int x = (style & TVS_NOHSCROLL) ? 0 : ::GetScrollPos(self, SB_HORZ);
    if (x != m_scrollX) {
        m_scrollX = x;
        InvalidateAll();
    }
}

void TreeControl::OnVScroll(UINT code, int position)
{
    const Metrics m = ComputeMetrics();
    const int top = TopIndex(m);
    switch (code) {
    case SB_LINEUP: ScrollTo(top - 1); break;
    case SB_LINEDOWN: ScrollTo(top + 1); break;
    case SB_PAGEUP: ScrollTo(top - m.PageRows()); break;
    case SB_PAGEDOWN: ScrollTo(top + m.PageRows()); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollTo(position); break;
    case SB_TOP: ScrollTo(0); break;
    case SB_BOTTOM: ScrollTo(static_cast<int>(m_model.Rows().size())); break;
    default: break;
    }
}

void TreeControl::OnMouseWheel(int delta)
{
    const int notches = TakeWheelNotches(m_wheelRemainder, delta);
    if (notches) ScrollBy(-notches * kWheelScrollLines);
}

// ---------------------------------------------------------------- notifications

bool TreeControl::Notify(NMHDR& header, UINT code, LRESULT* result)
{
    return SendNotify(m_wnd, header, code, result);
}

bool TreeControl::NotifySimple(UINT code, LRESULT* result)
{
    NMHDR header;
    return Notify(header, code, result);
}

// ---------------------------------------------------------------- geometry

HGDIOBJ TreeControl::FontHandle() const
{
    const auto own = reinterpret_cast<HGDIOBJ>(m_wnd->CWnd::DefWindowProc(WM_GETFONT, 0, 0));
    return gdi::FontOr(own, DEFAULT_GUI_FONT);
}

Metrics TreeControl::ComputeMetrics() const
{
    Metrics m;
    m.style = m_wnd->GetStyle();
    m_wnd->GetClientRect(&m.client);
    m.font = gdi::MetricsOfHandle(FontHandle());
    int cx = 0, cy = 0;
    if (m_images && ImageList_GetIconSize(m_images, &cx, &cy)) m.imageCx = cx, m.imageCy = cy;
    if (m_stateImages && ImageList_GetIconSize(m_stateImages, &cx, &cy)) m.stateCx = cx, m.stateCy = cy;
    m.itemHeight = std::max({m.font.height + kTextVerticalSpace, m.imageCy + kImageVerticalSpace,
                             m.stateCy + kImageVerticalSpace});
    m.scrollX = m_scrollX;
    return m;
}

int TreeControl::TextWidth(const Metrics& m, const Item& item) const
{
    return gdi::TextWidth(m.font, item.text);
}

RowLayout TreeControl::Layout(const Metrics& m, Slot slot, int row, int top) const
{
    const Item& item = m_model.At(slot);
    return LayoutRow(m, m.RowTop(row, top), item.depth, TextWidth(m, item));
}

HTREEITEM TreeControl::HitTest(POINT pt, UINT* flags)
{
    UINT dummy = 0;
    if (!flags) flags = &dummy;
    const Metrics m = ComputeMetrics();
    UINT outside = 0;
    if (pt.x < m.client.left) outside |= TVHT_TOLEFT;
    else if (pt.x >= m.client.right) outside |= TVHT_TORIGHT;
    if (pt.y < m.client.top) outside |= TVHT_ABOVE;
    else if (pt.y >= m.client.bottom) outside |= TVHT_BELOW;
    if (outside) {
        *flags = outside;
        return nullptr;
    }
    const int top = TopIndex(m);
    const auto& rows = m_model.Rows();
    const int row = top + (pt.y - m.client.top) / m.itemHeight;
    if (row >= static_cast<int>(rows.size())) {
        *flags = TVHT_NOWHERE;
        return nullptr;
    }
    const Slot slot = rows[static_cast<size_t>(row)];
    *flags = HitRow(m, Layout(m, slot, row, top), m_model.HasChildren(slot), pt);
    return m_model.HandleOf(slot);
}

void TreeControl::InvalidateAll()
{
    if (Hwnd()) ::InvalidateRect(Hwnd(), nullptr, TRUE);
}

void TreeControl::InvalidateRows(Slot slot, bool toBottom)
{
    if (!m_model.IsItem(slot) || !Hwnd()) return;
    if (!m_model.RowsCurrent()) {
        // Finding the row would rebuild the rows for every change in a batch.
        if (m_model.IsVisible(slot)) InvalidateAll();
        return;
    }
    const int row = m_model.At(slot).row;
    if (row < 0) return;
    const Metrics m = ComputeMetrics();
    const int y = m.RowTop(row, TopIndex(m));
    CRect area(m.client.left, y, m.client.right, toBottom ? m.client.bottom : y + m.itemHeight);
    if (area.IntersectRect(area, m.client)) ::InvalidateRect(Hwnd(), &area, TRUE);
}

void TreeControl::InvalidateRowsChange(Slot slot, bool shrinking)
{
    // Fewer rows can pull a scrolled view back to keep the last page full,
    // which moves the rows above the item too.
    if (shrinking && (!m_model.RowsCurrent() || TopIndex() > 0)) InvalidateAll();
    else InvalidateFrom(slot);
}

}  // namespace tree
