// A top-level window holding a rich edit control, with helpers to read the
// control's text, selection and pixels.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/controls/rich_edit_ctrl.h"
#include "platform/core/paint.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "tests/support/clipboard_text.h"
#include "platform/text/gbk.h"

namespace rich_edit_test {

constexpr UINT kEditId = 4321;
constexpr DWORD kOutputStyle = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_VSCROLL | WS_HSCROLL;
// With the default font (12 px): lines 12 px high, narrow characters 6 px,
// double-byte ones 12 px; text starts 1 px in from the left.
constexpr int kLine = 12;
constexpr int kNarrow = 6;
constexpr int kWide = 12;
constexpr int kLeft = 1;

// Parent 400 x 300 at (50, 40); the control fills `area` of it (200 x 100
// by default: eight whole lines, 33 narrow characters across).
class RichEditFixture : public ::testing::Test {
protected:
    void Make(DWORD style = kOutputStyle, CRect area = CRect(10, 10, 210, 110))
    {
        ASSERT_TRUE(parent.CreateEx(0, "RichEditTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 450, 340), nullptr, 0));
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | style, area, &parent, kEditId));
        Paint::UpdateAllWindows();
    }
    void TearDown() override
    {
        edit.DestroyWindow();
        parent.DestroyWindow();
    }

    std::string Text() const
    {
        CString text;
        edit.GetWindowText(text);
        return text.str();
    }
    std::string Range(long from, long to) const
    {
        CString text;
        edit.GetTextRange(static_cast<int>(from), static_cast<int>(to), text);
        return text.str();
    }
    CHARRANGE Sel() const
    {
        CHARRANGE range;
        edit.GetSel(range);
        return range;
    }
    void Append(const std::string& text)
    {
        edit.SetSel(-1, -1);
        edit.ReplaceSel(text.c_str());
    }
    // Colours [from, to) through the selection.
    BOOL Colour(long from, long to, COLORREF color)
    {
        edit.SetSel(from, to);
        CHARFORMAT cf;
        cf.cbSize = sizeof cf;
        cf.dwMask = CFM_COLOR;
        cf.crTextColor = color;
        return edit.SetSelectionCharFormat(cf);
    }
    // The colour of the character at pos (explicit, or the automatic one).
    COLORREF ColourAt(long pos)
    {
        edit.SetSel(pos, pos + 1);
        CHARFORMAT cf;
        cf.cbSize = sizeof cf;
        const DWORD mask = edit.GetSelectionCharFormat(cf);
        EXPECT_TRUE(mask & CFM_COLOR);
        return (cf.dwEffects & CFE_AUTOCOLOR) ? CLR_DEFAULT : cf.crTextColor;
    }

    std::uint32_t Pixel(int x, int y) const
    {
        POINT origin{};
        const Surface* surface = Paint::SurfaceOf(edit.GetSafeHwnd(), &origin);
        return surface ? surface->GetPixel(origin.x + x, origin.y + y) : 0xFFFFFFFFu;
    }
    int Count(std::uint32_t pixel, const CRect& area) const
    {
        int n = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x) n += Pixel(x, y) == pixel;
        return n;
    }
    static std::uint32_t Sys(int index) { return ColorRefToPixel(GetSysColor(index)); }

    CWnd parent;
    CRichEditCtrl edit;
};

}  // namespace rich_edit_test
