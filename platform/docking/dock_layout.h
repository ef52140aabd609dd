// Where every part of a docking frame lies, from the client size, the
// regions' thicknesses and the groups' shares. Three regions surround the
// centre: left and right span the whole height, the bottom region lies under
// the centre only, between them (the usual IDE look: side panes run the
// full height, output sits under the document). Each region stacks its
// groups (left and right top to bottom, bottom left to right) with a
// splitter between neighbours and one between the region and the centre.
// A group is a caption, the body its bars fill, and, when it holds more than
// one bar, a tab strip along its bottom edge. Layout, painting and hit
// testing all read the one result of Compute.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "platform/core/win_types.h"

enum class DockRegion { Left, Right, Bottom };

namespace docklayout {

constexpr size_t kRegionCount = 3;
constexpr size_t Index(DockRegion region) { return static_cast<size_t>(region); }

constexpr int kCaptionHeight = 18;              // one line of the GUI font with a pixel of air each side
constexpr int kSplitterSize = 5;                // easy to catch with the mouse, thin enough to go unnoticed
constexpr int kTabStripHeight = 20;             // a line of text inside a tab's edges
constexpr int kMaxTabWidth = 120;               // a long title must not squeeze its neighbours' tabs
constexpr int kMinCentre = 60;                  // the document area stays usable however far a region is dragged
constexpr int kMinRegion = 40;                  // a region dragged thin still shows where its captions are
constexpr int kMinGroup = kCaptionHeight + 12;  // a caption with a sliver of its bar under it
constexpr int kDefaultSideWidth = 200;          // left and right regions before the user sizes them
constexpr int kDefaultBottomHeight = 150;       // room for a few lines of output

struct GroupRequest {
    int weight = 1;  // share of the region's length, relative to its neighbours
    int bars = 1;    // more than one gives the group a tab strip
};

struct LayoutRequest {
    CSize client;
    std::array<int, kRegionCount> thickness{kDefaultSideWidth, kDefaultSideWidth, kDefaultBottomHeight};
    std::array<std::vector<GroupRequest>, kRegionCount> groups;
};

struct GroupRects {
    CRect group;     // caption, body and tab strip together
    CRect caption;
    CRect body;      // where the group's bars go
    CRect tabStrip;  // empty for a group of one bar
    CRect splitter;  // between this group and the next; empty for the last
    int tabs = 0;

    bool operator==(const GroupRects&) const = default;
};

struct RegionRects {
    CRect region;    // empty for a region without groups
    CRect splitter;  // between the region and the centre; empty likewise
    std::vector<GroupRects> groups;

    bool operator==(const RegionRects&) const = default;
};

struct Layout {
    CRect centre;
    std::array<RegionRects, kRegionCount> regions;

    bool operator==(const Layout&) const = default;
};

Layout Compute(const LayoutRequest& request);
// The thickness a region takes when asked for `pixels`, with the other
// regions as they are: at least kMinRegion, and no more than leaves the
// centre kMinCentre (0 when even that does not fit).
int ClampThickness(const LayoutRequest& request, DockRegion region, int pixels);
// Tab `index` of a strip of `count` tabs, all of one width; empty outside.
CRect TabRect(const CRect& strip, int count, int index);
// The tab under a point, or -1.
int TabAt(const CRect& strip, int count, POINT point);

}  // namespace docklayout
