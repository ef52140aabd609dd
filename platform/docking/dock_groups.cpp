#include "platform/docking/dock_groups.h"

#include <algorithm>

#include "platform/core/wnd.h"

namespace docklayout {

namespace {
constexpr int kFirstWeight = 100;  // any positive share: a lone group takes the whole region
}

std::optional<BarPlace> DockGroups::Find(HWND bar) const
{
    if (!bar) return std::nullopt;
    for (size_t r = 0; r < kRegionCount; ++r) {
        const std::vector<DockGroup>& groups = m_regions[r];
        for (size_t g = 0; g < groups.size(); ++g) {
            const auto& bars = groups[g].bars;
            const auto it = std::find(bars.begin(), bars.end(), bar);
            if (it != bars.end()) return BarPlace{r, g, static_cast<size_t>(it - bars.begin())};
        }
    }
    return std::nullopt;
}

std::optional<BarPlace> DockGroups::FindContaining(HWND window, HWND frame) const
{
    // The frame's child on the way up from the window is the only candidate.
    HWND child = window;
    while (child && ::GetParent(child) != frame) child = ::GetParent(child);
    return child ? Find(child) : std::nullopt;
}

void DockGroups::AddGroup(size_t region, HWND bar)
{
    std::vector<DockGroup>& groups = m_regions[region];
    long long total = 0;
    for (const DockGroup& g : groups) total += g.weight;
    const int weight = groups.empty() ? kFirstWeight : static_cast<int>(std::max(total / static_cast<long long>(groups.size()), 1LL));
    groups.push_back(DockGroup{{bar}, 0, weight});
}

bool DockGroups::Prune()
{
    bool dropped = false;
    for (std::vector<DockGroup>& groups : m_regions) {
        for (DockGroup& g : groups) {
            const HWND shown = g.Shown();
            const auto gone = std::remove_if(g.bars.begin(), g.bars.end(), [](HWND bar) { return !::IsWindow(bar); });
            if (gone == g.bars.end()) continue;
            g.bars.erase(gone, g.bars.end());
            dropped = true;
            // The shown bar stays shown; if it went, the first one left takes over.
            const auto still = std::find(g.bars.begin(), g.bars.end(), shown);
            g.shown = still != g.bars.end() ? static_cast<size_t>(still - g.bars.begin()) : 0;
        }
        std::erase_if(groups, [](const DockGroup& g) { return g.bars.empty(); });
    }
    return dropped;
}

void DockGroups::Describe(LayoutRequest& request) const
{
    for (size_t r = 0; r < kRegionCount; ++r) {
        request.groups[r].clear();
        for (const DockGroup& g : m_regions[r]) request.groups[r].push_back(GroupRequest{g.weight, static_cast<int>(g.bars.size())});
    }
}

}  // namespace docklayout
