// What the user does to the frame itself: drags a splitter (the frame gets
// the press because no child covers the strip, then holds the capture until
// the release), clicks a tab or a caption, and moves the focus between bars,
// which repaints the captions that mark where it is.
#include <algorithm>

#include "platform/docking/bcgp_frame_wnd.h"

using docklayout::BarPlace;
using docklayout::DockGroup;
using docklayout::GroupRects;
using docklayout::Index;
using docklayout::kRegionCount;

namespace {

bool Across(size_t region)
{
    return region == Index(DockRegion::Bottom);
}

// A group's length along its region's stacking direction.
int Length(const GroupRects& rects, size_t region)
{
    return Across(region) ? rects.group.Width() : rects.group.Height();
}

}  // namespace

void CBCGPFrameWnd::OnLButtonDown(UINT nFlags, CPoint point)
{
    if (BeginSplitterDrag(point) || ClickTab(point) || ClickCaption(point)) return;
    CFrameWnd::OnLButtonDown(nFlags, point);
}

void CBCGPFrameWnd::OnMouseMove(UINT nFlags, CPoint point)
{
    if (m_drag) {
        DragSplitterTo(point);
        return;
    }
    CFrameWnd::OnMouseMove(nFlags, point);
}

void CBCGPFrameWnd::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (m_drag) {
        DragSplitterTo(point);
        m_drag.reset();
        ::ReleaseCapture();
        return;
    }
    CFrameWnd::OnLButtonUp(nFlags, point);
}

LRESULT CBCGPFrameWnd::OnCaptureChanged(WPARAM, LPARAM)
{
    // Whoever took the mouse ended the drag where it stood.
    m_drag.reset();
    return 0;
}

bool CBCGPFrameWnd::BeginSplitterDrag(CPoint point)
{
    for (size_t r = 0; r < kRegionCount; ++r) {
        const docklayout::RegionRects& region = m_layout.regions[r];
        if (region.splitter.PtInRect(point)) {
            const int thickness = Across(r) ? region.region.Height() : region.region.Width();
            m_drag = SplitterDrag{r, -1, point, thickness, 0};
        }
        for (size_t g = 0; !m_drag && g + 1 < region.groups.size(); ++g) {
            if (region.groups[g].splitter.PtInRect(point))
                m_drag = SplitterDrag{r, static_cast<int>(g), point, Length(region.groups[g], r), Length(region.groups[g + 1], r)};
        }
        if (m_drag) break;
    }
    if (m_drag) SetCapture();
    return m_drag.has_value();
}

void CBCGPFrameWnd::DragSplitterTo(CPoint point)
{
    const SplitterDrag drag = *m_drag;
    if (drag.group < 0) {
        // The region grows towards the centre: rightwards for the left one, leftwards and upwards for the others.
        const DockRegion region = static_cast<DockRegion>(drag.region);
        const int delta = region == DockRegion::Left ? point.x - drag.start.x
                          : region == DockRegion::Right ? drag.start.x - point.x
                                                        : drag.start.y - point.y;
        SetRegionSize(region, drag.before + delta);
        return;
    }
    std::vector<DockGroup>& groups = m_groups.Region(drag.region);
    const std::vector<GroupRects>& rects = m_layout.regions[drag.region].groups;
    const size_t g = static_cast<size_t>(drag.group);
    const int total = drag.before + drag.after;
    const int moved = Across(drag.region) ? point.x - drag.start.x : point.y - drag.start.y;
    if (g + 1 >= groups.size() || groups.size() != rects.size() || total < 2 * docklayout::kMinGroup) return;
    // Shares become the lengths on screen, so the other groups keep theirs.
    for (size_t i = 0; i < groups.size(); ++i) groups[i].weight = Length(rects[i], drag.region);
    groups[g].weight = std::clamp(drag.before + moved, docklayout::kMinGroup, total - docklayout::kMinGroup);
    groups[g + 1].weight = total - groups[g].weight;
    RecalcLayout();
}

std::optional<BarPlace> CBCGPFrameWnd::GroupHit(CPoint point, CRect GroupRects::*part) const
{
    for (size_t r = 0; r < kRegionCount; ++r) {
        const std::vector<GroupRects>& rects = m_layout.regions[r].groups;
        const size_t count = std::min(rects.size(), m_groups.Region(r).size());
        for (size_t g = 0; g < count; ++g)
            if ((rects[g].*part).PtInRect(point)) return BarPlace{r, g, 0};
    }
    return std::nullopt;
}

bool CBCGPFrameWnd::ClickTab(CPoint point)
{
    const std::optional<BarPlace> hit = GroupHit(point, &GroupRects::tabStrip);
    if (!hit) return false;
    const GroupRects& rects = m_layout.regions[hit->region].groups[hit->group];
    const DockGroup& group = m_groups.Region(hit->region)[hit->group];
    const int tab = docklayout::TabAt(rects.tabStrip, rects.tabs, point);
    // A click on the strip beside the tabs is the strip's all the same.
    if (tab < 0 || static_cast<size_t>(tab) >= group.bars.size()) return true;
    if (auto* bar = dynamic_cast<CBCGPDockingControlBar*>(CWnd::FromHandle(group.bars[static_cast<size_t>(tab)]))) {
        ShowTab(bar);
        bar->SetFocus();
    }
    return true;
}

bool CBCGPFrameWnd::ClickCaption(CPoint point)
{
    const std::optional<BarPlace> hit = GroupHit(point, &GroupRects::caption);
    if (!hit) return false;
    if (CWnd* shown = CWnd::FromHandle(m_groups.Region(hit->region)[hit->group].Shown())) shown->SetFocus();
    return true;
}

void CBCGPFrameWnd::OnFocusMoved(HWND gained)
{
    const std::optional<BarPlace> now = m_groups.FindContaining(gained, m_hWnd);
    if (now == m_active) return;
    InvalidateGroup(m_active, false);
    m_active = now;
    InvalidateGroup(m_active, false);
}
