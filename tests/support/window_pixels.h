// Reading back what a window painted: its client area's pixels on the
// surface of its top-level window.
#pragma once

#include <algorithm>

#include "platform/core/paint.h"
#include "platform/gdi/surface.h"

// Pixels of one window's client area; a window without a surface reads as
// 0xFFFFFFFF (no colour) and counts nothing.
class WindowPixels {
public:
    explicit WindowPixels(const CWnd& window) : m_surface(Paint::SurfaceOf(window.GetSafeHwnd(), &m_origin)) {}

    bool Valid() const { return m_surface != nullptr; }

    COLORREF At(int x, int y) const
    {
        return m_surface ? PixelToColorRef(m_surface->GetPixel(m_origin.x + x, m_origin.y + y)) : 0xFFFFFFFF;
    }

    // Pixels of the colour in an area of the client, in client coordinates.
    int Count(COLORREF colour, const CRect& area) const
    {
        int n = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x) n += At(x, y) == colour;
        return n;
    }

private:
    POINT m_origin{};
    const Surface* m_surface;
};
