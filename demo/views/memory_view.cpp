#include "demo/views/memory_view.h"

#include <algorithm>
#include <climits>

#include "demo/debugger/debug_target.h"
#include "demo/views/scroll_request.h"
#include "host/view_font.h"
#include "platform/core/input_state.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/font_model.h"

namespace {

constexpr DWORD kMemoryViewStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP;
constexpr int kLineGap = 2;  // pixels between rows, so marked rows do not run together

}  // namespace

BEGIN_MESSAGE_MAP(CMemoryView, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_LBUTTONDOWN()
    ON_WM_KEYDOWN()
    ON_WM_MOUSEWHEEL()
    ON_MESSAGE(WM_VSCROLL, &CMemoryView::OnVScroll)
END_MESSAGE_MAP()

BOOL CMemoryView::Create(CWnd* parent, const CRect& rect, UINT id)
{
    return CreateEx(0, "DemoMemoryView", "", kMemoryViewStyle, rect, parent, id);
}

int CMemoryView::OnCreate(LPCREATESTRUCT)
{
    if (Default() == -1) return -1;
    m_font.CreatePointFont(kViewFontTenths, kViewFontFace);
    FitBars();
    return 0;
}

void CMemoryView::Show(DebugTarget* target, std::uint32_t space, std::uint32_t address, std::uint32_t size, std::string title)
{
    m_target = target;
    m_spaceCode = space;
    m_space = target ? MemorySpaceOf(space) : std::nullopt;
    m_title = std::move(title);
    m_lines.clear();
    m_previous.clear();
    const std::uint32_t extent = m_space ? m_space->size : 0;
    m_markFrom = std::min(address, extent);
    m_markEnd = m_markFrom + std::min(size, extent - m_markFrom);
    const int line = static_cast<int>(m_markFrom / kMemoryBytesPerLine);
    const int full = Measure().FullLines();
    // A third from the top when it must scroll, as the source view does.
    ScrollTo(line >= m_top && line < m_top + full ? m_top : line - full / 3);
    Invalidate();
}

void CMemoryView::Refresh()
{
    m_previous = std::move(m_lines);
    m_lines.clear();
    Invalidate();
}

// ---------------------------------------------------------------- geometry and reading

int CMemoryView::Geometry::FullLines() const
{
    return std::max(1, static_cast<int>(lines.Height()) / lineHeight);
}

CMemoryView::Geometry CMemoryView::MeasureFor(const CRect& client) const
{
    Geometry g;
    const int height = gdi::MetricsOfHandle(m_font.GetSafeHandle()).height;
    g.charWidth = std::max(1, height / 2);
    g.lineHeight = height + kLineGap;
    g.lines = client;
    g.lines.top = std::min(client.bottom, client.top + g.lineHeight);  // the title row
    return g;
}

CMemoryView::Geometry CMemoryView::Measure() const
{
    CRect client;
    GetClientRect(&client);
    return MeasureFor(client);
}

int CMemoryView::LineCount() const
{
    return m_space ? static_cast<int>((m_space->size + kMemoryBytesPerLine - 1) / kMemoryBytesPerLine) : 0;
}

bool CMemoryView::Marked(std::uint32_t address) const
{
    return address >= m_markFrom && address < m_markEnd;
}

const CMemoryView::LineBytes& CMemoryView::BytesOf(int line)
{
    auto [it, added] = m_lines.try_emplace(line);
    if (!added) return it->second;
    LineBytes& values = it->second;
    values.fill(kUnreadableByte);
    const auto address = static_cast<std::uint32_t>(line) * kMemoryBytesPerLine;
    std::array<std::uint8_t, kMemoryBytesPerLine> buffer{};
    if (m_target->Read(m_spaceCode, address, buffer)) {
        std::copy(buffer.begin(), buffer.end(), values.begin());
        return values;
    }
    // Some byte of the line cannot be read: find which, one at a time.
    for (int i = 0; i < kMemoryBytesPerLine; ++i) {
        std::uint8_t byte = 0;
        if (m_target->Read(m_spaceCode, address + static_cast<std::uint32_t>(i), std::span(&byte, 1))) values[static_cast<size_t>(i)] = byte;
    }
    return values;
}

void CMemoryView::ScrollTo(int top)
{
    top = std::clamp(top, 0, std::max(0, LineCount() - Measure().FullLines()));
    if (top != m_top) {
        m_top = top;
        Invalidate();
    }
    FitBars();
}

void CMemoryView::FitBars()
{
    if (!GetSafeHwnd() || m_fitting) return;
    m_fitting = true;
    ::FitScrollBars(m_hWnd, true, false, [&](const CRect& client) {
        ScrollNeeds needs;
        needs.vertical = {LineCount(), MeasureFor(client).FullLines(), m_top};
        return needs;
    });
    m_fitting = false;
}

// ---------------------------------------------------------------- messages

void CMemoryView::OnSize(UINT, int, int)
{
    if (!m_fitting) ScrollTo(m_top);
}

BOOL CMemoryView::OnEraseBkgnd(CDC*)
{
    return TRUE;  // the paint handler covers every pixel
}

void CMemoryView::OnLButtonDown(UINT, CPoint)
{
    SetFocus();  // so that the keys and the wheel scroll it
}

void CMemoryView::OnKeyDown(UINT key, UINT, UINT)
{
    const int page = Measure().FullLines();
    switch (key) {
    case VK_UP: ScrollTo(m_top - 1); break;
    case VK_DOWN: ScrollTo(m_top + 1); break;
    case VK_PRIOR: ScrollTo(m_top - page); break;
    case VK_NEXT: ScrollTo(m_top + page); break;
    case VK_HOME: ScrollTo(0); break;
    case VK_END: ScrollTo(INT_MAX); break;
    default: break;
    }
}

BOOL CMemoryView::OnMouseWheel(UINT, short delta, CPoint)
{
    // A notch up shows lower addresses.
    const int notches = TakeWheelNotches(m_wheelRemainder, delta);
    if (notches) ScrollTo(m_top - notches * kWheelScrollLines);
    return TRUE;
}

LRESULT CMemoryView::OnVScroll(WPARAM wParam, LPARAM)
{
    ScrollTo(RequestedScroll(m_hWnd, WM_VSCROLL, wParam, m_top, 1, Measure().FullLines()));
    return 0;
}
