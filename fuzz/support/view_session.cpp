#include "fuzz/support/view_session.h"

#include <array>

#include "fuzz/support/fuzz_check.h"
#include "platform/core/message_box.h"
#include "platform/core/module.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "siblings/orv_project_misc.h"

namespace FuzzViews {

namespace {

// The keys the views or their controls act on, and a few they ignore.
constexpr std::array<UINT, 20> kKeys = {
    VK_RETURN, VK_ESCAPE, VK_F5, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_PRIOR,
    VK_NEXT,   VK_SPACE,  VK_BACK, VK_DELETE, VK_TAB, VK_ADD, VK_MULTIPLY, 'A', 'C', VK_F10,
};

CPoint ReadPoint(OpStream& ops)
{
    // From just left of and above the views (at most 300 by 160 pixels, small
    // so that a paint pass stays cheap) to past their right and bottom edges.
    const int x = ops.Byte() * 3 / 2 - 16;
    const int y = ops.Byte() - 16;
    return CPoint(x, y);
}

// Modifiers with one event in four: each one held is two more key events.
unsigned ReadModifiers(OpStream& ops)
{
    const unsigned byte = ops.Byte();
    return (byte & 0x18) == 0x18 ? byte & (Input::kShift | Input::kControl | Input::kAlt) : 0;
}

}  // namespace

void LoadPanesModule()
{
    static const HINSTANCE module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
    FUZZ_CHECK(module != nullptr);
}

void BeginInput(TestHost& host, TestPane& pane)
{
    MenuDriver::Reset();
    MessageBoxes::Reset();
    OrvProjectMisc::SetDockFont("\xCB\xCE\xCC\xE5", 9);  // 宋体, the default
    ReleaseCapture();
    host.Clear();
    host.appData.context = &host.context;
    host.answersAppData = true;
    host.answersProjectPath = true;
    host.projectPath = "C:\\work\\demo\\demo.prj";
    Input::Wait();
    pane.SetRedraw(FALSE);
    pane.view->SetFocus();
}

void PaintPass(TestPane& pane)
{
    pane.SetRedraw(TRUE);
    Paint::UpdateAllWindows();
    pane.SetRedraw(FALSE);
}

void PlayGesture(OpStream& ops, TestPane& pane, std::span<const UINT> commands)
{
    CWnd& view = *pane.view;
    switch (ops.Below(9)) {
    case 0:
        Input::Click(&view, ReadPoint(ops), ReadModifiers(ops));
        break;
    case 1:
        Input::DoubleClick(&view, ReadPoint(ops), ReadModifiers(ops));
        break;
    case 2:
    case 3: {
        // The answer: one of the view's commands, or an index past them,
        // which dismisses the menu.
        const unsigned choice = ops.Byte();
        if (choice < commands.size()) MenuDriver::Choose(commands[choice]);
        else MenuDriver::Dismiss();
        const CPoint point = ReadPoint(ops);
        if (ops.Bool()) {
            Input::RightClick(&view, point);
        } else {
            CPoint screen = point;
            view.ClientToScreen(&screen);
            pane.onContextMenu(screen);
        }
        break;
    }
    case 4:
        Input::Key(kKeys[ops.Below(kKeys.size())], ReadModifiers(ops));
        break;
    case 5:
        Input::Type(ops.Text(16));
        break;
    case 6:
        Input::Wheel(&view, ReadPoint(ops), static_cast<std::int8_t>(ops.Byte()) * 40);
        break;
    case 7: {
        const CPoint from = ReadPoint(ops);
        Input::Drag(&view, from, ReadPoint(ops), 1 + ops.Below(4), ReadModifiers(ops));
        break;
    }
    default:
        Input::Wait(ops.Byte() * 10u);
        break;
    }
}

void ResizePane(OpStream& ops, TestPane& pane)
{
    CRect rect;
    pane.GetWindowRect(&rect);
    pane.GetParent()->ScreenToClient(&rect);
    pane.MoveWindow(rect.left, rect.top, ops.Byte() * 2, ops.Byte() * 2);
}

}  // namespace FuzzViews
