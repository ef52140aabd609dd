// A docking pane that hosts one view: creates it with the pane, keeps it one
// pixel inside the pane, draws that pixel as a frame, and passes focus and
// context-menu requests on to it. The nine panes differ only in their view
// and in which size they lay it out by, so they share this one message map.
#pragma once

#include "panes/pane_view.h"
#include "platform/docking/bcgp_docking_control_bar.h"

enum class PaneSizing {
    ClientRect,   // the pane's client rectangle, read at each size change
    MessageSize,  // the width and height the size message carries
};

template <class View, PaneSizing sizing>
class CViewPane : public CBCGPDockingControlBar {
public:
    // The view's window, for the host's messages; null until the pane is created.
    HWND GetViewHwnd() const { return m_view.GetSafeHwnd(); }

protected:
    CViewPane() = default;
    ~CViewPane() override = default;

    static const AFX_MSGMAP* GetThisMessageMap()
    {
        using ThisClass [[maybe_unused]] = CViewPane;
        using TheBaseClass = CBCGPDockingControlBar;
        static const AFX_MSGMAP_ENTRY entries[] = {
            ON_WM_CREATE() ON_WM_PAINT() ON_WM_SIZE() ON_WM_CONTEXTMENU() ON_WM_SETFOCUS() {0, 0, 0, 0, nullptr}};
        static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries};
        return &map;
    }
    const AFX_MSGMAP* GetMessageMap() const override { return GetThisMessageMap(); }

    int OnCreate(LPCREATESTRUCT lpCreateStruct)
    {
        if (CBCGPDockingControlBar::OnCreate(lpCreateStruct) == -1) return -1;
        // A pane without its view has nothing to show: refuse to exist.
        return m_view.Create(this) ? 0 : -1;
    }

    void OnPaint() { PaneView::PaintFrame(*this, m_view); }

    void OnSize(UINT nType, int cx, int cy)
    {
        CBCGPBaseControlBar::OnSize(nType, cx, cy);
        if (!m_view.GetSafeHwnd()) return;
        if constexpr (sizing == PaneSizing::ClientRect) {
            PaneView::FitToClient(*this, m_view);
        } else {
            PaneView::FitToSize(m_view, cx, cy);
        }
    }

    void OnContextMenu(CWnd*, CPoint point) { m_view.ShowMenu(point); }

    void OnSetFocus(CWnd* pOldWnd)
    {
        CBCGPDockingControlBar::OnSetFocus(pOldWnd);
        m_view.SetFocus();
    }

    View m_view;
};
