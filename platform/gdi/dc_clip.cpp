// Clipping and the viewport origin.
#include "platform/gdi/dc.h"
#include "platform/gdi/raster.h"

int CDC::IntersectClipRect(int left, int top, int right, int bottom)
{
    const gdi::Target t = GetTarget();
    CRect device = t.ToDevice(CRect(left, top, right, bottom));
    device.NormalizeRect();
    CRect narrowed;
    narrowed.IntersectRect(m_state.clipped ? m_state.userClip : device, device);
    m_state.clipped = true;
    m_state.userClip = narrowed;
    return GetTarget().clip.IsRectEmpty() ? NULLREGION : SIMPLEREGION;
}

int CDC::IntersectClipRect(LPCRECT rect)
{
    return rect ? IntersectClipRect(rect->left, rect->top, rect->right, rect->bottom) : RGN_ERROR;
}

void CDC::ResetClip()
{
    m_state.clipped = false;
    m_state.userClip = CRect();
}

int CDC::GetClipBox(LPRECT rect) const
{
    const gdi::Target t = GetTarget();
    CRect box = t.clip;
    if (box.IsRectEmpty()) box.SetRectEmpty();
    else box.OffsetRect(-t.offset.x, -t.offset.y);
    if (rect) *rect = box;
    return box.IsRectEmpty() ? NULLREGION : SIMPLEREGION;
}

BOOL CDC::PtVisible(int x, int y) const
{
    const gdi::Target t = GetTarget();
    const CPoint p = t.ToDevice(x, y);
    return t.surface && t.Visible(p.x, p.y) ? TRUE : FALSE;
}

BOOL CDC::RectVisible(LPCRECT rect) const
{
    if (!rect) return FALSE;
    const gdi::Target t = GetTarget();
    CRect device = t.ToDevice(*rect);
    device.NormalizeRect();
    CRect both;
    return t.surface && both.IntersectRect(device, t.clip) ? TRUE : FALSE;
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    const CPoint old = m_state.viewportOrg;
    m_state.viewportOrg = CPoint(gdi::Sat(x), gdi::Sat(y));
    return old;
}

CPoint CDC::OffsetViewportOrg(int dx, int dy)
{
    const CPoint old = m_state.viewportOrg;
    m_state.viewportOrg = CPoint(gdi::Sat(0LL + old.x + dx), gdi::Sat(0LL + old.y + dy));
    return old;
}
