// The scroll bar state of each window and the calls that read and change it.
#include "platform/core/scroll_bar.h"

#include "platform/core/messages.h"
#include "platform/core/window_frame.h"
#include "platform/core/window_registry.h"
#include "platform/core/wnd.h"

namespace {

DWORD StyleOf(int bar)
{
    return bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
}

CSize ClientSize(const WindowData& data)
{
    const CRect client = FrameOf(data).client;
    return CSize(client.Width(), client.Height());
}

// Shows or hides a bar; true when that changed.
bool SetShown(WindowData* data, int bar, bool show)
{
    const DWORD style = StyleOf(bar);
    if (((data->style & style) != 0) == show) return false;
    if (show) data->style |= style;
    else data->style &= ~style;
    data->frameNeeded = true;
    return true;
}

// A client that changed size hears of it, and its parent repaints the area.
void AfterFrameChange(HWND hwnd, CSize before)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return;
    const CSize after = ClientSize(*data);
    ::InvalidateRect(hwnd, nullptr, TRUE);
    if (after != before) ::SendMessage(hwnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(after.cx, after.cy));
}

// Applies info to a bar without telling the window; true when the bar was
// shown or hidden.
bool Apply(WindowData* data, int bar, const SCROLLINFO& info, BOOL redraw)
{
    ScrollBarState& s = *ScrollBarOf(data->handle, bar);
    const ScrollBarState before = s;
    if (info.fMask & SIF_RANGE) {
        s.min = info.nMin;
        s.max = std::max(info.nMin, info.nMax);
    }
    if (info.fMask & SIF_PAGE) s.page = info.nPage;
    // The page never exceeds the range, and the position stays where a whole
    // page fits.
    s.page = static_cast<UINT>(std::min<long long>(s.page, s.Range()));
    if (info.fMask & SIF_POS) s.pos = info.nPos;
    s.pos = std::clamp(s.pos, s.min, s.MaxPos());
    bool changedShown = false;
    if (info.fMask & (SIF_RANGE | SIF_PAGE)) {
        const bool keep = (info.fMask & SIF_DISABLENOSCROLL) && (data->style & StyleOf(bar));
        changedShown = SetShown(data, bar, s.Needed() || keep);
    }
    const bool moved = s.min != before.min || s.max != before.max || s.page != before.page || s.pos != before.pos;
    if (moved && redraw) data->frameNeeded = true;
    return changedShown;
}

}  // namespace

ScrollBarState* ScrollBarOf(HWND hwnd, int bar)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return nullptr;
    if (bar == SB_VERT) return &data->vertical;
    if (bar == SB_HORZ) return &data->horizontal;
    return nullptr;
}

int SetScrollInfo(HWND hwnd, int bar, LPCSCROLLINFO info, BOOL redraw)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!ScrollBarOf(hwnd, bar) || !info) return 0;
    const CSize before = ClientSize(*data);
    const bool reframed = Apply(data, bar, *info, redraw);
    const int pos = ScrollBarOf(hwnd, bar)->pos;
    if (reframed) AfterFrameChange(hwnd, before);
    return pos;
}

BOOL GetScrollInfo(HWND hwnd, int bar, LPSCROLLINFO info)
{
    const ScrollBarState* s = ScrollBarOf(hwnd, bar);
    if (!s || !info) return FALSE;
    if (info->fMask & SIF_RANGE) info->nMin = s->min, info->nMax = s->max;
    if (info->fMask & SIF_PAGE) info->nPage = s->page;
    if (info->fMask & SIF_POS) info->nPos = s->pos;
    if (info->fMask & SIF_TRACKPOS) info->nTrackPos = s->tracking ? s->trackPos : s->pos;
    return TRUE;
}

int GetScrollPos(HWND hwnd, int bar)
{
    const ScrollBarState* s = ScrollBarOf(hwnd, bar);
    return s ? s->pos : 0;
}

int SetScrollPos(HWND hwnd, int bar, int pos, BOOL redraw)
{
    const int before = GetScrollPos(hwnd, bar);
    SCROLLINFO info;
    info.fMask = SIF_POS;
    info.nPos = pos;
    SetScrollInfo(hwnd, bar, &info, redraw);
    return before;
}

BOOL GetScrollRange(HWND hwnd, int bar, int* minPos, int* maxPos)
{
    const ScrollBarState* s = ScrollBarOf(hwnd, bar);
    if (!s || !minPos || !maxPos) return FALSE;
    *minPos = s->min;
    *maxPos = s->max;
    return TRUE;
}

BOOL SetScrollRange(HWND hwnd, int bar, int minPos, int maxPos, BOOL redraw)
{
    if (!ScrollBarOf(hwnd, bar)) return FALSE;
    SCROLLINFO info;
    info.fMask = SIF_RANGE;
    info.nMin = minPos;
    info.nMax = maxPos;
    SetScrollInfo(hwnd, bar, &info, redraw);
    return TRUE;
}

BOOL ShowScrollBar(HWND hwnd, int bar, BOOL show)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || bar < SB_HORZ || bar > SB_BOTH || bar == SB_CTL) return FALSE;
    const CSize before = ClientSize(*data);
    bool reframed = false;
    if (bar == SB_VERT || bar == SB_BOTH) reframed |= SetShown(data, SB_VERT, show != FALSE);
    if (bar == SB_HORZ || bar == SB_BOTH) reframed |= SetShown(data, SB_HORZ, show != FALSE);
    if (reframed) AfterFrameChange(hwnd, before);
    return TRUE;
}

void FitScrollBars(HWND hwnd, bool allowVertical, bool allowHorizontal,
                   const std::function<ScrollNeeds(const CRect& client)>& measure)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !measure) return;
    // A bar only ever takes room, so needing one can only make the other
    // needed too: starting with none, this settles within three rounds.
    DWORD trial = data->style & ~(WS_VSCROLL | WS_HSCROLL);
    ScrollNeeds needs;
    for (int round = 0; round < 4; ++round) {
        const CRect client = FrameOf(data->rect, trial, data->exStyle).client;
        needs = measure(CRect(0, 0, client.Width(), client.Height()));
        const bool vertical = allowVertical && needs.vertical.total > needs.vertical.page;
        const bool horizontal = allowHorizontal && needs.horizontal.total > needs.horizontal.page;
        const DWORD style = (data->style & ~(WS_VSCROLL | WS_HSCROLL)) | (vertical ? WS_VSCROLL : 0) | (horizontal ? WS_HSCROLL : 0);
        if (style == trial) break;
        trial = style;
    }

    const CSize before = ClientSize(*data);
    bool reframed = false;
    const auto apply = [&](int bar, bool allowed, const ScrollNeed& need) {
        if (!allowed) return;
        SCROLLINFO info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMin = 0;
        info.nMax = std::max(0, need.total - 1);
        info.nPage = static_cast<UINT>(std::max(0, need.page));
        info.nPos = need.pos;
        reframed |= Apply(data, bar, info, TRUE);
    };
    apply(SB_VERT, allowVertical, needs.vertical);
    apply(SB_HORZ, allowHorizontal, needs.horizontal);
    if (reframed) AfterFrameChange(hwnd, before);
}

int ScrollRequestPosition(HWND hwnd, UINT message, WPARAM wParam)
{
    const ScrollBarState* s = ScrollBarOf(hwnd, message == WM_VSCROLL ? SB_VERT : SB_HORZ);
    return s && s->tracking ? s->trackPos : static_cast<short>(HIWORD(wParam));
}

// ---------------------------------------------------------------- CWnd members

int CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw) { return ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw); }

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask) const
{
    if (!lpScrollInfo) return FALSE;
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

int CWnd::GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }
int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw); }

void CWnd::GetScrollRange(int nBar, int* lpMinPos, int* lpMaxPos) const
{
    ::GetScrollRange(m_hWnd, nBar, lpMinPos, lpMaxPos);
}

void CWnd::SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw) { ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw); }
void CWnd::ShowScrollBar(UINT nBar, BOOL bShow) { ::ShowScrollBar(m_hWnd, static_cast<int>(nBar), bShow); }
