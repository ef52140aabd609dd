// A top-level window holding an owner-drawn, owner-data list view in report
// view, recording what the list (and its header, through it) tells it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/controls/list_ctrl.h"
#include "platform/core/paint.h"
#include "platform/core/window_frame.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "platform/text/gbk.h"

namespace list_test {

constexpr UINT kListId = 4321;

// The geometry the tests expect, from the platform GUI font (12 px high).
constexpr int kHeaderHeight = 20;  // font + 8
constexpr int kLineHeight = 16;    // font + 4
// The list is 300 x 200. Three columns, 330 pixels in all, are wider than
// that, so the horizontal scroll bar shows: 164 pixels under the header hold
// 10 whole lines.
const CRect kListArea(10, 10, 310, 210);
constexpr int kPage = 10;
constexpr int kColumnWidths[] = {100, 80, 150};

struct Event {
    UINT message = 0;  // WM_NOTIFY, WM_CONTEXTMENU, WM_MEASUREITEM, WM_DRAWITEM
    UINT code = 0;
    HWND from = nullptr;
    int item = -1;
    int subItem = 0;
    UINT oldState = 0;
    UINT newState = 0;
    POINT point{};
    int width = -1;  // header notifications: HDITEM::cxy when given
    int from2 = 0;   // LVN_ODSTATECHANGED: iFrom .. iTo
    int to = 0;
};

class Parent : public CWnd {
public:
    std::vector<Event> events;
    std::map<UINT, LRESULT> answers;  // what to return per notification code
    bool handleDrawItem = false;      // draw lines here instead of reflecting
    int measuredHeight = 0;           // answer WM_MEASUREITEM here when set
    std::vector<std::string> cellTexts;  // LVN_GETDISPINFO: the text of each sub-item, on every line
    CWnd* destroyOnChange = nullptr;

    int Count(UINT code) const
    {
        int n = 0;
        for (const Event& e : events) n += e.message == WM_NOTIFY && e.code == code;
        return n;
    }
    int CountMessage(UINT message) const
    {
        int n = 0;
        for (const Event& e : events) n += e.message == message;
        return n;
    }
    const Event* Last(UINT code) const
    {
        for (auto it = events.rbegin(); it != events.rend(); ++it)
            if (it->message == WM_NOTIFY && it->code == code) return &*it;
        return nullptr;
    }
    std::vector<Event> Of(UINT code) const
    {
        std::vector<Event> found;
        for (const Event& e : events)
            if (e.message == WM_NOTIFY && e.code == code) found.push_back(e);
        return found;
    }
    std::vector<UINT> Codes() const
    {
        std::vector<UINT> codes;
        for (const Event& e : events)
            if (e.message == WM_NOTIFY) codes.push_back(e.code);
        return codes;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY && lParam) return OnNotifyMessage(*reinterpret_cast<NMHDR*>(lParam));
        if (message == WM_CONTEXTMENU) {
            Event e;
            e.message = message;
            e.from = reinterpret_cast<HWND>(wParam);
            events.push_back(e);
            return 0;
        }
        if (message == WM_MEASUREITEM && lParam) {
            auto& measure = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            Event e;
            e.message = message;
            e.code = measure.CtlType;
            e.item = static_cast<int>(measure.CtlID);
            e.width = static_cast<int>(measure.itemHeight);
            events.push_back(e);
            if (measuredHeight > 0) {
                measure.itemHeight = static_cast<UINT>(measuredHeight);
                return TRUE;
            }
        }
        if (message == WM_DRAWITEM && lParam && handleDrawItem) {
            Event e;
            e.message = message;
            e.item = static_cast<int>(reinterpret_cast<DRAWITEMSTRUCT*>(lParam)->itemID);
            events.push_back(e);
            return TRUE;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    LRESULT OnNotifyMessage(NMHDR& header)
    {
        Event e;
        e.message = WM_NOTIFY;
        e.code = header.code;
        e.from = header.hwndFrom;
        const UINT code = header.code;
        if (code == LVN_ITEMCHANGED || code == LVN_BEGINDRAG || code == LVN_BEGINRDRAG || code == LVN_COLUMNCLICK) {
            const auto& nm = reinterpret_cast<const NMLISTVIEW&>(header);
            e.item = nm.iItem;
            e.subItem = nm.iSubItem;
            e.oldState = nm.uOldState;
            e.newState = nm.uNewState;
            e.point = nm.ptAction;
        } else if (code == NM_CLICK || code == NM_DBLCLK || code == NM_RCLICK) {
            const auto& nm = reinterpret_cast<const NMITEMACTIVATE&>(header);
            e.item = nm.iItem;
            e.subItem = nm.iSubItem;
            e.point = nm.ptAction;
        } else if (code == LVN_ODSTATECHANGED) {
            const auto& nm = reinterpret_cast<const NMLVODSTATECHANGE&>(header);
            e.from2 = nm.iFrom;
            e.to = nm.iTo;
            e.newState = nm.uNewState;
        } else if (code == LVN_GETDISPINFO) {
            auto& item = reinterpret_cast<NMLVDISPINFO&>(header).item;
            const auto sub = static_cast<size_t>(item.iSubItem);
            if (sub < cellTexts.size()) CopyGbkText(cellTexts[sub], item.pszText, static_cast<size_t>(std::max(item.cchTextMax, 0)));
        } else if (code >= HDN_TRACK && code <= HDN_ITEMCHANGING) {
            const auto& nm = reinterpret_cast<const NMHEADER&>(header);
            e.item = nm.iItem;
            if (nm.pitem && (nm.pitem->mask & HDI_WIDTH)) e.width = nm.pitem->cxy;
        }
        events.push_back(e);
        if (code == LVN_ITEMCHANGED && destroyOnChange) destroyOnChange->DestroyWindow();
        const auto answer = answers.find(code);
        return answer == answers.end() ? 0 : answer->second;
    }
};

// An owner-drawn list that records each line it is asked to draw, and
// paints each line in a colour of its own so tests can see where it went.
class DrawnList : public CListCtrl {
public:
    std::vector<DRAWITEMSTRUCT> drawn;
    int measureCalls = 0;
    int measureAnswer = 0;  // line height to answer with when set

    static COLORREF ColorOf(UINT item) { return RGB(40 + item % 100, 200, 100 + (item / 100) % 100); }

    void DrawItem(LPDRAWITEMSTRUCT draw) override
    {
        drawn.push_back(*draw);
        if (CDC* dc = CDC::FromHandle(draw->hDC)) dc->FillSolidRect(&draw->rcItem, ColorOf(draw->itemID));
    }
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override
    {
        ++measureCalls;
        if (measureAnswer > 0) measure->itemHeight = static_cast<UINT>(measureAnswer);
    }
};

constexpr DWORD kGridStyle = LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_SHOWSELALWAYS;

class ListFixture : public ::testing::Test {
protected:
    void Make(DWORD style = kGridStyle, int count = 0)
    {
        ASSERT_TRUE(parent.CreateEx(0, "ListTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 450, 340), nullptr, 0));
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | style, kListArea, &parent, kListId));
        const char* names[] = {"Address", "Value", "Name"};
        for (int i = 0; i < 3; ++i) ASSERT_EQ(list.InsertColumn(i, names[i], LVCFMT_LEFT, kColumnWidths[i]), i);
        if (count) {
            ASSERT_TRUE(list.SetItemCount(count));
        }
        Paint::UpdateAllWindows();
    }
    void TearDown() override
    {
        list.DestroyWindow();
        parent.DestroyWindow();
    }

    // A point in the middle of a line shown at `row` (0 = first under the
    // header), in a column.
    static CPoint OnRow(int row, int column = 0)
    {
        int x = 0;
        for (int i = 0; i < column; ++i) x += kColumnWidths[i];
        return CPoint(x + kColumnWidths[column] / 2, kHeaderHeight + row * kLineHeight + kLineHeight / 2);
    }
    std::uint32_t Pixel(int x, int y)
    {
        POINT origin{};
        const Surface* surface = Paint::SurfaceOf(list.GetSafeHwnd(), &origin);
        return surface ? surface->GetPixel(origin.x + x, origin.y + y) : 0xFFFFFFFFu;
    }
    static std::uint32_t Color(COLORREF c) { return ColorRefToPixel(c); }

    Parent parent;
    DrawnList list;
};

}  // namespace list_test
