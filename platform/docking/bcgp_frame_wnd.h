// The docking library's main frame: a host derives its main frame from it,
// creates its bars as children of the frame and docks them. The frame lays
// the bars out in three regions around a central view (see dock_layout.h for
// the arrangement), draws a caption above each group of bars and a tab strip
// under each group of several, and lets the user drag the splitters between
// regions, groups and the centre. The host keeps ownership of its bars and
// of the central view; the frame only moves, shows and hides them.
#pragma once

#include "platform/docking/bcgp_docking_control_bar.h"
#include "platform/docking/dock_groups.h"
#include "platform/docking/frame_wnd.h"

class CDC;

class AFX_EXT_CLASS CBCGPFrameWnd : public CFrameWnd {
public:
    CBCGPFrameWnd();
    ~CBCGPFrameWnd() override;

    // Docks a created bar at the end of a region as a group of its own. A bar
    // already docked, not created or not a child of this frame is left alone.
    void DockControlBar(CBCGPDockingControlBar* bar, DockRegion region);
    // Adds bar as the last tab of the group of `with` (already docked). The
    // group's shown bar stays shown; the new one is hidden until ShowTab.
    void AttachToTabs(CBCGPDockingControlBar* bar, CBCGPDockingControlBar* with);
    // Makes bar the shown tab of its group; the others are hidden with their
    // state intact. Focus inside a bar being hidden moves to the shown one.
    void ShowTab(CBCGPDockingControlBar* bar);
    bool IsTabShown(const CBCGPDockingControlBar* bar) const;
    // The window filling what the regions leave (the host's document area);
    // a child of this frame, or null for none.
    void SetCentralView(CWnd* view);
    // Region thickness: the width of left and right, the height of bottom.
    // Clamped to at least kMinRegion and to what leaves the centre
    // kMinCentre; a client made smaller later lays the region out thinner
    // while the size asked for is kept.
    void SetRegionSize(DockRegion region, int pixels);
    // The share of the region's length that the bar's group takes, relative
    // to its neighbours' (each group starts with the same share). Zero or
    // less, or a bar not docked, changes nothing.
    void SetGroupShare(const CBCGPDockingControlBar* bar, int share);
    int GetRegionSize(DockRegion region) const;
    void RecalcLayout();

    // Geometry in client coordinates; empty for a bar or region not docked.
    CRect CaptionRect(const CBCGPDockingControlBar* bar) const;   // the caption of the bar's group
    CRect TabRect(const CBCGPDockingControlBar* bar) const;       // empty when its group has one bar
    CRect RegionSplitterRect(DockRegion region) const;            // between a region and the centre
    CRect GroupSplitterRect(DockRegion region, int index) const;  // between group index and index+1

protected:
    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnDestroy();
    void OnSize(UINT nType, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* pDC);
    void OnPaint();
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);

private:
    // A splitter the user is dragging: the region's, or the one after group `group`.
    struct SplitterDrag {
        size_t region = 0;
        int group = -1;  // -1: the region's own splitter
        CPoint start;
        int before = 0;  // the region's thickness, or the lengths of the two groups
        int after = 0;
    };

    // Checks shared by the docking calls: a live bar, child of this frame.
    bool IsOurBar(const CBCGPDockingControlBar* bar) const;
    const docklayout::GroupRects* GroupOf(const CBCGPDockingControlBar* bar) const;
    docklayout::LayoutRequest MakeRequest() const;
    void PlaceWindows() const;
    void InvalidateGroup(const std::optional<docklayout::BarPlace>& place, bool tabsToo);

    // Mouse (bcgp_frame_wnd_mouse.cpp).
    // The group whose part (its caption, its tab strip) lies under a point; tab 0.
    std::optional<docklayout::BarPlace> GroupHit(CPoint point, CRect docklayout::GroupRects::*part) const;
    bool BeginSplitterDrag(CPoint point);
    void DragSplitterTo(CPoint point);
    bool ClickTab(CPoint point);
    bool ClickCaption(CPoint point);
    // Focus (bcgp_frame_wnd_mouse.cpp): repaints the captions it left and entered.
    void OnFocusMoved(HWND gained);

    // Painting (bcgp_frame_wnd_paint.cpp).
    void PaintCaption(CDC& dc, const docklayout::GroupRects& rects, const docklayout::DockGroup& group, bool active) const;
    void PaintTabs(CDC& dc, const docklayout::GroupRects& rects, const docklayout::DockGroup& group) const;
    void PaintSplitter(CDC& dc, const CRect& splitter) const;

    docklayout::DockGroups m_groups;
    docklayout::Layout m_layout;
    std::array<int, docklayout::kRegionCount> m_thickness{docklayout::kDefaultSideWidth, docklayout::kDefaultSideWidth,
                                                          docklayout::kDefaultBottomHeight};
    HWND m_central = nullptr;
    std::optional<SplitterDrag> m_drag;
    std::optional<docklayout::BarPlace> m_active;  // the group holding the focus
    int m_focusWatch = 0;
};
