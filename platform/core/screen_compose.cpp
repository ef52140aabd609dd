// The screen as a display shows it: top-level surfaces composed in z-order,
// and which area of it changed since a display last looked.
#include <algorithm>
#include <vector>

#include "platform/core/messages.h"
#include "platform/core/paint.h"
#include "platform/core/window_registry.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"

namespace {

// A top-level window as the screen last showed it.
struct Shown {
    HWND handle = nullptr;
    CRect rect;
    bool operator==(const Shown&) const = default;
};

struct ScreenState {
    CRect painted;
    std::vector<Shown> shown;  // visible top-level windows, bottom to top
};

ScreenState& State()
{
    static ScreenState state;
    return state;
}

bool IsShown(const WindowData* data)
{
    return data && data->surface && (data->style & WS_VISIBLE);
}

std::vector<Shown> ShownNow()
{
    std::vector<Shown> now;
    for (HWND top : WindowRegistry::TopLevelWindows()) {
        const WindowData* data = WindowRegistry::Find(top);
        if (IsShown(data)) now.push_back(Shown{top, data->rect});
    }
    return now;
}

}  // namespace

namespace Paint {

void ComposeScreen(const CRect& area, Surface& target, POINT at)
{
    // The part of the area that lands inside the target.
    CRect clipped(at.x, at.y, at.x + area.Width(), at.y + area.Height());
    if (!clipped.IntersectRect(clipped, target.Bounds())) return;
    clipped.OffsetRect(area.left - at.x, area.top - at.y);
    const int dx = at.x - area.left;
    const int dy = at.y - area.top;
    const std::uint32_t desktop = ColorRefToPixel(GetSysColor(COLOR_BACKGROUND));
    for (int y = clipped.top; y < clipped.bottom; ++y) {
        std::uint32_t* row = target.Row(y + dy) + (clipped.left + dx);
        std::fill(row, row + clipped.Width(), desktop);
    }
    for (HWND top : WindowRegistry::TopLevelWindows()) {
        const WindowData* data = WindowRegistry::Find(top);
        if (!IsShown(data)) continue;
        CRect visible;
        if (!visible.IntersectRect(data->rect, clipped)) continue;
        // A surface not yet resized to its window shows what it has.
        CRect held = data->surface->Bounds();
        held.OffsetRect(data->rect.left, data->rect.top);
        if (!visible.IntersectRect(visible, held)) continue;
        for (int y = visible.top; y < visible.bottom; ++y) {
            const std::uint32_t* from = data->surface->Row(y - data->rect.top) + (visible.left - data->rect.left);
            std::copy(from, from + visible.Width(), target.Row(y + dy) + (visible.left + dx));
        }
    }
}

CRect TakeDirtyScreenArea()
{
    ScreenState& state = State();
    CRect dirty = state.painted;
    state.painted.SetRectEmpty();
    std::vector<Shown> now = ShownNow();
    // A window whose place in the stack, rectangle or visibility changed
    // uncovers its old place and covers its new one.
    const size_t common = std::min(now.size(), state.shown.size());
    for (size_t i = 0; i < std::max(now.size(), state.shown.size()); ++i) {
        if (i < common && now[i] == state.shown[i]) continue;
        if (i < state.shown.size()) dirty.UnionRect(dirty, state.shown[i].rect);
        if (i < now.size()) dirty.UnionRect(dirty, now[i].rect);
    }
    state.shown = std::move(now);
    return dirty;
}

void MarkScreenPainted(const CRect& screenArea)
{
    if (screenArea.IsRectEmpty()) return;
    CRect& painted = State().painted;
    painted.UnionRect(painted, screenArea);
}

}  // namespace Paint
