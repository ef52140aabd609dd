// A top-level window holding an edit control, recording the notifications
// the edit control sends it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls/edit.h"
#include "platform/core/paint.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "platform/text/gbk.h"

namespace edit_test {

constexpr UINT kEditId = 77;
// The system font is 16 pixels high: 8 per single-byte character.
constexpr int kCharWidth = 8;

class Parent : public CWnd {
public:
    std::vector<UINT> codes;  // EN_* in the order they came
    HWND from = nullptr;
    UINT id = 0;

    int Count(UINT code) const
    {
        int n = 0;
        for (UINT c : codes) n += c == code;
        return n;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_COMMAND && lParam) {
            codes.push_back(HIWORD(wParam));
            id = LOWORD(wParam);
            from = reinterpret_cast<HWND>(lParam);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

// Another window to take the focus away.
class Other : public CWnd {};

class EditFixture : public ::testing::Test {
protected:
    // 200 x 24: text room is 200 - 2 * 2 margins.
    void Make(DWORD style = ES_AUTOHSCROLL, CRect area = CRect(10, 10, 210, 34))
    {
        ASSERT_TRUE(parent.CreateEx(0, "EditTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 450, 240), nullptr, 0));
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | style, area, &parent, kEditId));
        ASSERT_TRUE(other.Create("Other", "", WS_CHILD | WS_VISIBLE, CRect(10, 100, 50, 120), &parent, 78));
        edit.SetFocus();
        Paint::UpdateAllWindows();
        parent.codes.clear();
    }
    void TearDown() override
    {
        edit.DestroyWindow();
        other.DestroyWindow();
        parent.DestroyWindow();
    }

    std::string Text() const
    {
        CString text;
        edit.GetWindowText(text);
        return text.str();
    }
    std::pair<int, int> Sel() const
    {
        int start = -1, end = -1;
        edit.GetSel(start, end);
        return {start, end};
    }
    std::uint32_t Pixel(int x, int y)
    {
        POINT origin{};
        const Surface* surface = Paint::SurfaceOf(edit.GetSafeHwnd(), &origin);
        return surface ? surface->GetPixel(origin.x + x, origin.y + y) : 0xFFFFFFFFu;
    }
    int CountPixels(std::uint32_t pixel)
    {
        CRect client;
        edit.GetClientRect(&client);
        int n = 0;
        for (int y = client.top; y < client.bottom; ++y)
            for (int x = client.left; x < client.right; ++x) n += Pixel(x, y) == pixel;
        return n;
    }
    static std::uint32_t Sys(int index) { return ColorRefToPixel(GetSysColor(index)); }

    Parent parent;
    CEdit edit;
    Other other;
};

}  // namespace edit_test
