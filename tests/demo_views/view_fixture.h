// A top-level window to hold one demo view, and a text file of numbered
// lines for the source view.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/core/paint.h"
#include "platform/core/wnd.h"

namespace demo_views_test {

constexpr UINT kViewId = 100;

// "line 1\n" .. "line n\n".
inline std::string NumberedLines(int n)
{
    std::string text;
    for (int i = 1; i <= n; ++i) text += "line " + std::to_string(i) + "\n";
    return text;
}

// The view fills 400 x 300 of a parent at (50, 40).
template <typename View>
class ViewFixture : public ::testing::Test {
protected:
    static inline const CRect kViewRect{0, 0, 400, 300};

    void SetUp() override
    {
        ASSERT_TRUE(parent.CreateEx(0, "DemoViewsTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 500, 400), nullptr, 0));
        ASSERT_TRUE(view.Create(&parent, kViewRect, kViewId));
        Paint::UpdateAllWindows();
    }
    void TearDown() override
    {
        view.DestroyWindow();
        parent.DestroyWindow();
    }

    SCROLLINFO Scroll(int bar) const
    {
        SCROLLINFO info;
        info.fMask = SIF_ALL;
        EXPECT_TRUE(view.GetScrollInfo(bar, &info));
        return info;
    }
    CRect Client() const
    {
        CRect client;
        view.GetClientRect(&client);
        return client;
    }

    CWnd parent;
    View view;
};

}  // namespace demo_views_test
