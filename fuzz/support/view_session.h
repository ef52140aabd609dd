// What the view targets share: a view hosted in a pane of a test host, made
// once per fuzz process; the state every input starts from; and the user's
// gestures read from the input.
#pragma once

#include <span>

#include "fuzz/support/fuzz_check.h"
#include "fuzz/support/op_stream.h"
#include "platform/core/wnd.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"

namespace FuzzViews {

// Loads the panes module once, as a host does, so that the views' menus
// and strings are found.
void LoadPanesModule();

// Hosts a view the way the panes do: inside a pane at `rect` of the host,
// with the pane's context-menu requests going to the view's menu. The host
// shrinks to what the pane and the points just outside it need: less to
// paint at every event.
template <class View>
void HostView(TestHost& host, TestPane& pane, View& view, const CRect& rect)
{
    LoadPanesModule();
    host.MoveWindow(0, 0, rect.right + 60, rect.bottom + 60);
    pane.view = &view;
    pane.onContextMenu = [&view](CPoint point) { view.ShowMenu(point); };
    FUZZ_CHECK(pane.CreatePane(&host, rect) && view.Create(&pane));
    pane.MoveWindow(rect.left, rect.top, rect.Width(), rect.Height());
}

// Forgets what earlier inputs left in the process: queued and shown menus
// and message boxes, what the host received, the host's answers, a pending
// double click, the mouse capture and the dock font. The pane's view gets
// the focus, and the pane's painting is held back until a PaintPass.
void BeginInput(TestHost& host, TestPane& pane);

// Paints what the pane and its view have pending, then holds their painting
// back again. The input layer paints after every event, which would take
// most of the time; an input paints when it asks for it and at its end.
void PaintPass(TestPane& pane);

// One gesture of the user on the pane's view: a click, double click, right click
// (its menu answered with one of `commands`, or dismissed), the menu asked
// for from the keyboard, a key with modifiers, typed bytes, the wheel, a
// drag, or a pause. Points are in the view's client coordinates and may lie
// on its frame, its scroll bars or outside it.
void PlayGesture(OpStream& ops, TestPane& pane, std::span<const UINT> commands);

// The view's pane resized to a size read from the input (down to nothing).
void ResizePane(OpStream& ops, TestPane& pane);

}  // namespace FuzzViews
