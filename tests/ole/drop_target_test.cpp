// Drop target registrations: one target per window and one window per
// target, ended by Revoke, by the window going or by the target going.
#include <gtest/gtest.h>

#include <memory>

#include "platform/docking/frame_wnd.h"
#include "platform/ole/ole_drop_target.h"

namespace {

class DropTargets : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200)));
        ASSERT_TRUE(a.Create(nullptr, "a", WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 50), &frame, 1));
        ASSERT_TRUE(b.Create(nullptr, "b", WS_CHILD | WS_VISIBLE, CRect(60, 0, 110, 50), &frame, 2));
    }
    void TearDown() override { frame.DestroyWindow(); }

    CFrameWnd frame;
    CWnd a;
    CWnd b;
};

TEST_F(DropTargets, OneTargetPerWindowAndOneWindowPerTarget)
{
    COleDropTarget first;
    COleDropTarget second;
    CWnd never;
    EXPECT_FALSE(first.Register(nullptr));
    EXPECT_FALSE(first.Register(&never));
    EXPECT_EQ(DropTargetRegistration(nullptr), 0u);

    ASSERT_TRUE(first.Register(&a));
    EXPECT_EQ(DropTargetOf(a), &first);
    EXPECT_EQ(DropTargetOf(frame), nullptr) << "a parent is not registered by its child";
    const auto number = DropTargetRegistration(a);
    EXPECT_NE(number, 0u);
    // A second target for the window replaces the first, which no longer
    // speaks for it: revoking it leaves the second in place.
    ASSERT_TRUE(second.Register(&a));
    EXPECT_EQ(DropTargetOf(a), &second);
    EXPECT_NE(DropTargetRegistration(a), number);
    first.Revoke();
    EXPECT_EQ(DropTargetOf(a), &second);
    // Registering again moves the target.
    ASSERT_TRUE(second.Register(&b));
    EXPECT_EQ(DropTargetOf(a), nullptr);
    EXPECT_EQ(DropTargetOf(b), &second);
    second.Revoke();
    second.Revoke();
    EXPECT_EQ(DropTargetOf(b), nullptr);
    EXPECT_EQ(DropTargetRegistration(b), 0u);
}

TEST_F(DropTargets, ARegistrationEndsWithItsWindowOrItsTarget)
{
    auto target = std::make_unique<COleDropTarget>();
    ASSERT_TRUE(target->Register(&a));
    const HWND gone = a;
    a.DestroyWindow();
    EXPECT_EQ(DropTargetOf(gone), nullptr);
    EXPECT_EQ(DropTargetRegistration(gone), 0u);
    EXPECT_FALSE(target->Register(&a));
    // Another registration clears the gone window's entry; the target can
    // still go later without touching it.
    COleDropTarget other;
    ASSERT_TRUE(other.Register(&b));
    target.reset();

    {
        COleDropTarget scoped;
        ASSERT_TRUE(scoped.Register(&frame));
    }
    EXPECT_EQ(DropTargetOf(frame), nullptr);
    EXPECT_EQ(DropTargetOf(b), &other);
    EXPECT_TRUE(other.IsKindOf(RUNTIME_CLASS(CCmdTarget)));
}

}  // namespace
