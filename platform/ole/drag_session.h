// One drag, from its start to its drop or cancel: which target the mouse is
// over, what it last answered, and the calls to the targets. OleDrag::Run
// feeds it the events of its modal loop.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/core/messages.h"
#include "platform/core/modal_loop.h"
#include "platform/ole/ole_data_object.h"
#include "platform/ole/ole_types.h"

class COleDropTarget;
class CWnd;

class DragSession {
public:
    // startRect: screen rectangle the mouse must leave before the drag
    // begins; none begins it at once.
    DragSession(const FormatBlocks& data, DWORD allowed, std::optional<CRect> startRect);
    DragSession(const DragSession&) = delete;
    DragSession& operator=(const DragSession&) = delete;

    // The loop that feeds this session, ended when the drag ends. With
    // trackAtStart the drag is over the window under the mouse at once.
    void Start(const ModalLoop* loop, bool trackAtStart);
    void OnInput(const MSG& msg);
    // After the loop has ended: a drag that did not end by itself is
    // cancelled. The result.
    DROPEFFECT Finish();

private:
    enum class Phase { kWaiting, kDragging, kEnded };

    void Begin(POINT screen, DWORD keys);
    void Track(POINT screen, DWORD keys);
    void Drop(POINT screen, DWORD keys);
    void Cancel();
    void EndLoop();

    // The target entered, while it is still registered for its window.
    COleDropTarget* Target() const;
    CWnd* TargetWnd() const;
    CPoint ClientPoint() const;
    COleDataObject* Data();
    DROPEFFECT Enter();
    DROPEFFECT Over();
    void Leave();

    const FormatBlocks& m_blocks;
    COleDataObject m_data;
    DWORD m_allowed;
    std::optional<CRect> m_startRect;
    const ModalLoop* m_loop = nullptr;
    Phase m_phase = Phase::kWaiting;
    DWORD m_dropButton = MK_LBUTTON;
    DWORD m_cancelButton = MK_RBUTTON;

    HWND m_wnd = nullptr;          // the window of the target entered
    std::uint64_t m_number = 0;    // its registration when entered
    POINT m_point{};               // screen point of the last event tracked
    DWORD m_keys = 0;              // key state last passed to the target
    DROPEFFECT m_effect = DROPEFFECT_NONE;  // its last answer
    DROPEFFECT m_result = DROPEFFECT_NONE;
};
