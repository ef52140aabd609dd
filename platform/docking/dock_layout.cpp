#include "platform/docking/dock_layout.h"

#include <algorithm>

namespace docklayout {
namespace {

bool Docked(const LayoutRequest& request, DockRegion region)
{
    return !request.groups[Index(region)].empty();
}

// The room left and right may share across the width once the centre and
// their splitters have theirs.
int SideRoom(const LayoutRequest& request)
{
    int room = request.client.cx - kMinCentre;
    if (Docked(request, DockRegion::Left)) room -= kSplitterSize;
    if (Docked(request, DockRegion::Right)) room -= kSplitterSize;
    return std::max(room, 0);
}

int BottomRoom(const LayoutRequest& request)
{
    return std::max(request.client.cy - kMinCentre - kSplitterSize, 0);
}

struct Thickness {
    int left = 0, right = 0, bottom = 0;
};

// The left region is served first when the client is too small for both sides.
Thickness Fit(const LayoutRequest& request)
{
    Thickness t;
    const int room = SideRoom(request);
    if (Docked(request, DockRegion::Left)) t.left = std::clamp(request.thickness[Index(DockRegion::Left)], 0, room);
    if (Docked(request, DockRegion::Right)) t.right = std::clamp(request.thickness[Index(DockRegion::Right)], 0, room - t.left);
    if (Docked(request, DockRegion::Bottom)) t.bottom = std::clamp(request.thickness[Index(DockRegion::Bottom)], 0, BottomRoom(request));
    return t;
}

// Splits `length` among the groups by weight, the last taking what rounding leaves.
std::vector<int> Shares(const std::vector<GroupRequest>& groups, int length)
{
    std::vector<int> sizes(groups.size(), 0);
    long long total = 0;
    for (const GroupRequest& g : groups) total += std::max(g.weight, 1);
    int given = 0;
    for (size_t i = 0; i + 1 < groups.size(); ++i) {
        sizes[i] = static_cast<int>(length * static_cast<long long>(std::max(groups[i].weight, 1)) / total);
        given += sizes[i];
    }
    if (!groups.empty()) sizes.back() = length - given;
    return sizes;
}

GroupRects LayOutGroup(const CRect& group, int bars)
{
    GroupRects g;
    g.group = group;
    g.tabs = bars;
    const int captionBottom = std::min(group.top + kCaptionHeight, group.bottom);
    g.caption = CRect(group.left, group.top, group.right, captionBottom);
    int bodyBottom = group.bottom;
    if (bars > 1) {
        bodyBottom = std::max(group.bottom - kTabStripHeight, captionBottom);
        g.tabStrip = CRect(group.left, bodyBottom, group.right, group.bottom);
    }
    g.body = CRect(group.left, captionBottom, group.right, bodyBottom);
    return g;
}

// Stacks a region's groups along its length: down for a side, across for the bottom.
void Stack(RegionRects& out, const std::vector<GroupRequest>& groups, bool across)
{
    const CRect& r = out.region;
    const int length = across ? r.Width() : r.Height();
    const int splitters = static_cast<int>(groups.size() - 1) * kSplitterSize;
    const std::vector<int> sizes = Shares(groups, std::max(length - splitters, 0));
    int at = across ? r.left : r.top;
    const int end = across ? r.right : r.bottom;
    out.groups.reserve(groups.size());
    for (size_t i = 0; i < groups.size(); ++i) {
        const int stop = std::min(at + sizes[i], end);
        const CRect group = across ? CRect(at, r.top, stop, r.bottom) : CRect(r.left, at, r.right, stop);
        GroupRects g = LayOutGroup(group, groups[i].bars);
        if (i + 1 < groups.size()) {
            const int next = std::min(stop + kSplitterSize, end);
            g.splitter = across ? CRect(stop, r.top, next, r.bottom) : CRect(r.left, stop, r.right, next);
            at = next;
        }
        out.groups.push_back(g);
    }
}

}  // namespace

Layout Compute(const LayoutRequest& request)
{
    Layout layout;
    const int cx = std::max(request.client.cx, 0);
    const int cy = std::max(request.client.cy, 0);
    const Thickness t = Fit(request);

    int middleLeft = 0;
    int middleRight = cx;
    // Splitters are cut short rather than let out of a client too small for them.
    if (Docked(request, DockRegion::Left)) {
        RegionRects& left = layout.regions[Index(DockRegion::Left)];
        left.region = CRect(0, 0, t.left, cy);
        left.splitter = CRect(t.left, 0, std::min(t.left + kSplitterSize, cx), cy);
        middleLeft = left.splitter.right;
    }
    if (Docked(request, DockRegion::Right)) {
        RegionRects& right = layout.regions[Index(DockRegion::Right)];
        right.region = CRect(std::max(cx - t.right, middleLeft), 0, cx, cy);
        right.splitter = CRect(std::max(right.region.left - kSplitterSize, middleLeft), 0, right.region.left, cy);
        middleRight = right.splitter.left;
    }
    int centreBottom = cy;
    if (Docked(request, DockRegion::Bottom)) {
        RegionRects& bottom = layout.regions[Index(DockRegion::Bottom)];
        bottom.region = CRect(middleLeft, std::max(cy - t.bottom, 0), middleRight, cy);
        bottom.splitter = CRect(middleLeft, std::max(bottom.region.top - kSplitterSize, 0), middleRight, bottom.region.top);
        centreBottom = bottom.splitter.top;
    }
    layout.centre = CRect(middleLeft, 0, middleRight, centreBottom);

    for (size_t i = 0; i < kRegionCount; ++i) {
        if (request.groups[i].empty()) continue;
        Stack(layout.regions[i], request.groups[i], i == Index(DockRegion::Bottom));
    }
    return layout;
}

int ClampThickness(const LayoutRequest& request, DockRegion region, int pixels)
{
    const Thickness t = Fit(request);
    int most = 0;
    switch (region) {
    case DockRegion::Left: most = SideRoom(request) - t.right; break;
    case DockRegion::Right: most = SideRoom(request) - t.left; break;
    case DockRegion::Bottom: most = BottomRoom(request); break;
    }
    return std::max(std::min(std::max(pixels, kMinRegion), most), 0);
}

CRect TabRect(const CRect& strip, int count, int index)
{
    if (count <= 0 || index < 0 || index >= count || strip.IsRectEmpty()) return CRect();
    const int width = std::min(strip.Width() / count, kMaxTabWidth);
    if (width <= 0) return CRect();
    const int left = strip.left + index * width;
    return CRect(left, strip.top, left + width, strip.bottom);
}

int TabAt(const CRect& strip, int count, POINT point)
{
    if (count <= 0 || !strip.PtInRect(point)) return -1;
    const int width = std::min(strip.Width() / count, kMaxTabWidth);
    if (width <= 0) return -1;
    const int index = (point.x - strip.left) / width;
    return index < count ? index : -1;
}

}  // namespace docklayout
