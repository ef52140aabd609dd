#include "platform/ole/drag_session.h"

#include "platform/core/input_state.h"
#include "platform/core/messages.h"
#include "platform/core/wnd.h"
#include "platform/ole/ole_drop_target.h"

namespace {

constexpr DROPEFFECT kNotHandled = static_cast<DROPEFFECT>(-1);

bool IsMouseMessage(UINT message)
{
    return message >= WM_MOUSEMOVE && message <= WM_MOUSEWHEEL;
}

bool IsKeyMessage(UINT message)
{
    return message >= WM_KEYDOWN && message <= WM_SYSCHAR;
}

bool IsButtonPress(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN ||
           message == WM_RBUTTONDBLCLK;
}

// The key state the event left, as drop targets are given it. A mouse event
// may carry modifiers held for that event alone.
DWORD KeyState(const MSG& msg)
{
    DWORD keys = 0;
    if (IsKeyDown(VK_LBUTTON)) keys |= MK_LBUTTON;
    if (IsKeyDown(VK_RBUTTON)) keys |= MK_RBUTTON;
    if (IsKeyDown(VK_SHIFT)) keys |= MK_SHIFT;
    if (IsKeyDown(VK_CONTROL)) keys |= MK_CONTROL;
    if (IsKeyDown(VK_MENU)) keys |= MK_ALT;
    if (IsMouseMessage(msg.message)) keys |= static_cast<DWORD>(msg.wParam) & (MK_SHIFT | MK_CONTROL);
    return keys;
}

// The nearest window from the one under the point up that has a target.
HWND TargetWindowAt(POINT screen)
{
    for (HWND hwnd = WindowFromPoint(screen); hwnd; hwnd = ::GetParent(hwnd)) {
        if (DropTargetOf(hwnd)) return hwnd;
    }
    return nullptr;
}

// The window's target while it still has the registration it had.
COleDropTarget* Registered(HWND hwnd, std::uint64_t number)
{
    return hwnd && DropTargetRegistration(hwnd) == number ? DropTargetOf(hwnd) : nullptr;
}

}  // namespace

DragSession::DragSession(const FormatBlocks& data, DWORD allowed, std::optional<CRect> startRect)
    : m_blocks(data), m_allowed(allowed), m_startRect(startRect)
{
}

void DragSession::Start(const ModalLoop* loop, bool trackAtStart)
{
    m_loop = loop;
    MSG now;
    GetCursorPos(&now.pt);
    const DWORD keys = KeyState(now);
    // The button held when the drag starts drops; the other one cancels.
    if (!(keys & MK_LBUTTON) && (keys & MK_RBUTTON)) {
        m_dropButton = MK_RBUTTON;
        m_cancelButton = MK_LBUTTON;
    }
    if (!(keys & m_dropButton)) return Cancel();
    if (!trackAtStart) {
        m_phase = Phase::kDragging;
        m_point = now.pt;
        m_keys = keys;
    } else if (!m_startRect || !m_startRect->PtInRect(now.pt)) {
        Begin(now.pt, keys);
    }
}

void DragSession::OnInput(const MSG& msg)
{
    if (m_phase == Phase::kEnded) return;
    const DWORD keys = KeyState(msg);
    const bool escape = msg.message == WM_KEYDOWN && msg.wParam == VK_ESCAPE;
    if (escape || IsButtonPress(msg.message) || (keys & m_cancelButton)) return Cancel();
    if (!(keys & m_dropButton)) return Drop(msg.pt, keys);
    if (m_phase == Phase::kWaiting) {
        if (msg.message == WM_MOUSEMOVE && !m_startRect->PtInRect(msg.pt)) Begin(msg.pt, keys);
        return;
    }
    if (msg.message == WM_MOUSEMOVE) {
        Track(msg.pt, keys);
    } else if (IsKeyMessage(msg.message) && keys != m_keys) {
        m_keys = keys;
        m_effect = Over();
    }
}

DROPEFFECT DragSession::Finish()
{
    // The loop has ended already (out of events, or another loop took over).
    if (m_phase != Phase::kEnded) {
        m_phase = Phase::kEnded;
        Leave();
        m_result = DROPEFFECT_NONE;
    }
    return m_result;
}

void DragSession::Begin(POINT screen, DWORD keys)
{
    // The drag holds the mouse from now on, whoever had it.
    if (::GetCapture()) ::ReleaseCapture();
    m_phase = Phase::kDragging;
    Track(screen, keys);
}

void DragSession::Track(POINT screen, DWORD keys)
{
    m_point = screen;
    m_keys = keys;
    const HWND wnd = TargetWindowAt(screen);
    const std::uint64_t number = DropTargetRegistration(wnd);
    if (wnd == m_wnd && number == m_number) {
        m_effect = Over();
        return;
    }
    Leave();
    m_wnd = wnd;
    m_number = number;
    m_effect = Enter();
}

void DragSession::Drop(POINT screen, DWORD keys)
{
    const bool started = m_phase == Phase::kDragging;
    // Released somewhere the last event did not reach: the target there answers first.
    if (started && (screen.x != m_point.x || screen.y != m_point.y)) Track(screen, keys);
    EndLoop();
    COleDropTarget* target = Target();
    if (!started || !target || m_effect == DROPEFFECT_NONE) return Leave();
    const HWND hwnd = m_wnd;
    const std::uint64_t number = m_number;
    const CPoint point = ClientPoint();
    const DROPEFFECT last = m_effect;
    m_wnd = nullptr;  // dropped: no leave follows
    DROPEFFECT effect = target->OnDropEx(CWnd::FromHandle(hwnd), Data(), last, m_allowed, point);
    if (effect == kNotHandled) {
        target = Registered(hwnd, number);
        effect = target && target->OnDrop(CWnd::FromHandle(hwnd), Data(), last, point) ? last : DROPEFFECT_NONE;
    }
    m_result = effect & m_allowed;
}

void DragSession::Cancel()
{
    EndLoop();
    Leave();
    m_result = DROPEFFECT_NONE;
}

void DragSession::EndLoop()
{
    m_phase = Phase::kEnded;
    ModalInput::End(m_loop);
}

COleDropTarget* DragSession::Target() const
{
    return Registered(m_wnd, m_number);
}

CWnd* DragSession::TargetWnd() const
{
    return CWnd::FromHandle(m_wnd);
}

CPoint DragSession::ClientPoint() const
{
    CPoint point(m_point);
    ::ScreenToClient(m_wnd, &point);
    return point;
}

COleDataObject* DragSession::Data()
{
    // Attached again for each call: a target may have released it.
    m_data.Attach(&m_blocks);
    return &m_data;
}

DROPEFFECT DragSession::Enter()
{
    COleDropTarget* target = Target();
    if (!target) return DROPEFFECT_NONE;
    return target->OnDragEnter(TargetWnd(), Data(), m_keys, ClientPoint()) & m_allowed;
}

DROPEFFECT DragSession::Over()
{
    COleDropTarget* target = Target();
    if (!target) return DROPEFFECT_NONE;
    DROPEFFECT effect = target->OnDragScroll(TargetWnd(), m_keys, ClientPoint());
    if (effect == DROPEFFECT_NONE && (target = Target()) != nullptr) {
        effect = target->OnDragOver(TargetWnd(), Data(), m_keys, ClientPoint());
    }
    return effect & m_allowed;
}

void DragSession::Leave()
{
    COleDropTarget* target = Target();
    CWnd* wnd = TargetWnd();
    m_wnd = nullptr;
    m_number = 0;
    m_effect = DROPEFFECT_NONE;
    if (target) target->OnDragLeave(wnd);
}
