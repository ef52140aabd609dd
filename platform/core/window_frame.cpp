#include "platform/core/window_frame.h"

#include "platform/core/messages.h"
#include "platform/core/window_registry.h"

namespace {

int BorderWidth(DWORD style, DWORD exStyle)
{
    if (exStyle & WS_EX_CLIENTEDGE) return 2;
    if (style & WS_BORDER) return 1;
    return 0;
}

}  // namespace

WindowFrame FrameOf(const WindowData& data)
{
    return FrameOf(data.rect, data.style, data.exStyle);
}

WindowFrame FrameOf(const CRect& windowRect, DWORD style, DWORD exStyle)
{
    WindowFrame f;
    f.border = BorderWidth(style, exStyle);
    const int width = std::max(0, static_cast<int>(windowRect.Width()) - 2 * f.border);
    const int height = std::max(0, static_cast<int>(windowRect.Height()) - 2 * f.border);
    const CRect inner(f.border, f.border, f.border + width, f.border + height);
    f.client = inner;
    // A bar wider than the window takes all of it, leaving an empty client.
    if (style & WS_VSCROLL) f.client.right = std::max(inner.left, inner.right - kScrollBarSize);
    if (style & WS_HSCROLL) f.client.bottom = std::max(inner.top, inner.bottom - kScrollBarSize);
    if (style & WS_VSCROLL) f.vertical = CRect(f.client.right, inner.top, inner.right, f.client.bottom);
    if (style & WS_HSCROLL) f.horizontal = CRect(inner.left, f.client.bottom, f.client.right, inner.bottom);
    if ((style & WS_VSCROLL) && (style & WS_HSCROLL)) f.corner = CRect(f.client.right, f.client.bottom, inner.right, inner.bottom);
    return f;
}
