// A window's standard scroll bars: SetScrollInfo and friends with the
// platform's rules. A bar shows while its window's style has WS_VSCROLL or
// WS_HSCROLL, and takes its thickness from the client area. Setting a range
// with nothing to scroll hides the bar (unless SIF_DISABLENOSCROLL); setting
// one with something to scroll shows it. A change of the client's size
// sends WM_SIZE.
//
// The user drives a bar through the input layer: a press on an arrow sends
// WM_VSCROLL/WM_HSCROLL with SB_LINEUP/SB_LINEDOWN, on the track
// SB_PAGEUP/SB_PAGEDOWN, and dragging the thumb sends SB_THUMBTRACK at each
// new position, then SB_THUMBPOSITION on release; every press ends with
// SB_ENDSCROLL. During a drag SIF_TRACKPOS gives the full 32-bit position.
#pragma once

#include <functional>

#include "platform/core/win_types.h"

constexpr int SB_HORZ = 0;
constexpr int SB_VERT = 1;
constexpr int SB_CTL = 2;
constexpr int SB_BOTH = 3;

constexpr UINT SIF_RANGE = 0x0001;
constexpr UINT SIF_PAGE = 0x0002;
constexpr UINT SIF_POS = 0x0004;
constexpr UINT SIF_DISABLENOSCROLL = 0x0008;
constexpr UINT SIF_TRACKPOS = 0x0010;
constexpr UINT SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS;

struct SCROLLINFO {
    UINT cbSize = sizeof(SCROLLINFO);
    UINT fMask = 0;
    int nMin = 0;
    int nMax = 0;
    UINT nPage = 0;
    int nPos = 0;
    int nTrackPos = 0;
};
using LPSCROLLINFO = SCROLLINFO*;
using LPCSCROLLINFO = const SCROLLINFO*;

// Returns the bar's position after the change; 0 for a bad window or bar.
AFX_API int SetScrollInfo(HWND hwnd, int bar, LPCSCROLLINFO info, BOOL redraw);
AFX_API BOOL GetScrollInfo(HWND hwnd, int bar, LPSCROLLINFO info);
AFX_API int GetScrollPos(HWND hwnd, int bar);
AFX_API int SetScrollPos(HWND hwnd, int bar, int pos, BOOL redraw);
AFX_API BOOL GetScrollRange(HWND hwnd, int bar, int* minPos, int* maxPos);
AFX_API BOOL SetScrollRange(HWND hwnd, int bar, int minPos, int maxPos, BOOL redraw);
AFX_API BOOL ShowScrollBar(HWND hwnd, int bar, BOOL show);

// What a control's content needs of one bar, in the control's own units
// (lines, items or pixels): the bar shows when total exceeds page.
struct ScrollNeed {
    int total = 0;
    int page = 0;
    int pos = 0;
};
struct ScrollNeeds {
    ScrollNeed vertical;
    ScrollNeed horizontal;
};

// Shows, hides and sets both bars of a control at once. `measure` answers
// what the content needs for a candidate client rectangle; since a bar
// shown takes room from the other direction, the bars are settled together
// before anything changes, and WM_SIZE is sent once if the client changed.
// allowVertical/allowHorizontal: whether the control uses that bar at all.
AFX_API void FitScrollBars(HWND hwnd, bool allowVertical, bool allowHorizontal,
                           const std::function<ScrollNeeds(const CRect& client)>& measure);

// The position a WM_VSCROLL/WM_HSCROLL request to hwnd carries: the full
// 32-bit track position while the user drags that bar, else the message's
// own signed 16 bits.
AFX_API int ScrollRequestPosition(HWND hwnd, UINT message, WPARAM wParam);
