// A top-level window holding a tree control, recording what the tree tells
// it, and helpers to read the tree's pixels.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/controls/tree_ctrl.h"
#include "platform/core/paint.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/image_list.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"

namespace tree_test {

constexpr UINT kTreeId = 1234;

// One message the parent received from the tree.
struct Event {
    UINT message = 0;  // WM_NOTIFY or WM_CONTEXTMENU
    UINT code = 0;     // notification code
    UINT action = 0;   // NMTREEVIEW::action
    HTREEITEM oldItem = nullptr;
    HTREEITEM newItem = nullptr;
    UINT newState = 0;
    WORD key = 0;
    HWND from = nullptr;
    UINT_PTR id = 0;
    POINT point{};  // WM_CONTEXTMENU
};

inline bool IsTreeViewCode(UINT code)
{
    return code == TVN_SELCHANGING || code == TVN_SELCHANGED || code == TVN_ITEMEXPANDING || code == TVN_ITEMEXPANDED;
}

class Parent : public CWnd {
public:
    std::vector<Event> events;
    std::map<UINT, LRESULT> answers;                     // what to return per notification code
    std::function<void(const NMHDR&)> onNotify;          // runs before answering

    std::vector<UINT> Codes() const
    {
        std::vector<UINT> codes;
        for (const Event& e : events) codes.push_back(e.message == WM_NOTIFY ? e.code : 0);
        return codes;
    }
    int Count(UINT code) const
    {
        int n = 0;
        for (const Event& e : events) n += e.message == WM_NOTIFY && e.code == code;
        return n;
    }
    const Event* Last(UINT code) const
    {
        for (auto it = events.rbegin(); it != events.rend(); ++it)
            if (it->message == WM_NOTIFY && it->code == code) return &*it;
        return nullptr;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY && lParam) {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            Event e;
            e.message = message;
            e.code = header.code;
            e.from = header.hwndFrom;
            e.id = header.idFrom;
            if (IsTreeViewCode(header.code)) {
                const auto& nm = *reinterpret_cast<const NMTREEVIEW*>(lParam);
                e.action = nm.action;
                e.oldItem = nm.itemOld.hItem;
                e.newItem = nm.itemNew.hItem;
                e.newState = nm.itemNew.state;
            } else if (header.code == TVN_KEYDOWN) {
                e.key = reinterpret_cast<const NMTVKEYDOWN*>(lParam)->wVKey;
            }
            events.push_back(e);
            if (onNotify) onNotify(header);
            const auto answer = answers.find(header.code);
            return answer == answers.end() ? 0 : answer->second;
        }
        if (message == WM_CONTEXTMENU) {
            Event e;
            e.message = message;
            e.from = reinterpret_cast<HWND>(wParam);
            e.point = CPoint(lParam);
            events.push_back(e);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

// Images of the size the IDE's panes use.
constexpr int kImageCx = 18;
constexpr int kImageCy = 17;
// Where each image is opaque; the rest is transparent through the mask.
const CRect kImageSquare(4, 4, 14, 13);

// Builds an image list of one image per colour from a synthesised strip and a
// mask bitmap that is white (transparent) outside kImageSquare.
inline void MakeImages(CImageList& list, const std::vector<COLORREF>& colors)
{
    const int width = kImageCx * static_cast<int>(colors.size());
    std::vector<unsigned char> pixels;
    const int maskStride = ((width + 15) / 16) * 2;
    std::vector<unsigned char> mask(static_cast<size_t>(maskStride * kImageCy), 0);
    for (int y = 0; y < kImageCy; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool opaque = kImageSquare.PtInRect(CPoint(x % kImageCx, y));
            const COLORREF c = opaque ? colors[static_cast<size_t>(x / kImageCx)] : RGB(255, 255, 255);
            pixels.push_back(static_cast<unsigned char>(GetBValue(c)));
            pixels.push_back(static_cast<unsigned char>(GetGValue(c)));
            pixels.push_back(static_cast<unsigned char>(GetRValue(c)));
            pixels.push_back(0);
            if (!opaque) mask[static_cast<size_t>(y * maskStride + x / 8)] |= static_cast<unsigned char>(0x80 >> (x % 8));
        }
    }
    CBitmap strip, maskBitmap;
    ASSERT_TRUE(strip.CreateBitmap(width, kImageCy, 1, 32, pixels.data()));
    ASSERT_TRUE(maskBitmap.CreateBitmap(width, kImageCy, 1, 1, mask.data()));
    ASSERT_TRUE(list.Create(kImageCx, kImageCy, ILC_COLOR32 | ILC_MASK, 0, 4));
    ASSERT_EQ(list.Add(&strip, &maskBitmap), 0);
}

// Parent 400 x 300 at (50, 40); the tree fills `area` of it.
class TreeFixture : public ::testing::Test {
protected:
    void Make(DWORD style, CRect area = CRect(10, 10, 210, 170))
    {
        ASSERT_TRUE(parent.CreateEx(0, "TreeTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 450, 340), nullptr, 0));
        ASSERT_TRUE(tree.Create(WS_CHILD | WS_VISIBLE | style, area, &parent, kTreeId));
        Paint::UpdateAllWindows();
    }
    void TearDown() override
    {
        tree.DestroyWindow();
        parent.DestroyWindow();
    }

    // Root items "item 0".."item n-1".
    std::vector<HTREEITEM> Fill(int n, HTREEITEM under = TVI_ROOT)
    {
        std::vector<HTREEITEM> items;
        for (int i = 0; i < n; ++i) items.push_back(tree.InsertItem(("item " + std::to_string(i)).c_str(), under));
        return items;
    }

    std::uint32_t Pixel(int x, int y)
    {
        POINT origin{};
        const Surface* surface = Paint::SurfaceOf(tree.GetSafeHwnd(), &origin);
        return surface ? surface->GetPixel(origin.x + x, origin.y + y) : 0xFFFFFFFFu;
    }
    int Count(std::uint32_t pixel, const CRect& area)
    {
        int n = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x) n += Pixel(x, y) == pixel;
        return n;
    }
    CRect ItemRect(HTREEITEM item, bool textOnly)
    {
        CRect rect;
        EXPECT_TRUE(tree.GetItemRect(item, &rect, textOnly ? TRUE : FALSE));
        return rect;
    }
    static std::uint32_t Sys(int index) { return ColorRefToPixel(GetSysColor(index)); }

    Parent parent;
    CTreeCtrl tree;
};

}  // namespace tree_test
