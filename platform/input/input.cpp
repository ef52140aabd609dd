#include "platform/input/input.h"

#include "platform/core/input_state.h"
#include "platform/core/modal_loop.h"
#include "platform/core/paint.h"
#include "platform/core/thread.h"
#include "platform/input/real_input.h"
#include "platform/input/screen_input.h"

namespace Input {
namespace {

struct ClickMemory {
    HWND window = nullptr;
    POINT screen{};
    DWORD time = 0;
    bool armed = false;  // the last event was a left click that may pair
};

DWORD g_clock = 1000;
bool g_realClock = false;  // the clock is set from real event times
ClickMemory g_lastClick;

// The time of the next event: real events carry theirs.
DWORD NextTime()
{
    return g_realClock ? g_clock : g_clock + kEventSpacing;
}

DWORD Tick()
{
    g_clock = NextTime();
    return g_clock;
}

using Screen::PressModifiers;

// The control character a key types (Ctrl+letter, Enter, Backspace, Escape,
// Tab), as the platform's translation gives it; 0 for none.
int ControlCharacterOf(UINT key)
{
    if (GetKeyState(static_cast<int>(VK_CONTROL)) < 0) return key >= 'A' && key <= 'Z' ? static_cast<int>(key - 'A' + 1) : 0;
    switch (key) {
    case VK_RETURN: return '\r';
    case VK_BACK: return '\b';
    case VK_ESCAPE: return 0x1B;
    case VK_TAB: return '\t';
    default: return 0;
    }
}

// The character a key types, as the platform's translation gives it; 0 for none.
int CharacterOf(UINT key)
{
    if (const int control = ControlCharacterOf(key)) return control;
    if (GetKeyState(static_cast<int>(VK_CONTROL)) < 0) return 0;
    const bool shift = GetKeyState(static_cast<int>(VK_SHIFT)) < 0;
    if (key >= 'A' && key <= 'Z') return shift ? static_cast<int>(key) : static_cast<int>(key - 'A' + 'a');
    if (key >= '0' && key <= '9') return static_cast<int>(key);
    return key == VK_SPACE ? ' ' : 0;
}

// Which characters a key down is translated into: all it types (simulated
// keys), or control characters alone (real keys, whose text comes apart).
using Translation = int (*)(UINT key);

// Modifiers held for the event alone, or pressed before it.
UINT MouseFlags(unsigned modifiers)
{
    UINT flags = 0;
    if ((modifiers & kShift) || GetKeyState(static_cast<int>(VK_SHIFT)) < 0) flags |= MK_SHIFT;
    if ((modifiers & kControl) || GetKeyState(static_cast<int>(VK_CONTROL)) < 0) flags |= MK_CONTROL;
    if (GetKeyState(static_cast<int>(VK_LBUTTON)) < 0) flags |= MK_LBUTTON;
    if (GetKeyState(static_cast<int>(VK_RBUTTON)) < 0) flags |= MK_RBUTTON;
    return flags;
}

bool IsInputMessage(UINT message)
{
    return (message >= WM_MOUSEMOVE && message <= WM_MOUSEWHEEL) || (message >= WM_KEYDOWN && message <= WM_SYSCHAR);
}

// The screen point of a client point; false for a gone window.
bool ToScreen(CWnd* window, CPoint clientPoint, POINT* screen)
{
    if (!window || !IsWindow(window->GetSafeHwnd())) return false;
    *screen = clientPoint;
    window->ClientToScreen(screen);
    return true;
}

// Sends a mouse message to the window the platform routes it to: the
// capture, else the window under the point, as a non-client message when
// the point is over its frame (a scroll bar).
void DeliverMouse(UINT message, POINT screen, unsigned modifiers)
{
    SetCursorPos(screen.x, screen.y);
    MSG msg;
    msg.message = message;
    msg.wParam = MouseFlags(modifiers);
    msg.pt = screen;
    if (ModalInput::Active()) {
        msg.hwnd = WindowFromPoint(screen);
        msg.lParam = MAKELPARAM(screen.x, screen.y);
        Deliver(msg);
        return;
    }
    HWND target = GetCapture();
    int hit = HTCLIENT;
    if (!target && (target = WindowFromPoint(screen)) != nullptr) {
        hit = static_cast<int>(SendMessage(target, WM_NCHITTEST, 0, MAKELPARAM(screen.x, screen.y)));
    }
    InputState::MouseOver(target, hit == HTCLIENT);
    if (!target || !IsWindow(target)) return;
    msg.hwnd = target;
    if (hit != HTCLIENT) {
        msg.message = message - kNonClientMouseOffset;
        msg.wParam = static_cast<WPARAM>(hit);
        msg.lParam = MAKELPARAM(screen.x, screen.y);
    } else {
        POINT local = screen;
        ScreenToClient(target, &local);
        msg.lParam = MAKELPARAM(local.x, local.y);
    }
    Deliver(msg);
}

bool DeliverTranslated(MSG message, Translation translate);

void DeliverKey(UINT message, UINT key, Translation translate = CharacterOf)
{
    const HWND focus = GetFocus();
    // A modal loop of the platform takes keys whether a window has the focus or not.
    if (!focus && !ModalInput::Active()) return;
    MSG msg;
    msg.hwnd = focus;
    msg.message = message;
    msg.wParam = key;
    msg.lParam = message == WM_KEYUP ? static_cast<LPARAM>(0xC0000001) : 1;
    GetCursorPos(&msg.pt);
    DeliverTranslated(msg, translate);
}

}  // namespace

namespace Screen {

void Button(POINT screen, bool right, bool down, unsigned modifiers)
{
    const int key = static_cast<int>(right ? VK_RBUTTON : VK_LBUTTON);
    UINT message = right ? (down ? WM_RBUTTONDOWN : WM_RBUTTONUP) : (down ? WM_LBUTTONDOWN : WM_LBUTTONUP);
    if (down && !right) {
        // A press that follows a click in the same place soon enough pairs with it.
        const DWORD now = NextTime();
        const HWND target = GetCapture() ? GetCapture() : WindowFromPoint(screen);
        const bool pairs = g_lastClick.armed && g_lastClick.window == target && g_lastClick.screen.x == screen.x &&
                           g_lastClick.screen.y == screen.y && now - g_lastClick.time <= kDoubleClickTime;
        if (pairs) message = WM_LBUTTONDBLCLK;
        g_lastClick = ClickMemory{target, screen, now, !pairs};
    } else if (down) {
        g_lastClick.armed = false;
    }
    InputState::SetKeyDown(key, down);
    DeliverMouse(message, screen, modifiers);
}

void Move(POINT screen, unsigned modifiers)
{
    DeliverMouse(WM_MOUSEMOVE, screen, modifiers);
}

void Wheel(POINT screen, int delta)
{
    SetCursorPos(screen.x, screen.y);
    const HWND focus = GetFocus();
    MSG msg;
    msg.hwnd = focus ? focus : WindowFromPoint(screen);
    msg.message = WM_MOUSEWHEEL;
    msg.wParam = MAKEWPARAM(static_cast<int>(MouseFlags(kNone)), delta);
    msg.lParam = MAKELPARAM(screen.x, screen.y);  // the wheel carries screen coordinates
    msg.pt = screen;
    if (msg.hwnd) Deliver(msg);
}

void PressModifiers(unsigned modifiers, bool down)
{
    const UINT keys[] = {VK_CONTROL, VK_SHIFT, VK_MENU};
    const unsigned bits[] = {kControl, kShift, kAlt};
    for (int i = 0; i < 3; ++i) {
        if (!(modifiers & bits[i])) continue;
        InputState::SetKeyDown(static_cast<int>(keys[i]), down);
        DeliverKey(down ? WM_KEYDOWN : WM_KEYUP, keys[i]);
    }
}

}  // namespace Screen

namespace {

void Button(CWnd* window, CPoint clientPoint, bool right, bool down, unsigned modifiers)
{
    POINT screen;
    if (ToScreen(window, clientPoint, &screen)) return Screen::Button(screen, right, down, modifiers);
    // Nowhere to deliver it, but the button is up or down all the same.
    InputState::SetKeyDown(static_cast<int>(right ? VK_RBUTTON : VK_LBUTTON), down);
}

}  // namespace

bool Deliver(MSG message)
{
    return DeliverTranslated(message, CharacterOf);
}

namespace {

bool DeliverTranslated(MSG message, Translation translate)
{
    message.time = Tick();
    // A modal loop of the platform (a scroll bar or OLE drag) holds the input.
    if (IsInputMessage(message.message) && ModalInput::Dispatch(message)) {
        Paint::UpdateAllWindows();
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam != VK_CONTROL && message.wParam != VK_SHIFT) g_lastClick.armed = false;
    CWinThread* thread = AfxGetThread();
    const bool taken = thread ? thread->PreTranslateMessage(&message) != FALSE : WalkPreTranslateTree(nullptr, &message) != FALSE;
    if (!taken) {
        SendMessage(message.hwnd, message.message, message.wParam, message.lParam);
        if (message.message == WM_KEYDOWN) {
            if (const int ch = translate(static_cast<UINT>(message.wParam)); ch && IsWindow(message.hwnd)) {
                MSG typed = message;
                typed.message = WM_CHAR;
                typed.wParam = static_cast<WPARAM>(ch);
                Deliver(typed);
            }
        }
    }
    Paint::UpdateAllWindows();
    return taken;
}

}  // namespace

void MouseDown(CWnd* window, CPoint clientPoint, bool right, unsigned modifiers)
{
    PressModifiers(modifiers, true);
    Button(window, clientPoint, right, true, modifiers);
}

void MouseUp(CWnd* window, CPoint clientPoint, bool right, unsigned modifiers)
{
    Button(window, clientPoint, right, false, modifiers);
    PressModifiers(modifiers, false);
}

void Click(CWnd* window, CPoint clientPoint, unsigned modifiers)
{
    PressModifiers(modifiers, true);
    Button(window, clientPoint, false, true, modifiers);
    Button(window, clientPoint, false, false, modifiers);
    PressModifiers(modifiers, false);
}

void RightClick(CWnd* window, CPoint clientPoint, unsigned modifiers)
{
    PressModifiers(modifiers, true);
    Button(window, clientPoint, true, true, modifiers);
    Button(window, clientPoint, true, false, modifiers);
    PressModifiers(modifiers, false);
}

void DoubleClick(CWnd* window, CPoint clientPoint, unsigned modifiers)
{
    Wait();
    Click(window, clientPoint, modifiers);
    Click(window, clientPoint, modifiers);
}

void MouseMove(CWnd* window, CPoint clientPoint, unsigned modifiers)
{
    POINT screen;
    if (ToScreen(window, clientPoint, &screen)) Screen::Move(screen, modifiers);
}

void Wheel(CWnd* window, CPoint clientPoint, int delta)
{
    if (!window) return;
    POINT screen = clientPoint;
    window->ClientToScreen(&screen);
    Screen::Wheel(screen, delta);
}

void KeyDown(UINT virtualKey, unsigned modifiers)
{
    PressModifiers(modifiers, true);
    InputState::SetKeyDown(static_cast<int>(virtualKey), true);
    DeliverKey(WM_KEYDOWN, virtualKey);
}

void KeyUp(UINT virtualKey, unsigned modifiers)
{
    InputState::SetKeyDown(static_cast<int>(virtualKey), false);
    DeliverKey(WM_KEYUP, virtualKey);
    PressModifiers(modifiers, false);
}

void Key(UINT virtualKey, unsigned modifiers)
{
    KeyDown(virtualKey, modifiers);
    KeyUp(virtualKey, modifiers);
}

void Type(std::string_view gbkText)
{
    for (const char c : gbkText) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 'a' && byte <= 'z') {
            Key(byte - 'a' + 'A');
        } else if (byte >= 'A' && byte <= 'Z') {
            Key(byte, kShift);
        } else if ((byte >= '0' && byte <= '9') || byte == ' ') {
            Key(byte == ' ' ? VK_SPACE : byte);
        } else if (const HWND focus = GetFocus()) {
            MSG msg;
            msg.hwnd = focus;
            msg.message = WM_CHAR;
            msg.wParam = byte;
            msg.lParam = 1;
            Deliver(msg);
        }
    }
}

void Wait(unsigned milliseconds)
{
    g_clock += milliseconds;
}

namespace Real {

void SetTime(DWORD milliseconds)
{
    g_realClock = true;
    g_clock = milliseconds;
}

void UseSimulatedClock()
{
    g_realClock = false;
}

void Key(UINT virtualKey, bool down)
{
    InputState::SetKeyDown(static_cast<int>(virtualKey), down);
    DeliverKey(down ? WM_KEYDOWN : WM_KEYUP, virtualKey, ControlCharacterOf);
}

void Char(unsigned char byte)
{
    DeliverKey(WM_CHAR, byte);
}

}  // namespace Real

}  // namespace Input
