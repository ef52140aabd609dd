// The drag loop behind COleDataSource::DoDragDrop and behind drops that come
// from another application. It runs nested inside the call that starts it,
// as a modal input loop pulling its events from the platform's event source
// (ModalInput::Run): a test queues them first (platform/input/input.h).
//
// Each move finds the child-most visible window under the mouse and walks up
// to the nearest one with a registered drop target. A new target window
// makes the old target hear OnDragLeave and the new one OnDragEnter; the same
// one hears OnDragScroll and then OnDragOver. A key event that changes the
// key state asks OnDragOver again where the mouse stands. Answers are masked
// by the allowed effects.
// Releasing the drag's button over a target whose last answer was not
// DROPEFFECT_NONE drops there: OnDropEx, and OnDrop when that answers -1.
// Released anywhere else, Esc, or a press of a button, cancel: the target
// hears OnDragLeave and the drag gives DROPEFFECT_NONE. So does running out
// of events.
#pragma once

#include "platform/ole/format_blocks.h"
#include "platform/ole/ole_types.h"

namespace OleDrag {

// A drag of this application's data, started where the mouse is, with its
// button held. lpRectStartDrag (screen coordinates, may be null) holds the
// drag back until the mouse leaves it. With another drag running, or no
// button held, DROPEFFECT_NONE at once.
AFX_API DROPEFFECT Run(const FormatBlocks& data, DWORD dwEffects, LPCRECT lpRectStartDrag);
// The same loop for data dragged in from another application: the drag
// enters at its first event, not where the mouse was.
AFX_API DROPEFFECT RunFromOutside(const FormatBlocks& data, DWORD dwEffects);
AFX_API bool Active();

}  // namespace OleDrag
