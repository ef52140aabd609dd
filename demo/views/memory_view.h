// The demo host's memory window: one memory space of a debug target in hex,
// sixteen bytes a line, with one object's bytes marked. Only the lines it
// draws are read; Refresh reads them again, and bytes that changed since the
// previous reading are drawn in red.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "demo/views/memory_line.h"
#include "platform/core/wnd.h"
#include "platform/gdi/font.h"

class DebugTarget;

class CMemoryView : public CWnd {
public:
    // The background of the shown object's bytes.
    static constexpr COLORREF kMarkBack = RGB(255, 236, 150);
    // The ink of bytes that changed at the last Refresh.
    static constexpr COLORREF kChangedInk = RGB(220, 0, 0);

    CMemoryView() = default;

    BOOL Create(CWnd* parent, const CRect& rect, UINT id);
    // Shows `space` of the target (a WatchSpace code) and marks `size` bytes
    // from `address`, scrolling their first line into view. A space the view
    // does not know, or a null target, shows nothing.
    void Show(DebugTarget* target, std::uint32_t space, std::uint32_t address, std::uint32_t size, std::string title);
    // Reads the memory again, after the target has run.
    void Refresh();
    const std::string& Title() const { return m_title; }
    // The first line shown, counted from the space's start.
    int TopLine() const { return m_top; }
    // Where a byte's two hex digits are drawn, in client coordinates; empty
    // for a byte the view does not show at present.
    CRect HexCellRect(std::uint32_t address) const;

protected:
    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT);
    void OnSize(UINT, int, int);
    void OnPaint();
    BOOL OnEraseBkgnd(CDC*);
    void OnLButtonDown(UINT, CPoint);
    void OnKeyDown(UINT key, UINT, UINT);
    BOOL OnMouseWheel(UINT, short delta, CPoint);
    LRESULT OnVScroll(WPARAM wParam, LPARAM);

private:
    using LineBytes = std::array<int, kMemoryBytesPerLine>;

    struct Geometry {
        int charWidth = 6;
        int lineHeight = 14;
        CRect lines;  // the area below the title row
        int FullLines() const;
    };
    Geometry Measure() const;
    Geometry MeasureFor(const CRect& client) const;
    int LineCount() const;
    void ScrollTo(int top);
    void FitBars();
    // The line's bytes, read once between Refreshes.
    const LineBytes& BytesOf(int line);
    bool Marked(std::uint32_t address) const;

    // Client x of a text column.
    static int ColumnX(const Geometry& g, int column);

    // Painting (memory_paint.cpp).
    void PaintTitle(CDC& dc, const Geometry& g);
    void PaintLine(CDC& dc, const Geometry& g, int line);

    CFont m_font;
    DebugTarget* m_target = nullptr;
    std::uint32_t m_spaceCode = 0;
    std::optional<MemorySpace> m_space;
    std::uint32_t m_markFrom = 0;
    std::uint32_t m_markEnd = 0;  // exclusive, within the space
    std::string m_title;
    int m_top = 0;
    int m_wheelRemainder = 0;
    bool m_fitting = false;  // FitScrollBars sends WM_SIZE, which would fit again
    std::unordered_map<int, LineBytes> m_lines;     // read since the last Refresh
    std::unordered_map<int, LineBytes> m_previous;  // as they were before it
};
