// The drag loop: which targets hear what as the mouse moves, keys change and
// the button is released, how a drag ends, and drops from another
// application. Key states: 1 is the left button, 8 Control, 32 Alt.
#include "tests/ole/drag_fixture.h"

namespace drag_test {
namespace {

using Effects = std::vector<DROPEFFECT>;
constexpr DROPEFFECT kNone = DROPEFFECT_NONE;
constexpr DROPEFFECT kCopy = DROPEFFECT_COPY;
constexpr DROPEFFECT kMove = DROPEFFECT_MOVE;

TEST_F(DragDrop, EnterOverLeaveAndDropFollowTheMouseAcrossTargets)
{
    rightTarget.logScroll = true;
    StartDrag()
        .MoveTo(&left, CPoint(10, 10))
        .MoveTo(&left, CPoint(30, 10), 2)
        .MoveTo(&right, CPoint(5, 5))
        .MoveTo(&right, CPoint(6, 5))
        .Release()
        .Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left over 20,10 k1", "left over 30,10 k1", "left leave",
                        "right enter 5,5 k1", "right scroll 6,5 k1", "right over 6,5 k1",
                        "right dropex 6,5 default 2 list 3", "right drop 6,5 effect 2"}));
    EXPECT_EQ(source.results, Effects{kMove});
    EXPECT_EQ(rightTarget.droppedText, "row text");
    // The drag took the mouse from the source and kept the release to itself.
    EXPECT_EQ(source.captureLost, 1);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(source.ups + right.ups, 0);
    // Once it is over, input goes to windows again.
    Input::Click(&right, CPoint(5, 5));
    EXPECT_EQ(right.ups, 1);
    EXPECT_EQ(log.size(), 9u);
}

TEST_F(DragDrop, TheTargetIsTheNearestWindowUpFromThePointThatHasOne)
{
    // Over a child without a target of its own: its parent's target, in the
    // parent's coordinates.
    StartDrag().MoveTo(&inner, CPoint(5, 5)).Release().Play();
    EXPECT_EQ(log, (Log{"left enter 55,55 k1", "left dropex 55,55 default 2 list 3", "left drop 55,55 effect 2"}));
    // Released over a window without any: the last target hears a leave.
    log.clear();
    Input::Wait();
    StartDrag().MoveTo(&left, CPoint(10, 10)).MoveTo(&bare, CPoint(10, 10)).Release().Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left leave"}));
    // A target that overrides nothing takes nothing.
    COleDropTarget plain;
    ASSERT_TRUE(plain.Register(&bare));
    Input::Wait();
    StartDrag().MoveTo(&bare, CPoint(10, 10)).MoveTo(&bare, CPoint(12, 10)).Release().Play();
    EXPECT_EQ(source.results, (Effects{kMove, kNone, kNone}));
}

TEST_F(DragDrop, OnDropExAnswersFirstAndOnDropOnlyWhenItDeclines)
{
    rightTarget.dropExAnswer = kCopy;
    StartDrag().MoveTo(&right, CPoint(5, 5)).Release().Play();
    EXPECT_EQ(log.back(), "right dropex 5,5 default 2 list 3");
    // Declined (-1): OnDrop decides, with the effect last answered.
    rightTarget.dropExAnswer = static_cast<DROPEFFECT>(-1);
    rightTarget.dropAnswer = FALSE;
    log.clear();
    Input::Wait();
    StartDrag().MoveTo(&right, CPoint(5, 5)).Release().Play();
    EXPECT_EQ(log, (Log{"right enter 5,5 k1", "right dropex 5,5 default 2 list 3", "right drop 5,5 effect 2"}));
    EXPECT_EQ(source.results, (Effects{kCopy, kNone}));
}

TEST_F(DragDrop, EscOrASecondButtonCancelsWithALeave)
{
    StartDrag()
        .MoveTo(&left, CPoint(10, 10))
        .KeyDown(VK_ESCAPE)
        .KeyUp(VK_ESCAPE)
        .MoveTo(&right, CPoint(5, 5))
        .Release()
        .Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left leave"}));
    // The rest of the gesture was plain input: the release reached the window under it.
    EXPECT_EQ(right.ups, 1);

    log.clear();
    Input::Wait();
    StartDrag().MoveTo(&right, CPoint(5, 5)).Press(&right, CPoint(5, 5), true).Release(true).Release(false).Play();
    EXPECT_EQ(log, (Log{"right enter 5,5 k1", "right leave"}));
    EXPECT_EQ(source.results, (Effects{kNone, kNone}));
    EXPECT_FALSE(IsKeyDown(VK_RBUTTON));
}

TEST_F(DragDrop, KeyStateReachesTheTargetAndAChangeAsksAgainInPlace)
{
    StartDrag()
        .MoveTo(&left, CPoint(10, 10))
        .KeyDown(VK_CONTROL)  // the target now answers copy
        .KeyDown('A')         // the key state does not change: not asked
        .KeyUp('A')
        .KeyDown(VK_MENU)
        .MoveTo(&left, CPoint(12, 10))
        .KeyUp(VK_MENU)
        .Release()
        .KeyUp(VK_CONTROL)
        .Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left over 10,10 k9", "left over 10,10 k41", "left over 12,10 k41",
                        "left over 12,10 k9", "left dropex 12,10 default 1 list 3", "left drop 12,10 effect 1"}));
    EXPECT_EQ(source.results, Effects{kCopy});
}

TEST_F(DragDrop, AnswersAreMaskedByTheEffectsTheSourceAllows)
{
    source.allowed = kCopy;
    leftTarget.plain = kCopy | kMove;
    rightTarget.plain = kMove;
    StartDrag().MoveTo(&left, CPoint(10, 10)).Release().Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left dropex 10,10 default 1 list 1", "left drop 10,10 effect 1"}));
    // Right would only move: there is nothing to drop, it hears a leave.
    log.clear();
    Input::Wait();
    StartDrag().MoveTo(&right, CPoint(5, 5)).MoveTo(&right, CPoint(6, 5)).Release().Play();
    EXPECT_EQ(log, (Log{"right enter 5,5 k1", "right over 6,5 k1", "right leave"}));
    // An OnDropEx answer outside the allowed effects is no effect either.
    leftTarget.dropExAnswer = DROPEFFECT_LINK;
    Input::Wait();
    StartDrag().MoveTo(&left, CPoint(10, 10)).Release().Play();
    EXPECT_EQ(source.results, (Effects{kCopy, kNone, kNone}));
}

TEST_F(DragDrop, TheDragWaitsUntilTheMouseLeavesTheStartRectangle)
{
    RecordingTarget sourceTarget{"source", &log};
    ASSERT_TRUE(sourceTarget.Register(&source));
    // Without a rectangle it starts at once, over the source itself.
    StartDrag().Release().Play();
    EXPECT_EQ(log, (Log{"source enter 20,30 k1", "source dropex 20,30 default 2 list 3", "source drop 20,30 effect 2"}));

    CRect rect(15, 15, 26, 36);
    source.ClientToScreen(&rect);
    source.startRect = rect;
    // Moved and released inside it: no drag at all.
    log.clear();
    Input::Wait();
    StartDrag().MoveTo(&source, CPoint(25, 35)).Release().Play();
    EXPECT_TRUE(log.empty());
    // Leaving it starts the drag where the mouse then is.
    Input::Wait();
    StartDrag().MoveTo(&source, CPoint(26, 35)).MoveTo(&right, CPoint(5, 5)).Release().Play();
    EXPECT_EQ(log, (Log{"source enter 26,35 k1", "source leave", "right enter 5,5 k1", "right dropex 5,5 default 2 list 3",
                        "right drop 5,5 effect 2"}));
    EXPECT_EQ(source.results, (Effects{kMove, kNone, kMove}));
}

TEST_F(DragDrop, ATargetWindowDestroyedMidDragIsNotCalledAgain)
{
    const HWND gone = left;
    leftTarget.onFirstOver = [this] { left.DestroyWindow(); };
    StartDrag()
        .MoveTo(&left, CPoint(10, 10))
        .MoveTo(&left, CPoint(20, 10))
        .MoveTo(&left, CPoint(30, 10))
        .MoveTo(&left, CPoint(40, 10))
        .Release()
        .Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left over 20,10 k1"}));
    EXPECT_EQ(source.results, Effects{kNone});
    EXPECT_EQ(DropTargetOf(gone), nullptr);
    // The drag left nothing behind: the next one drops as usual.
    log.clear();
    Input::Wait();
    StartDrag().MoveTo(&right, CPoint(5, 5)).Release().Play();
    EXPECT_EQ(source.results, (Effects{kNone, kMove}));
}

TEST_F(DragDrop, ADragThatRunsOutOfEventsEndsCancelled)
{
    StartDrag().MoveTo(&left, CPoint(10, 10)).Play();
    EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left leave"}));
    EXPECT_EQ(source.results, Effects{kNone});
    // The loop has let go: the release reaches the window.
    Input::MouseUp(&left, CPoint(10, 10));
    EXPECT_EQ(left.ups, 1);

    // Plain calls queue nothing, so a drag they start ends at once.
    Input::Wait();
    Input::MouseDown(&source, CPoint(20, 20));
    Input::MouseMove(&source, CPoint(20, 30));
    EXPECT_EQ(source.results, (Effects{kNone, kNone}));
    Input::MouseUp(&source, CPoint(20, 30));
    EXPECT_EQ(source.ups, 1);
}

TEST_F(DragDrop, TextFromAnotherApplicationArrivesAsAFreshCopy)
{
    const std::string text = "\xCD\xE2\xB2\xBF text";  // GBK "外部" and ASCII
    Input::MouseMove(&right, CPoint(5, 5));  // where the mouse rests is not where the drag comes in
    {
        FormatBlocks foreign;
        ASSERT_TRUE(foreign.Set(CF_TEXT, GlobalText::Alloc(text)));
        const auto path = Input::Gesture().MoveTo(&left, CPoint(10, 10)).MoveTo(&left, CPoint(30, 30), 2).Release();
        EXPECT_EQ(Input::DropFromOutside(foreign, path, kCopy | kMove), kMove);
        EXPECT_EQ(log, (Log{"left enter 10,10 k1", "left over 20,20 k1", "left over 30,30 k1",
                            "left dropex 30,30 default 2 list 3", "left drop 30,30 effect 2"}));
        EXPECT_EQ(leftTarget.droppedText, text);
        EXPECT_EQ(leftTarget.droppedSize, text.size() + 1);
        EXPECT_NE(leftTarget.droppedBlock, foreign.Find(CF_TEXT));
        std::string kept;
        ASSERT_TRUE(GlobalText::Read(foreign.Find(CF_TEXT), &kept));
        EXPECT_EQ(kept, text);
    }
    // A path that never releases ends cancelled, the button up again.
    log.clear();
    FormatBlocks foreign;
    ASSERT_TRUE(foreign.Set(CF_TEXT, GlobalText::Alloc("x")));
    EXPECT_EQ(Input::DropFromOutside(foreign, Input::Gesture().MoveTo(&right, CPoint(5, 5))), kNone);
    EXPECT_EQ(log, (Log{"right enter 5,5 k1", "right leave"}));
    EXPECT_TRUE(source.results.empty());
}

}  // namespace
}  // namespace drag_test
