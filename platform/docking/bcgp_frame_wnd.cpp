// The frame's docking calls and its layout: which bars are where, and moving
// them (and the central view) to the rectangles the geometry gives.
#include "platform/docking/bcgp_frame_wnd.h"

#include "platform/core/focus_watch.h"
#include "platform/gdi/dc.h"

using docklayout::BarPlace;
using docklayout::DockGroup;
using docklayout::GroupRects;
using docklayout::Index;
using docklayout::kRegionCount;

BEGIN_MESSAGE_MAP(CBCGPFrameWnd, CFrameWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONUP()
    ON_MESSAGE(WM_CAPTURECHANGED, &CBCGPFrameWnd::OnCaptureChanged)
END_MESSAGE_MAP()

namespace {

bool IsRegion(DockRegion region)
{
    return Index(region) < kRegionCount;
}

// The window's rectangle in its parent's client coordinates.
CRect RectInParent(HWND window)
{
    CRect rect;
    ::GetWindowRect(window, &rect);
    POINT corners[2] = {{rect.left, rect.top}, {rect.right, rect.bottom}};
    ::ScreenToClient(::GetParent(window), &corners[0]);
    ::ScreenToClient(::GetParent(window), &corners[1]);
    return CRect(corners[0].x, corners[0].y, corners[1].x, corners[1].y);
}

// Moves a window only when it is not already there: a move sizes and repaints it.
void Place(HWND window, const CRect& rect)
{
    CWnd* wnd = CWnd::FromHandle(window);
    if (wnd && RectInParent(window) != rect) wnd->MoveWindow(&rect, TRUE);
}

}  // namespace

CBCGPFrameWnd::CBCGPFrameWnd() = default;

CBCGPFrameWnd::~CBCGPFrameWnd()
{
    // The base destroys the window after this object is gone: stop listening first.
    if (m_focusWatch) FocusWatch::Remove(m_focusWatch);
}

int CBCGPFrameWnd::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CFrameWnd::OnCreate(lpCreateStruct) == -1) return -1;
    m_focusWatch = FocusWatch::Add([this](HWND, HWND gained) { OnFocusMoved(gained); });
    return 0;
}

void CBCGPFrameWnd::OnDestroy()
{
    FocusWatch::Remove(m_focusWatch);
    m_focusWatch = 0;
    CFrameWnd::OnDestroy();
}

void CBCGPFrameWnd::OnSize(UINT nType, int cx, int cy)
{
    CFrameWnd::OnSize(nType, cx, cy);
    RecalcLayout();
}

bool CBCGPFrameWnd::IsOurBar(const CBCGPDockingControlBar* bar) const
{
    return bar && m_hWnd && ::IsWindow(bar->GetSafeHwnd()) && ::GetParent(bar->GetSafeHwnd()) == m_hWnd;
}

void CBCGPFrameWnd::DockControlBar(CBCGPDockingControlBar* bar, DockRegion region)
{
    if (!IsRegion(region) || !IsOurBar(bar) || m_groups.Find(bar->GetSafeHwnd())) return;
    m_groups.AddGroup(Index(region), bar->GetSafeHwnd());
    bar->ShowWindow(SW_SHOW);
    RecalcLayout();
}

void CBCGPFrameWnd::AttachToTabs(CBCGPDockingControlBar* bar, CBCGPDockingControlBar* with)
{
    if (!IsOurBar(bar) || !with || m_groups.Find(bar->GetSafeHwnd())) return;
    const std::optional<BarPlace> place = m_groups.Find(with->GetSafeHwnd());
    if (!place) return;
    m_groups.Region(place->region)[place->group].bars.push_back(bar->GetSafeHwnd());
    bar->ShowWindow(SW_HIDE);
    RecalcLayout();
}

void CBCGPFrameWnd::SetGroupShare(const CBCGPDockingControlBar* bar, int share)
{
    if (!IsOurBar(bar) || share <= 0) return;
    const std::optional<BarPlace> place = m_groups.Find(bar->GetSafeHwnd());
    if (!place) return;
    m_groups.Region(place->region)[place->group].weight = share;
    RecalcLayout();
}

void CBCGPFrameWnd::ShowTab(CBCGPDockingControlBar* bar)
{
    if (!IsOurBar(bar)) return;
    const std::optional<BarPlace> place = m_groups.Find(bar->GetSafeHwnd());
    if (!place) return;
    DockGroup& group = m_groups.Region(place->region)[place->group];
    const HWND focus = ::GetFocus();
    bool focusHidden = false;
    group.shown = place->tab;
    bar->ShowWindow(SW_SHOW);
    for (HWND other : group.bars) {
        if (other == bar->GetSafeHwnd()) continue;
        CWnd* wnd = CWnd::FromHandle(other);
        if (!wnd) continue;
        focusHidden = focusHidden || other == focus || wnd->IsChild(CWnd::FromHandle(focus));
        wnd->ShowWindow(SW_HIDE);
    }
    // A hidden window must not keep the keys.
    if (focusHidden) bar->SetFocus();
    RecalcLayout();
    InvalidateGroup(place, true);
}

bool CBCGPFrameWnd::IsTabShown(const CBCGPDockingControlBar* bar) const
{
    const std::optional<BarPlace> place = bar ? m_groups.Find(bar->GetSafeHwnd()) : std::nullopt;
    return place && m_groups.Region(place->region)[place->group].shown == place->tab;
}

void CBCGPFrameWnd::SetCentralView(CWnd* view)
{
    const HWND hwnd = view ? view->GetSafeHwnd() : nullptr;
    if (view && (!m_hWnd || !::IsWindow(hwnd) || ::GetParent(hwnd) != m_hWnd)) return;
    m_central = hwnd;
    RecalcLayout();
    // The centre's look changes even when no rectangle does.
    if (m_hWnd) InvalidateRect(&m_layout.centre, FALSE);
}

void CBCGPFrameWnd::SetRegionSize(DockRegion region, int pixels)
{
    if (!IsRegion(region)) return;
    // Before the frame exists there is no client to clamp against.
    m_thickness[Index(region)] = m_hWnd ? docklayout::ClampThickness(MakeRequest(), region, pixels) : std::max(pixels, docklayout::kMinRegion);
    RecalcLayout();
}

int CBCGPFrameWnd::GetRegionSize(DockRegion region) const
{
    return IsRegion(region) ? m_thickness[Index(region)] : 0;
}

docklayout::LayoutRequest CBCGPFrameWnd::MakeRequest() const
{
    docklayout::LayoutRequest request;
    CRect client;
    if (m_hWnd) GetClientRect(&client);
    request.client = client.Size();
    request.thickness = m_thickness;
    m_groups.Describe(request);
    return request;
}

void CBCGPFrameWnd::RecalcLayout()
{
    if (!m_hWnd) return;
    if (m_groups.Prune()) {
        // Indices into the groups may have moved, so a drag ends; a group
        // that lost its shown bar shows another.
        if (m_drag && ::GetCapture() == m_hWnd) ::ReleaseCapture();
        m_drag.reset();
        m_active = m_groups.FindContaining(::GetFocus(), m_hWnd);
        for (size_t r = 0; r < kRegionCount; ++r)
            for (const DockGroup& group : m_groups.Region(r))
                if (CWnd* shown = CWnd::FromHandle(group.Shown())) shown->ShowWindow(SW_SHOW);
    }
    docklayout::Layout layout = docklayout::Compute(MakeRequest());
    const bool changed = !(layout == m_layout);
    m_layout = std::move(layout);
    PlaceWindows();
    if (changed) Invalidate(FALSE);
}

void CBCGPFrameWnd::PlaceWindows() const
{
    for (size_t r = 0; r < kRegionCount; ++r) {
        const std::vector<DockGroup>& groups = m_groups.Region(r);
        const std::vector<GroupRects>& rects = m_layout.regions[r].groups;
        for (size_t g = 0; g < groups.size() && g < rects.size(); ++g)
            for (HWND bar : groups[g].bars) Place(bar, rects[g].body);
    }
    if (::IsWindow(m_central)) Place(m_central, m_layout.centre);
}

const GroupRects* CBCGPFrameWnd::GroupOf(const CBCGPDockingControlBar* bar) const
{
    const std::optional<BarPlace> place = bar ? m_groups.Find(bar->GetSafeHwnd()) : std::nullopt;
    if (!place) return nullptr;
    const std::vector<GroupRects>& rects = m_layout.regions[place->region].groups;
    return place->group < rects.size() ? &rects[place->group] : nullptr;
}

CRect CBCGPFrameWnd::CaptionRect(const CBCGPDockingControlBar* bar) const
{
    const GroupRects* rects = GroupOf(bar);
    return rects ? rects->caption : CRect();
}

CRect CBCGPFrameWnd::TabRect(const CBCGPDockingControlBar* bar) const
{
    const GroupRects* rects = GroupOf(bar);
    if (!rects || rects->tabs < 2) return CRect();
    const std::optional<BarPlace> place = m_groups.Find(bar->GetSafeHwnd());
    return docklayout::TabRect(rects->tabStrip, rects->tabs, static_cast<int>(place->tab));
}

CRect CBCGPFrameWnd::RegionSplitterRect(DockRegion region) const
{
    return IsRegion(region) ? m_layout.regions[Index(region)].splitter : CRect();
}

CRect CBCGPFrameWnd::GroupSplitterRect(DockRegion region, int index) const
{
    if (!IsRegion(region) || index < 0) return CRect();
    const std::vector<GroupRects>& rects = m_layout.regions[Index(region)].groups;
    return static_cast<size_t>(index) < rects.size() ? rects[static_cast<size_t>(index)].splitter : CRect();
}

void CBCGPFrameWnd::InvalidateGroup(const std::optional<BarPlace>& place, bool tabsToo)
{
    if (!place || !m_hWnd) return;
    const std::vector<GroupRects>& rects = m_layout.regions[place->region].groups;
    if (place->group >= rects.size()) return;
    InvalidateRect(&rects[place->group].caption, FALSE);
    if (tabsToo && !rects[place->group].tabStrip.IsRectEmpty()) InvalidateRect(&rects[place->group].tabStrip, FALSE);
}
