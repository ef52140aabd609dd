// Loads the panes module, docks the bookmark pane in a frame of its own over
// a bookmark list with one mark, refreshes the view and checks it shows that
// mark. Exits 0 when it does.
#include <cstdio>

#include "host/host_messages.h"
#include "host/host_records.h"
#include "marks/mark_lists.h"
#include "panes/dock_bar_book_mark.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"

namespace {

// The main frame: answers the panes' request for the application data.
class Host : public CFrameWnd {
public:
    AppData appData;
    ProjectContext context;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == UWM_GET_APP_DATA) {
            if (lParam) *reinterpret_cast<AppData**>(lParam) = &appData;
            return 0;
        }
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }
};

int Fail(const char* what)
{
    std::fprintf(stderr, "package_host: %s\n", what);
    return 1;
}

int ShowOneBookmark()
{
    CWinApp app("package host");
    Host host;
    host.appData.context = &host.context;
    if (!host.Create(nullptr, "package host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 640, 480)))
        return Fail("the frame was not created");
    app.m_pMainWnd = &host;

    CBookMarkList marks;
    auto* group = new CBookMarkItems;
    group->file = "C:\\work\\host\\main.c";
    auto* mark = new CBookMarkItem;
    mark->line = 12;
    group->OrdAdd(mark);
    marks.Add(group);
    host.context.bookMarkList = &marks;

    int result = 0;
    {
        CDockBarBookMark pane;
        if (!pane.Create("Bookmarks", &host, CRect(0, 0, 300, 200), 0xE800)) {
            result = Fail("the bookmark pane was not created");
        } else {
            auto* view = dynamic_cast<CBookMarkListTreeCtrl*>(CWnd::FromHandle(pane.GetViewHwnd()));
            if (!view) {
                result = Fail("the bookmark pane has no bookmark view");
            } else {
                view->SendMessage(UWM_REFRESH_VIEW, 0, 0);
                int nodes = 0;
                for (HTREEITEM node = view->GetRootItem(); node; node = view->GetNextSiblingItem(node)) ++nodes;
                if (nodes != 1) {
                    std::fprintf(stderr, "package_host: %d nodes for one bookmark\n", nodes);
                    result = 1;
                } else if (view->GetItemText(view->GetRootItem()).Find("main.c") < 0) {
                    result = Fail("the bookmark's node does not name its file");
                }
            }
        }
    }
    host.context.bookMarkList = nullptr;
    app.m_pMainWnd = nullptr;
    host.DestroyWindow();
    return result;
}

}  // namespace

int main()
{
    HINSTANCE module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
    if (!module) {
        std::fprintf(stderr, "package_host: cannot load %s: %s\n", DOCKPANES_MODULE_PATH, AfxLastLoadError());
        return 1;
    }
    const int result = ShowOneBookmark();
    AfxFreeLibrary(module);
    if (result == 0) std::puts("package_host: the bookmark pane shows the one mark");
    return result;
}
