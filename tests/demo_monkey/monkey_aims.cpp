// Where the monkey points the mouse: read from the controls' own geometry at
// the moment of the step, so that aims follow scrolling, resizing and tabs.
#include "tests/demo_monkey/monkey.h"

#include <algorithm>

#include "grid/grid_ctrl.h"
#include "platform/controls/rich_edit_ctrl.h"
#include "platform/controls/tree_ctrl.h"

namespace {

// The splitters of a region's groups: one fewer than its groups, and the
// frame docks no more than three groups in a region.
constexpr int kMostGroupSplitters = 2;
// The four columns a watch shows.
constexpr int kGridColumns = 4;
// How far outside the client a point "anywhere" may fall.
constexpr int kOutside = 20;

const DockRegion kRegions[] = {DockRegion::Left, DockRegion::Right, DockRegion::Bottom};

}  // namespace

std::vector<CWnd*> Monkey::ShownViews()
{
    std::vector<CWnd*> views;
    const HWND all[] = {m_ide.panes.files.GetViewHwnd(),     m_ide.panes.targets.GetViewHwnd(),
                        m_ide.panes.functions.GetViewHwnd(), m_ide.panes.bookmarks.GetViewHwnd(),
                        m_ide.panes.breakpoints.GetViewHwnd(), m_ide.panes.memory.View().GetSafeHwnd(),
                        m_ide.panes.build.GetViewHwnd(),     m_ide.panes.search.GetViewHwnd(),
                        m_ide.panes.debug.GetViewHwnd(),     m_ide.panes.watch1.GetViewHwnd(),
                        m_ide.panes.watch2.GetViewHwnd(),    m_ide.source.GetSafeHwnd()};
    for (HWND view : all) {
        if (view && ::IsWindowVisible(view)) views.push_back(CWnd::FromHandle(view));
    }
    return views;
}

Monkey::Aim Monkey::InTheClient(CWnd& window)
{
    CRect client;
    window.GetClientRect(&client);
    if (client.IsRectEmpty()) return {};
    return {&window, CPoint(Uniform(client.left, client.right - 1), Uniform(client.top, client.bottom - 1))};
}

Monkey::Aim Monkey::Anywhere()
{
    CRect client;
    m_ide.GetClientRect(&client);
    return {&m_ide, CPoint(Uniform(client.left - kOutside, client.right + kOutside),
                           Uniform(client.top - kOutside, client.bottom + kOutside))};
}

Monkey::Aim Monkey::SomewhereMeaningful()
{
    const int roll = Uniform(0, 99);
    Aim aim;
    if (roll < 70) {
        aim = InAView();
    } else if (roll < 82) {
        aim = OnATab();
    } else if (roll < 90) {
        aim = OnACaption();
    } else {
        aim = OnASplitter();
    }
    return aim.window ? aim : Anywhere();
}

Monkey::Aim Monkey::InAView()
{
    const std::vector<CWnd*> views = ShownViews();
    if (views.empty()) return {};
    CWnd& view = *Pick(views);
    // Now and then off the rows: the empty space below them, a scroll bar.
    if (Chance(15)) return InTheClient(view);
    if (dynamic_cast<CTreeCtrl*>(&view)) return OnATreeRow(view);
    if (dynamic_cast<CGridCtrl*>(&view)) return OnAGridCell(view);
    if (dynamic_cast<CRichEditCtrl*>(&view)) return OnAnEditLine(view);
    return InTheClient(view);
}

Monkey::Aim Monkey::OnATreeRow(CWnd& view)
{
    auto& tree = static_cast<CTreeCtrl&>(view);
    std::vector<HTREEITEM> shown;
    for (HTREEITEM item = tree.GetFirstVisibleItem(); item && shown.size() < 64; item = tree.GetNextVisibleItem(item)) {
        shown.push_back(item);
    }
    if (shown.empty()) return InTheClient(view);
    CRect label;
    if (!tree.GetItemRect(Pick(shown), &label, TRUE)) return InTheClient(view);
    // The label, or left of it where the expand button sits.
    if (Chance(20)) return {&view, CPoint(std::max(0, label.left - static_cast<int>(tree.GetIndent()) / 2), label.CenterPoint().y)};
    return {&view, label.CenterPoint()};
}

Monkey::Aim Monkey::OnAnEditLine(CWnd& view)
{
    auto& edit = static_cast<CRichEditCtrl&>(view);
    const int lines = edit.GetLineCount();
    if (lines <= 0) return InTheClient(view);
    const int line = std::min(lines - 1, edit.GetFirstVisibleLine() + Uniform(0, 12));
    const CPoint start = edit.GetCharPos(edit.LineIndex(line));
    return {&view, CPoint(start.x + Uniform(0, 200), start.y + Uniform(1, 10))};
}

Monkey::Aim Monkey::OnAGridCell(CWnd& view)
{
    auto& grid = static_cast<CGridCtrl&>(view);
    const int lines = grid.GetItemCount();
    if (lines <= 0) return InTheClient(view);
    const int item = std::min(lines - 1, grid.GetTopIndex() + Uniform(0, std::max(1, grid.GetCountPerPage())));
    CRect cell;
    grid.GetSubItemRect(item, Uniform(0, kGridColumns - 1), LVIR_LABEL, cell);
    // The left end of the first column is where a row's expand box is.
    if (Chance(20)) {
        CRect line;
        grid.GetItemRect(item, &line, LVIR_BOUNDS);
        return {&view, CPoint(line.left + Uniform(2, 40), line.CenterPoint().y)};
    }
    return {&view, cell.CenterPoint()};
}

Monkey::Aim Monkey::OnATab()
{
    const CBCGPDockingControlBar* bars[] = {&m_ide.panes.files, &m_ide.panes.targets, &m_ide.panes.build,
                                            &m_ide.panes.search, &m_ide.panes.debug, &m_ide.panes.watch1,
                                            &m_ide.panes.watch2};
    const CRect tab = m_ide.TabRect(bars[Uniform(0, static_cast<int>(std::size(bars)) - 1)]);
    if (tab.IsRectEmpty()) return {};
    return {&m_ide, CPoint(Uniform(tab.left, tab.right - 1), Uniform(tab.top, tab.bottom - 1))};
}

Monkey::Aim Monkey::OnACaption()
{
    const CBCGPDockingControlBar* bars[] = {&m_ide.panes.files, &m_ide.panes.functions, &m_ide.panes.bookmarks,
                                            &m_ide.panes.breakpoints, &m_ide.panes.memory, &m_ide.panes.build,
                                            &m_ide.panes.watch1};
    const CRect caption = m_ide.CaptionRect(bars[Uniform(0, static_cast<int>(std::size(bars)) - 1)]);
    if (caption.IsRectEmpty()) return {};
    return {&m_ide, CPoint(Uniform(caption.left, caption.right - 1), Uniform(caption.top, caption.bottom - 1))};
}

Monkey::Aim Monkey::OnASplitter()
{
    const DockRegion region = kRegions[Uniform(0, static_cast<int>(std::size(kRegions)) - 1)];
    const int group = Uniform(-1, kMostGroupSplitters - 1);
    const CRect splitter = group < 0 ? m_ide.RegionSplitterRect(region) : m_ide.GroupSplitterRect(region, group);
    if (splitter.IsRectEmpty()) return {};
    return {&m_ide, splitter.CenterPoint()};
}
