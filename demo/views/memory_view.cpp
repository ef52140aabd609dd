#include "demo/views/memory_view.h"

#include <algorithm>
#include <climits>

#include "demo/debugger/debug_target.h"

namespace {

constexpr DWORD kMemoryViewStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP;
constexpr int kLineGap = 2;  // pixels between rows, so marked rows do not run together

}  // namespace

BEGIN_MESSAGE_MAP(CMemoryView, CLineScrollView)
    ON_WM_PAINT()
    ON_WM_LBUTTONDOWN()
    ON_WM_KEYDOWN()
END_MESSAGE_MAP()

BOOL CMemoryView::Create(CWnd* parent, const CRect& rect, UINT id)
{
    return CreateView("DemoMemoryView", kMemoryViewStyle, parent, rect, id);
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
    ScrollToLine(line >= m_top && line < m_top + full ? m_top : line - full / 3);
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
    g.fontHeight = FontHeight();
    g.charWidth = std::max(1, g.fontHeight / 2);
    g.lineHeight = g.fontHeight + kLineGap;
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

void CMemoryView::ScrollToLine(int top)
{
    top = std::clamp(top, 0, std::max(0, LineCount() - Measure().FullLines()));
    if (top != m_top) {
        m_top = top;
        Invalidate();
    }
    FitBars();
}

ScrollNeeds CMemoryView::NeedsFor(const CRect& client) const
{
    ScrollNeeds needs;
    needs.vertical = {LineCount(), MeasureFor(client).FullLines(), m_top};
    return needs;
}

// ---------------------------------------------------------------- messages

void CMemoryView::OnLButtonDown(UINT, CPoint)
{
    SetFocus();  // so that the keys and the wheel scroll it
}

void CMemoryView::OnKeyDown(UINT key, UINT, UINT)
{
    const int page = Measure().FullLines();
    switch (key) {
    case VK_UP: ScrollToLine(m_top - 1); break;
    case VK_DOWN: ScrollToLine(m_top + 1); break;
    case VK_PRIOR: ScrollToLine(m_top - page); break;
    case VK_NEXT: ScrollToLine(m_top + page); break;
    case VK_HOME: ScrollToLine(0); break;
    case VK_END: ScrollToLine(INT_MAX); break;
    default: break;
    }
}
