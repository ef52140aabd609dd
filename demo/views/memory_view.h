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
#include "demo/views/line_scroll_view.h"

class DebugTarget;

class CMemoryView : public CLineScrollView {
public:
    // The background of the shown object's bytes.
    static constexpr COLORREF kMarkBack = RGB(255, 236, 150);
    // The ink of bytes that changed at the last Refresh.
    static constexpr COLORREF kChangedInk = RGB(220, 0, 0);

    CMemoryView() : CLineScrollView(false) {}

    BOOL Create(CWnd* parent, const CRect& rect, UINT id);
    // Shows `space` of the target (a WatchSpace code) and marks `size` bytes
    // from `address`, scrolling their first line into view. A space the view
    // does not know, or a null target, shows nothing.
    void Show(DebugTarget* target, std::uint32_t space, std::uint32_t address, std::uint32_t size, std::string title);
    // Reads the memory again, after the target has run.
    void Refresh();
    const std::string& Title() const { return m_title; }
    // The first line shown, counted from the space's start.
    int TopLine() const override { return m_top; }
    // Where a byte's two hex digits are drawn, in client coordinates; empty
    // for a byte the view does not show at present.
    CRect HexCellRect(std::uint32_t address) const;

protected:
    void ScrollToLine(int top) override;
    int PageLines() const override { return Measure().FullLines(); }
    ScrollNeeds NeedsFor(const CRect& client) const override;

    DECLARE_MESSAGE_MAP()
    void OnPaint();
    void OnLButtonDown(UINT, CPoint);
    void OnKeyDown(UINT key, UINT, UINT);

private:
    using LineBytes = std::array<int, kMemoryBytesPerLine>;

    struct Geometry {
        int charWidth = 6;
        int fontHeight = 12;
        int lineHeight = 14;
        CRect lines;  // the area below the title row
        int FullLines() const;
    };
    Geometry Measure() const;
    Geometry MeasureFor(const CRect& client) const;
    int LineCount() const;
    // The line's bytes, read once between Refreshes.
    const LineBytes& BytesOf(int line);
    bool Marked(std::uint32_t address) const;

    // Client x of a text column.
    static int ColumnX(const Geometry& g, int column);

    // Painting (memory_paint.cpp).
    void PaintTitle(CDC& dc, const Geometry& g);
    void PaintLine(CDC& dc, const Geometry& g, int line);

    DebugTarget* m_target = nullptr;
    std::uint32_t m_spaceCode = 0;
    std::optional<MemorySpace> m_space;
    std::uint32_t m_markFrom = 0;
    std::uint32_t m_markEnd = 0;  // exclusive, within the space
    std::string m_title;
    int m_top = 0;
    std::unordered_map<int, LineBytes> m_lines;     // read since the last Refresh
    std::unordered_map<int, LineBytes> m_previous;  // as they were before it
};
