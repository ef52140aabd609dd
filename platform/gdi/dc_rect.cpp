// Rectangles: fills, frames, inversions and pixels.
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi_registry.h"
#include "platform/gdi/raster.h"

namespace {

CRect Normalized(CRect r)
{
    r.NormalizeRect();
    return r;
}

}  // namespace

void CDC::FillWithBrush(const gdi::Target& t, const CRect& device, const gdi::BrushData& brush)
{
    if (!brush.hollow) gdi::FillPixels(t, device, t.Pixel(brush.color));
}

void CDC::FillSolidRect(LPCRECT rect, COLORREF color)
{
    SetBkColor(color);
    if (!rect) return;
    const gdi::Target t = GetTarget();
    gdi::FillPixels(t, Normalized(t.ToDevice(*rect)), t.Pixel(color));
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color)
{
    const CRect rect(x, y, gdi::Sat(0LL + x + cx), gdi::Sat(0LL + y + cy));
    FillSolidRect(&rect, color);
}

void CDC::FillRect(LPCRECT rect, CBrush* brush)
{
    const auto* data = brush ? gdi::Find<gdi::BrushData>(brush->m_hObject) : nullptr;
    if (!rect || !data) return;
    const gdi::Target t = GetTarget();
    FillWithBrush(t, t.ToDevice(*rect), *data);
}

void CDC::FrameRect(LPCRECT rect, CBrush* brush)
{
    const auto* data = brush ? gdi::Find<gdi::BrushData>(brush->m_hObject) : nullptr;
    if (!rect || !data || CRect(*rect).IsRectEmpty()) return;
    const gdi::Target t = GetTarget();
    const CRect r = t.ToDevice(*rect);
    FillWithBrush(t, CRect(r.left, r.top, r.right, r.top + 1), *data);
    FillWithBrush(t, CRect(r.left, r.bottom - 1, r.right, r.bottom), *data);
    FillWithBrush(t, CRect(r.left, r.top + 1, r.left + 1, r.bottom - 1), *data);
    FillWithBrush(t, CRect(r.right - 1, r.top + 1, r.right, r.bottom - 1), *data);
}

BOOL CDC::Rectangle(int left, int top, int right, int bottom)
{
    const gdi::Target t = GetTarget();
    const CRect r = Normalized(t.ToDevice(CRect(left, top, right, bottom)));
    const gdi::PenData pen = CurrentPen();
    const gdi::BrushData brush = CurrentBrush();
    if (pen.style == PS_NULL) {
        FillWithBrush(t, CRect(r.left, r.top, r.right - 1, r.bottom - 1), brush);
        return TRUE;
    }
    if (r.IsRectEmpty()) return TRUE;
    const int w = std::min({pen.width, (r.Width() + 1) / 2, (r.Height() + 1) / 2});
    FillWithBrush(t, CRect(r.left + w, r.top + w, r.right - w, r.bottom - w), brush);
    if (pen.style == PS_SOLID || pen.style == PS_INSIDEFRAME || pen.width > 1) {
        const std::uint32_t pixel = t.Pixel(pen.color);
        gdi::FillPixels(t, CRect(r.left, r.top, r.right, r.top + w), pixel);
        gdi::FillPixels(t, CRect(r.left, r.bottom - w, r.right, r.bottom), pixel);
        gdi::FillPixels(t, CRect(r.left, r.top + w, r.left + w, r.bottom - w), pixel);
        gdi::FillPixels(t, CRect(r.right - w, r.top + w, r.right, r.bottom - w), pixel);
        return TRUE;
    }
    // A styled outline is drawn as four lines, clockwise from the top left.
    const CPoint corners[] = {{r.left, r.top}, {r.right - 1, r.top}, {r.right - 1, r.bottom - 1}, {r.left, r.bottom - 1}};
    for (int i = 0; i < 4; ++i) DrawLine(t, pen, corners[i], corners[(i + 1) % 4]);
    return TRUE;
}

BOOL CDC::Rectangle(LPCRECT rect)
{
    return rect ? Rectangle(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD rop)
{
    const gdi::Target t = GetTarget();
    const CRect r = Normalized(t.ToDevice(CRect(x, y, gdi::Sat(0LL + x + width), gdi::Sat(0LL + y + height))));
    const gdi::BrushData& brush = CurrentBrush();
    switch (rop) {
    case PATCOPY: FillWithBrush(t, r, brush); return TRUE;
    case PATINVERT:
        if (!brush.hollow) gdi::XorPixels(t, r, t.Pixel(brush.color));
        return TRUE;
    case DSTINVERT: gdi::XorPixels(t, r, 0xFFFFFF); return TRUE;
    case BLACKNESS: gdi::FillPixels(t, r, 0); return TRUE;
    case WHITENESS: gdi::FillPixels(t, r, 0xFFFFFF); return TRUE;
    default: return FALSE;
    }
}

void CDC::InvertRect(LPCRECT rect)
{
    if (!rect) return;
    const gdi::Target t = GetTarget();
    gdi::XorPixels(t, t.ToDevice(*rect), 0xFFFFFF);
}

void CDC::Draw3dRect(LPCRECT rect, COLORREF topLeft, COLORREF bottomRight)
{
    if (rect) Draw3dRect(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, topLeft, bottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF topLeft, COLORREF bottomRight)
{
    // The framework's own sequence; the negative sizes select the column and
    // row just inside the right and bottom edges.
    FillSolidRect(x, y, cx - 1, 1, topLeft);
    FillSolidRect(x, y, 1, cy - 1, topLeft);
    FillSolidRect(gdi::Sat(0LL + x + cx), y, -1, cy, bottomRight);
    FillSolidRect(x, gdi::Sat(0LL + y + cy), cx, -1, bottomRight);
}

void CDC::DrawFocusRect(LPCRECT rect)
{
    if (!rect || CRect(*rect).IsRectEmpty()) return;
    const gdi::Target t = GetTarget();
    if (!t.Valid()) return;
    const CRect r = t.ToDevice(*rect);
    // Dots on even (x + y) so they line up across rows; each border pixel is
    // visited once so that a second call undoes the first.
    auto dot = [&t](int x, int y) {
        if (((x + y) & 1) == 0 && t.Visible(x, y)) t.surface->Row(y)[x] ^= 0xFFFFFF;
    };
    // Only the stretch of each edge inside the clip box is walked.
    const int x0 = std::max(r.left, t.clip.left), x1 = std::min(r.right, t.clip.right);
    const int y0 = std::max(r.top + 1, t.clip.top), y1 = std::min(r.bottom - 1, t.clip.bottom);
    for (int x = x0; x < x1; ++x) {
        dot(x, r.top);
        if (r.bottom - 1 > r.top) dot(x, r.bottom - 1);
    }
    for (int y = y0; y < y1; ++y) {
        dot(r.left, y);
        if (r.right - 1 > r.left) dot(r.right - 1, y);
    }
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color)
{
    const gdi::Target t = GetTarget();
    const CPoint p = t.ToDevice(x, y);
    if (!t.surface || !t.Visible(p.x, p.y)) return CLR_INVALID;
    const std::uint32_t pixel = t.Pixel(color);
    t.surface->Row(p.y)[p.x] = pixel;
    return PixelToColorRef(pixel);
}

COLORREF CDC::GetPixel(int x, int y) const
{
    const gdi::Target t = GetTarget();
    const CPoint p = t.ToDevice(x, y);
    if (!t.surface || !t.Visible(p.x, p.y)) return CLR_INVALID;
    return PixelToColorRef(t.surface->Row(p.y)[p.x]);
}
