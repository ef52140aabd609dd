// Text dropped from another application: the pieces come together as one
// CF_TEXT drop where the mouse is, and the target there decides.
#include <gtest/gtest.h>

#include "platform/text/gbk.h"
#include "platform/window/text_drop.h"
#include "tests/ole/drag_fixture.h"

namespace {

class TextDropFromDesktop : public drag_test::DragDrop {
protected:
    POINT ScreenPoint(CWnd& window, CPoint client)
    {
        POINT screen = client;
        window.ClientToScreen(&screen);
        return screen;
    }

    TextDrop drop;
};

}  // namespace

TEST_F(TextDropFromDesktop, PiecesAreDroppedAsOneGbkTextOnTheTargetUnderTheMouse)
{
    rightTarget.plain = DROPEFFECT_COPY;  // a drop from outside allows a copy only
    drop.Begin();
    drop.AddText(reinterpret_cast<const char*>(u8"红灯时长"));
    drop.AddText("phase");
    drop.Complete(frame, ScreenPoint(right, CPoint(30, 40)));
    EXPECT_EQ(rightTarget.droppedText, GBK(u8"红灯时长\r\nphase"));
    const drag_test::Log expected = {"right enter 30,40 k1", "right dropex 30,40 default 1 list 1", "right drop 30,40 effect 1"};
    EXPECT_EQ(log, expected);
}

TEST_F(TextDropFromDesktop, ADropWithoutTextOrWhereNoTargetTakesItDropsNothing)
{
    rightTarget.plain = DROPEFFECT_COPY;
    drop.Begin();
    drop.Complete(frame, ScreenPoint(right, CPoint(30, 40)));
    EXPECT_TRUE(log.empty());

    // Over a window without a target the drag ends with nothing taken.
    drop.AddText("ticks");
    drop.Complete(frame, ScreenPoint(bare, CPoint(10, 10)));
    EXPECT_TRUE(log.empty());

    // A target whose rules refuse the data hears it come and go.
    leftTarget.plain = DROPEFFECT_NONE;
    drop.AddText("ticks");
    drop.Complete(frame, ScreenPoint(left, CPoint(10, 10)));
    const drag_test::Log expected = {"left enter 10,10 k1", "left leave"};
    EXPECT_EQ(log, expected);
}

TEST_F(TextDropFromDesktop, ABeginForgetsPiecesOfADropThatNeverCompleted)
{
    rightTarget.plain = DROPEFFECT_COPY;
    drop.AddText("stale");
    drop.Begin();
    drop.AddText("fresh");
    drop.Complete(frame, ScreenPoint(right, CPoint(5, 5)));
    EXPECT_EQ(rightTarget.droppedText, "fresh");
    // Completing again drops nothing: the text went with the first drop.
    log.clear();
    drop.Complete(frame, ScreenPoint(right, CPoint(5, 5)));
    EXPECT_TRUE(log.empty());
}
