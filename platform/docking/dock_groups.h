// Which bars the frame has docked: per region, its groups in stacking order,
// each with its bars in tab order, the one shown, and its share of the
// region. Bars are kept by handle: the host owns them, and a bar destroyed
// while docked is then simply found gone (handles are never reused) and
// dropped at the next Prune.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/docking/dock_layout.h"

namespace docklayout {

struct DockGroup {
    std::vector<HWND> bars;  // tab order
    size_t shown = 0;        // index into bars
    int weight = 1;          // share of the region's length

    HWND Shown() const { return shown < bars.size() ? bars[shown] : nullptr; }
};

// Where a bar sits.
struct BarPlace {
    size_t region = 0;
    size_t group = 0;
    size_t tab = 0;

    bool operator==(const BarPlace&) const = default;
};

class DockGroups {
public:
    const std::vector<DockGroup>& Region(size_t region) const { return m_regions[region]; }
    std::vector<DockGroup>& Region(size_t region) { return m_regions[region]; }

    std::optional<BarPlace> Find(HWND bar) const;
    // The group holding a window that is one of the bars or lies inside one.
    std::optional<BarPlace> FindContaining(HWND window, HWND frame) const;
    // A new group at the end of a region, its share the average of its
    // neighbours' so that it takes about as much room as each of them.
    void AddGroup(size_t region, HWND bar);
    // Drops bars whose windows are gone, then groups left without bars.
    // Returns true when anything was dropped.
    bool Prune();
    // What the geometry needs: the groups' shares and tab counts.
    void Describe(LayoutRequest& request) const;

private:
    std::array<std::vector<DockGroup>, kRegionCount> m_regions;
};

}  // namespace docklayout
