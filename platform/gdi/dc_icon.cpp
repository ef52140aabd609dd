// Drawing icons through their mask or alpha channel.
#include "platform/gdi/dc.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/raster.h"

namespace gdi {
namespace {

std::uint32_t Blend(std::uint32_t over, std::uint32_t under, unsigned alpha)
{
    std::uint32_t out = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const unsigned a = (over >> shift) & 0xFF, b = (under >> shift) & 0xFF;
        out |= ((a * alpha + b * (255 - alpha) + 127) / 255) << shift;
    }
    return out;
}

}  // namespace

void DrawIconImage(const Target& t, const IconImage& image, const CRect& area, unsigned flags)
{
    CRect visible;
    if (!t.surface || area.IsRectEmpty() || !visible.IntersectRect(area, t.clip)) return;
    const bool drawMask = flags & DI_MASK, drawImage = flags & DI_IMAGE;
    const long long w = area.Width(), h = area.Height();
    for (int y = visible.top; y < visible.bottom; ++y) {
        const size_t iy = static_cast<size_t>((y - area.top) * static_cast<long long>(image.height) / h);
        std::uint32_t* row = t.surface->Row(y);
        for (int x = visible.left; x < visible.right; ++x) {
            const size_t ix = static_cast<size_t>((x - area.left) * static_cast<long long>(image.width) / w);
            const size_t i = iy * static_cast<size_t>(image.width) + ix;
            const std::uint32_t color = image.color[i];
            // Where the screen shows through: the mask bit, else zero alpha.
            const bool through = !image.andMask.empty() ? image.andMask[i] != 0 : !image.alpha.empty() && image.alpha[i] == 0;
            std::uint32_t out = row[x];
            if (drawMask && drawImage) {
                if (!image.alpha.empty()) out = Blend(color, out, image.alpha[i]);
                else out = (through ? out : 0u) ^ color;
            } else if (drawMask) {
                out = through ? 0xFFFFFFu : 0u;
            } else {
                out = color;
            }
            row[x] = t.mono ? MonoPixel(out) : out;
        }
    }
}

}  // namespace gdi

BOOL CDC::DrawIcon(int x, int y, HICON icon)
{
    return DrawIconEx(x, y, icon, 0, 0, 0, nullptr, DI_NORMAL);
}

BOOL CDC::DrawIconEx(int x, int y, HICON icon, int cx, int cy, UINT, HBRUSH, UINT flags)
{
    const gdi::IconImage* image = gdi::FindIcon(icon);
    if (!image || !(flags & DI_NORMAL) || cx < 0 || cy < 0) return FALSE;
    if (cx == 0) cx = (flags & DI_DEFAULTSIZE) ? 32 : image->width;
    if (cy == 0) cy = (flags & DI_DEFAULTSIZE) ? 32 : image->height;
    const gdi::Target t = GetTarget();
    const CPoint at = t.ToDevice(x, y);
    gdi::DrawIconImage(t, *image, CRect(at.x, at.y, gdi::Sat(0LL + at.x + cx), gdi::Sat(0LL + at.y + cy)), flags);
    return TRUE;
}

BOOL DrawIconEx(HDC hdc, int x, int y, HICON icon, int cx, int cy, UINT step, HBRUSH flickerFreeBrush, UINT flags)
{
    CDC* dc = CDC::FromHandle(hdc);
    return dc ? dc->DrawIconEx(x, y, icon, cx, cy, step, flickerFreeBrush, flags) : FALSE;
}
