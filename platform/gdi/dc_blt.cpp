// BitBlt: block copies between DCs, row by row.
#include <algorithm>
#include <vector>

#include "platform/gdi/dc.h"
#include "platform/gdi/raster.h"

namespace {

enum class Op { Copy, Paint, And, Invert, Erase, NotCopy, NotErase, MergePaint, None };

Op OpFor(DWORD rop)
{
    switch (rop) {
    case SRCCOPY: return Op::Copy;
    case SRCPAINT: return Op::Paint;
    case SRCAND: return Op::And;
    case SRCINVERT: return Op::Invert;
    case SRCERASE: return Op::Erase;
    case NOTSRCCOPY: return Op::NotCopy;
    case NOTSRCERASE: return Op::NotErase;
    case MERGEPAINT: return Op::MergePaint;
    default: return Op::None;
    }
}

template <class F>
void Combine(std::uint32_t* d, const std::uint32_t* s, int n, F f)
{
    for (int i = 0; i < n; ++i) d[i] = f(d[i], s[i]) & 0xFFFFFFu;
}

void ApplyRow(Op op, std::uint32_t* d, const std::uint32_t* s, int n)
{
    switch (op) {
    case Op::Copy: std::copy_n(s, n, d); break;
    case Op::Paint: Combine(d, s, n, [](auto a, auto b) { return a | b; }); break;
    case Op::And: Combine(d, s, n, [](auto a, auto b) { return a & b; }); break;
    case Op::Invert: Combine(d, s, n, [](auto a, auto b) { return a ^ b; }); break;
    case Op::Erase: Combine(d, s, n, [](auto a, auto b) { return b & ~a; }); break;
    case Op::NotCopy: Combine(d, s, n, [](auto, auto b) { return ~b; }); break;
    case Op::NotErase: Combine(d, s, n, [](auto a, auto b) { return ~(a | b); }); break;
    case Op::MergePaint: Combine(d, s, n, [](auto a, auto b) { return ~b | a; }); break;
    case Op::None: break;
    }
}

bool PatternOnly(DWORD rop)
{
    return rop == PATCOPY || rop == PATINVERT || rop == DSTINVERT || rop == BLACKNESS || rop == WHITENESS;
}

}  // namespace

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int srcX, int srcY, DWORD rop)
{
    if (PatternOnly(rop)) return PatBlt(x, y, width, height, rop);
    const Op op = OpFor(rop);
    if (op == Op::None || !source || width < 0 || height < 0) return FALSE;
    const gdi::Target dst = GetTarget();
    const gdi::Target src = source->GetTarget();
    if (!dst.surface || !src.surface) return FALSE;

    // The destination block, cut to the clipping and to where the source
    // surface has pixels (the source's own clipping does not matter).
    const CPoint d0 = dst.ToDevice(x, y);
    const CPoint s0 = src.ToDevice(srcX, srcY);
    const CRect block(d0.x, d0.y, gdi::Sat(0LL + d0.x + width), gdi::Sat(0LL + d0.y + height));
    const long long shiftX = 0LL + s0.x - d0.x, shiftY = 0LL + s0.y - d0.y;
    const CRect srcInDst(gdi::Sat(-shiftX), gdi::Sat(-shiftY), gdi::Sat(src.surface->Width() - shiftX),
                         gdi::Sat(src.surface->Height() - shiftY));
    CRect area;
    if (!area.IntersectRect(block, dst.clip) || !area.IntersectRect(area, srcInDst)) return TRUE;

    const std::uint32_t textPixel = ColorRefToPixel(m_state.textColor);
    const std::uint32_t bkPixel = ColorRefToPixel(m_state.bkColor);
    const std::uint32_t srcBk = ColorRefToPixel(source->m_state.bkColor);
    const int n = area.Width();
    if (src.surface != dst.surface && src.mono == dst.mono) {
        // Two surfaces never overlap: each row goes straight across.
        for (int row = 0; row < area.Height(); ++row)
            ApplyRow(op, dst.surface->Row(area.top + row) + area.left,
                     src.surface->Row(static_cast<int>(area.top + row + shiftY)) + (area.left + shiftX), n);
        return TRUE;
    }
    std::vector<std::uint32_t> rows(static_cast<size_t>(n) * static_cast<size_t>(area.Height()));
    // Read every source row first so that a copy within one surface works
    // whatever the overlap.
    for (int row = 0; row < area.Height(); ++row) {
        const std::uint32_t* in = src.surface->Row(static_cast<int>(area.top + row + shiftY)) + (area.left + shiftX);
        std::uint32_t* out = rows.data() + static_cast<size_t>(row) * static_cast<size_t>(n);
        if (src.mono && !dst.mono) {
            for (int i = 0; i < n; ++i) out[i] = in[i] ? bkPixel : textPixel;
        } else if (!src.mono && dst.mono) {
            for (int i = 0; i < n; ++i) out[i] = in[i] == srcBk ? 0xFFFFFFu : 0u;
        } else {
            std::copy_n(in, n, out);
        }
    }
    for (int row = 0; row < area.Height(); ++row)
        ApplyRow(op, dst.surface->Row(area.top + row) + area.left, rows.data() + static_cast<size_t>(row) * static_cast<size_t>(n), n);
    return TRUE;
}
