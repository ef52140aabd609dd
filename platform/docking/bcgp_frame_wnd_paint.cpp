// The frame's own pixels: the face colour behind everything, the document
// area when no view covers it, and each group's caption, tab strip and
// splitters. Only what the update area touches is drawn.
#include "platform/core/paint_dc.h"
#include "platform/docking/bcgp_frame_wnd.h"
#include "platform/gdi/sys_color.h"

using docklayout::DockGroup;
using docklayout::GroupRects;

namespace {

constexpr int kCaptionTextIndent = 4;  // keeps the title off the caption's left edge
constexpr int kTabTextPadding = 4;     // keeps a title clear of its tab's edges
constexpr int kShownTabGap = 2;        // the shown tab stops short of the strip's bottom, like a lifted card
constexpr int kTabSeparatorInset = 4;  // separators between hidden tabs leave the strip's edges free

constexpr UINT kTitleFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

bool Touches(const CRect& area, const CRect& dirty)
{
    CRect overlap;
    return overlap.IntersectRect(area, dirty);
}

void DrawTitle(CDC& dc, HWND bar, CRect rect, UINT align)
{
    const CWnd* wnd = CWnd::FromHandle(bar);
    if (!wnd || rect.IsRectEmpty()) return;
    CString title;
    wnd->GetWindowText(title);
    dc.DrawText(title, &rect, kTitleFormat | align);
}

}  // namespace

BOOL CBCGPFrameWnd::OnEraseBkgnd(CDC*)
{
    // The paint fills every pixel it owns.
    return TRUE;
}

void CBCGPFrameWnd::OnPaint()
{
    CPaintDC dc(this);
    const CRect dirty = dc.m_ps.rcPaint;
    dc.FillSolidRect(&dirty, GetSysColor(COLOR_BTNFACE));
    CRect centre;
    if (!::IsWindow(m_central) && centre.IntersectRect(m_layout.centre, dirty)) dc.FillSolidRect(&centre, GetSysColor(COLOR_APPWORKSPACE));

    CGdiObject* oldFont = dc.SelectStockObject(DEFAULT_GUI_FONT);
    dc.SetBkMode(TRANSPARENT);
    const std::optional<docklayout::BarPlace> active = m_groups.FindContaining(::GetFocus(), m_hWnd);
    for (size_t r = 0; r < docklayout::kRegionCount; ++r) {
        const docklayout::RegionRects& region = m_layout.regions[r];
        if (Touches(region.splitter, dirty)) PaintSplitter(dc, region.splitter);
        const std::vector<DockGroup>& groups = m_groups.Region(r);
        for (size_t g = 0; g < groups.size() && g < region.groups.size(); ++g) {
            const GroupRects& rects = region.groups[g];
            if (Touches(rects.caption, dirty)) PaintCaption(dc, rects, groups[g], active && active->region == r && active->group == g);
            if (Touches(rects.tabStrip, dirty)) PaintTabs(dc, rects, groups[g]);
            if (Touches(rects.splitter, dirty)) PaintSplitter(dc, rects.splitter);
        }
    }
    if (oldFont) dc.SelectObject(oldFont);
}

void CBCGPFrameWnd::PaintCaption(CDC& dc, const GroupRects& rects, const DockGroup& group, bool active) const
{
    dc.FillSolidRect(&rects.caption, GetSysColor(active ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION));
    dc.SetTextColor(GetSysColor(active ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT));
    CRect text = rects.caption;
    text.left += kCaptionTextIndent;
    DrawTitle(dc, group.Shown(), text, DT_LEFT);
}

void CBCGPFrameWnd::PaintTabs(CDC& dc, const GroupRects& rects, const DockGroup& group) const
{
    const CRect& strip = rects.tabStrip;
    // The body's lower edge, which the shown tab breaks to join its bar.
    dc.FillSolidRect(strip.left, strip.top, strip.Width(), 1, GetSysColor(COLOR_BTNSHADOW));
    const int count = static_cast<int>(group.bars.size());
    for (int i = 0; i < count; ++i) {
        const CRect tab = docklayout::TabRect(strip, count, i);
        if (tab.IsRectEmpty()) break;
        const bool shown = static_cast<size_t>(i) == group.shown;
        if (shown) {
            const CRect card(tab.left, tab.top, tab.right, tab.bottom - kShownTabGap);
            dc.FillSolidRect(&card, GetSysColor(COLOR_WINDOW));
            dc.FillSolidRect(card.left, card.top, 1, card.Height(), GetSysColor(COLOR_BTNSHADOW));
            dc.FillSolidRect(card.right - 1, card.top, 1, card.Height(), GetSysColor(COLOR_3DDKSHADOW));
            dc.FillSolidRect(card.left, card.bottom - 1, card.Width(), 1, GetSysColor(COLOR_3DDKSHADOW));
        } else if (i + 1 != static_cast<int>(group.shown)) {
            dc.FillSolidRect(tab.right - 1, tab.top + kTabSeparatorInset, 1, tab.Height() - 2 * kTabSeparatorInset,
                             GetSysColor(COLOR_BTNSHADOW));
        }
        dc.SetTextColor(GetSysColor(shown ? COLOR_WINDOWTEXT : COLOR_BTNTEXT));
        CRect text = tab;
        text.DeflateRect(kTabTextPadding, 0);
        if (shown) text.bottom -= kShownTabGap;
        DrawTitle(dc, group.bars[static_cast<size_t>(i)], text, DT_CENTER);
    }
}

void CBCGPFrameWnd::PaintSplitter(CDC& dc, const CRect& splitter) const
{
    if (splitter.IsRectEmpty()) return;
    dc.Draw3dRect(&splitter, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW));
}
