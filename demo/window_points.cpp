#include "demo/window_points.h"

#include <fstream>
#include <string>
#include <vector>

#include "demo/ide_frame.h"
#include "demo/ui_points.h"
#include "demo/views/source_layout.h"
#include "host/view_font.h"
#include "platform/gdi/font.h"
#include "platform/gdi/font_model.h"
#include "watch/watch_row.h"

namespace {

// The source line a script clicks to set the caret.
constexpr int kSourceLine = 10;

struct NamedPoint {
    std::string name;
    POINT screen;
};

class Points {
public:
    // A client point of a window, kept when it was found.
    void Add(const std::string& name, CWnd* window, CPoint client)
    {
        if (!window || !window->GetSafeHwnd() || client.x < 0) return;
        POINT screen = client;
        window->ClientToScreen(&screen);
        m_points.push_back(NamedPoint{name, screen});
    }
    // Written aside and renamed into place, so a script never reads half a file.
    bool Write(const std::filesystem::path& file) const
    {
        std::filesystem::path part = file;
        part += ".part";
        {
            std::ofstream out(part);
            for (const NamedPoint& point : m_points) out << point.name << ' ' << point.screen.x << ' ' << point.screen.y << '\n';
            if (!out.good()) return false;
        }
        std::error_code error;
        std::filesystem::rename(part, file, error);
        return !error;
    }

private:
    std::vector<NamedPoint> m_points;
};

// The label of the first mark (a node without children, depth first).
CPoint FirstLeafCentre(CTreeCtrl& tree)
{
    HTREEITEM node = tree.GetRootItem();
    while (node && tree.GetChildItem(node)) node = tree.GetChildItem(node);
    CRect rect;
    if (!node || !tree.GetItemRect(node, &rect, TRUE)) return CPoint(-1, -1);
    return rect.CenterPoint();
}

// The middle of a source line's row, from the views' own font and layout.
CPoint SourceLineCentre(CSourceView& view, int line)
{
    CFont font;
    font.CreatePointFont(kViewFontTenths, kViewFontFace);
    const int rowHeight = gdi::MetricsOfHandle(font.GetSafeHandle()).height + SourceLayout::kLineGap;
    CRect client;
    view.GetClientRect(&client);
    const int y = (line - 1 - view.TopLine()) * rowHeight + rowHeight / 2;
    if (y < 0 || y >= client.bottom) return CPoint(-1, -1);
    return CPoint(client.Width() / 2, y);
}

void AddTab(Points& points, const std::string& name, CIdeFrame& ide, const CBCGPDockingControlBar& bar)
{
    const CRect tab = ide.TabRect(&bar);
    if (!tab.IsRectEmpty()) points.Add(name, &ide, tab.CenterPoint());
}

}  // namespace

bool WriteWindowPoints(CIdeFrame& ide, const std::filesystem::path& file)
{
    Points points;
    if (auto* bookmarks = ViewOf<CBookMarkListTreeCtrl>(ide.panes.bookmarks)) {
        points.Add("bookmark1", bookmarks, FirstLeafCentre(*bookmarks));
        points.Add("bookmark_lights", bookmarks, TreeLabelCentre(*bookmarks, "lights.c"));
    }
    if (auto* breakpoints = ViewOf<CBreakPointListTreeCtrl>(ide.panes.breakpoints)) {
        points.Add("breakpoint1", breakpoints, FirstLeafCentre(*breakpoints));
    }
    if (auto* files = ViewOf<CWorkSpaceTree1>(ide.panes.files)) {
        points.Add("file_timer0", files, TreeLabelCentre(*files, "timer0.c"));
    }
    if (auto* functions = ViewOf<CFuncListTreeCtrl>(ide.panes.functions)) {
        points.Add("function1", functions, FirstLeafCentre(*functions));
    }
    if (auto* watch = ViewOf<CGridCtrl>(ide.panes.watch1)) {
        const int inputRow = watch->GetItemCount() - 1;
        watch->EnsureVisible(inputRow, FALSE);
        points.Add("watch_input_row", watch, GridCellCentre(*watch, inputRow, kExpressionColumn));
        points.Add("watch_phase", watch, GridCellCentre(*watch, GridLineOf(*watch, "phase"), kExpressionColumn));
    }
    points.Add("source_line_" + std::to_string(kSourceLine), &ide.source, SourceLineCentre(ide.source, kSourceLine));
    points.Add("bottom_splitter", &ide, ide.RegionSplitterRect(DockRegion::Bottom).CenterPoint());
    AddTab(points, "tab_build", ide, ide.panes.build);
    AddTab(points, "tab_search", ide, ide.panes.search);
    AddTab(points, "tab_debug", ide, ide.panes.debug);
    AddTab(points, "tab_watch1", ide, ide.panes.watch1);
    AddTab(points, "tab_watch2", ide, ide.panes.watch2);
    return points.Write(file);
}
