#include "platform/core/message_box_window.h"

#include <memory>

#include "platform/core/input_state.h"
#include "platform/core/modal_loop.h"
#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/core/thread.h"
#include "platform/gdi/gdi_object.h"
#include "platform/gdi/sys_color.h"

namespace {

constexpr int kCaptionIndent = 6;  // caption text clear of the frame

// The box sits over its owner, else over the main window.
HWND PlaceOf(HWND owner)
{
    if (IsWindow(owner)) return owner;
    CWnd* main = AfxGetMainWnd();
    return main ? main->GetSafeHwnd() : nullptr;
}

// An icon type's glyph and its colour.
struct Glyph {
    const char* letter;
    COLORREF colour;
};

Glyph GlyphOf(UINT type)
{
    switch (type & 0xF0) {
    case MB_ICONHAND: return {"X", RGB(200, 0, 0)};
    case MB_ICONQUESTION: return {"?", RGB(0, 80, 200)};
    case MB_ICONWARNING: return {"!", RGB(220, 160, 0)};
    default: return {"i", RGB(0, 80, 200)};
    }
}

}  // namespace

class MessageBoxWindow::InputLoop : public ModalLoop {
public:
    explicit InputLoop(MessageBoxWindow& box) : m_box(box), m_hwnd(box.GetSafeHwnd()) {}

    void OnInput(const MSG& msg) override
    {
        if (!IsWindow(m_hwnd)) m_box.Press(m_box.m_layout.cancelButton);
        else if (msg.message == WM_KEYDOWN) m_box.OnKey(static_cast<UINT>(msg.wParam));
        else if (msg.message >= WM_MOUSEMOVE && msg.message <= WM_RBUTTONDBLCLK) m_box.OnMouse(msg.message, msg.pt);
        if (m_box.m_result) ModalInput::End(this);
    }

private:
    MessageBoxWindow& m_box;
    HWND m_hwnd;
};

BEGIN_MESSAGE_MAP(MessageBoxWindow, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

MessageBoxWindow::~MessageBoxWindow()
{
    if (m_hWnd) DestroyWindow();
}

int MessageBoxWindow::Run()
{
    const HWND place = PlaceOf(m_record.owner);
    CRect over;
    if (place) ::GetWindowRect(place, &over);
    m_layout = MessageBoxGeometry::LayOut(m_record, over, &MessageBoxGeometry::DialogFontWidth);
    m_focus = m_layout.defaultButton;
    const int cancel = m_layout.buttons[static_cast<size_t>(m_layout.cancelButton)].id;
    CWnd* owner = IsWindow(m_record.owner) ? CWnd::FromHandle(m_record.owner) : nullptr;
    if (!CreateEx(0, "#32770", m_record.caption.c_str(), WS_POPUP | WS_VISIBLE, m_layout.window, owner, 0)) return cancel;
    Paint::UpdateAllWindows();

    auto loop = std::make_unique<InputLoop>(*this);
    const ModalLoop* running = loop.get();
    ModalInput::Begin(std::move(loop));
    ModalInput::Run(running);
    if (m_hWnd) DestroyWindow();
    Paint::UpdateAllWindows();
    return m_result ? m_result : cancel;
}

void MessageBoxWindow::OnKey(UINT key)
{
    switch (key) {
    case VK_RETURN:
    case VK_SPACE: return Press(m_focus);
    case VK_ESCAPE: return Press(m_layout.cancelButton);
    case VK_TAB: return MoveFocus(IsKeyDown(static_cast<int>(VK_SHIFT)) ? -1 : 1);
    case VK_RIGHT:
    case VK_DOWN: return MoveFocus(1);
    case VK_LEFT:
    case VK_UP: return MoveFocus(-1);
    default:
        for (size_t i = 0; i < m_layout.buttons.size(); ++i) {
            if (m_layout.buttons[i].key == key) return Press(static_cast<int>(i));
        }
    }
}

void MessageBoxWindow::OnMouse(UINT message, POINT screen)
{
    const int button = ButtonAt(screen);
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
        // A press on a button focuses it; it is pressed when the button is
        // released over it, as push buttons are.
        if (button < 0) return;
        m_pressed = button;
        m_focus = button;
        Invalidate(FALSE);
    } else if (message == WM_LBUTTONUP) {
        const int pressed = m_pressed;
        m_pressed = -1;
        Invalidate(FALSE);
        if (pressed >= 0 && pressed == button) Press(button);
    }
}

int MessageBoxWindow::ButtonAt(POINT screen) const
{
    POINT client = screen;
    ScreenToClient(&client);
    for (size_t i = 0; i < m_layout.buttons.size(); ++i) {
        if (m_layout.buttons[i].rect.PtInRect(client)) return static_cast<int>(i);
    }
    return -1;
}

void MessageBoxWindow::MoveFocus(int step)
{
    const int count = static_cast<int>(m_layout.buttons.size());
    m_focus = (m_focus + step + count) % count;
    Invalidate(FALSE);
}

void MessageBoxWindow::Press(int index)
{
    if (index < 0 || static_cast<size_t>(index) >= m_layout.buttons.size()) return;
    m_result = m_layout.buttons[static_cast<size_t>(index)].id;
}

void MessageBoxWindow::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(&client, GetSysColor(COLOR_BTNFACE));
    dc.SelectObject(CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT)));
    dc.SetBkMode(TRANSPARENT);

    CRect caption = m_layout.caption;
    dc.FillSolidRect(&caption, GetSysColor(COLOR_ACTIVECAPTION));
    caption.DeflateRect(kCaptionIndent, 0);
    dc.SetTextColor(GetSysColor(COLOR_CAPTIONTEXT));
    dc.DrawText(m_record.caption.c_str(), static_cast<int>(m_record.caption.size()), &caption,
                DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    dc.Draw3dRect(&client, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_3DDKSHADOW));

    PaintIcon(dc);
    dc.SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
    int y = m_layout.text.top;
    for (const std::string& line : m_layout.lines) {
        CRect row(m_layout.text.left, y, m_layout.text.right, y + MessageBoxGeometry::kLineHeight);
        dc.DrawText(line.c_str(), static_cast<int>(line.size()), &row, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
        y += MessageBoxGeometry::kLineHeight;
    }
    for (size_t i = 0; i < m_layout.buttons.size(); ++i) PaintButton(dc, static_cast<int>(i));
}

void MessageBoxWindow::PaintIcon(CDC& dc) const
{
    if (m_layout.icon.IsRectEmpty()) return;
    const Glyph glyph = GlyphOf(m_record.type);
    CRect icon = m_layout.icon;
    dc.FillSolidRect(&icon, glyph.colour);
    dc.SetTextColor(RGB(255, 255, 255));
    dc.DrawText(glyph.letter, 1, &icon, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void MessageBoxWindow::PaintButton(CDC& dc, int index) const
{
    const MessageBoxButton& button = m_layout.buttons[static_cast<size_t>(index)];
    CRect rect = button.rect;
    dc.FillSolidRect(&rect, GetSysColor(COLOR_BTNFACE));
    if (index == m_focus) {
        // The focused (default) button's thicker frame: a dark line outside its bevel.
        dc.Draw3dRect(&rect, GetSysColor(COLOR_WINDOWFRAME), GetSysColor(COLOR_WINDOWFRAME));
        rect.DeflateRect(1, 1);
    }
    if (index == m_pressed) {
        dc.Draw3dRect(&rect, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW));
    } else {
        dc.Draw3dRect(&rect, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_3DDKSHADOW));
        CRect inner = rect;
        inner.DeflateRect(1, 1);
        dc.Draw3dRect(&inner, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_BTNSHADOW));
    }
    if (index == m_pressed) rect.OffsetRect(1, 1);
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    dc.DrawText(button.label.c_str(), static_cast<int>(button.label.size()), &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

int ShowMessageBoxWindow(const MessageBoxRecord& record)
{
    MessageBoxWindow box(record);
    return box.Run();
}
