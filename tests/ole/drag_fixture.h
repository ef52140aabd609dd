// Windows to drag between: a frame holding a source that starts a drag from
// its mouse-move handler (as list and tree controls do), two windows with
// recording drop targets (the left one with a child of its own) and a window
// without a target. Every call to a target is logged as one line.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/input_state.h"
#include "platform/core/modal_loop.h"
#include "platform/docking/frame_wnd.h"
#include "platform/input/input.h"
#include "platform/ole/clipboard.h"
#include "platform/ole/global_text.h"
#include "platform/ole/ole_data_source.h"
#include "platform/ole/ole_drag.h"
#include "platform/ole/ole_drop_target.h"

namespace drag_test {

using Log = std::vector<std::string>;

inline std::string At(CPoint p)
{
    return std::to_string(p.x) + "," + std::to_string(p.y);
}

// Logs "<name> <call> <x>,<y> k<key state>" and answers as told.
class RecordingTarget : public COleDropTarget {
public:
    RecordingTarget(std::string name, Log* log) : m_name(std::move(name)), m_log(log) {}

    // What enter and over answer: `plain`, or `withControl` while Control is held.
    DROPEFFECT plain = DROPEFFECT_MOVE;
    DROPEFFECT withControl = DROPEFFECT_COPY;
    DROPEFFECT dropExAnswer = static_cast<DROPEFFECT>(-1);
    BOOL dropAnswer = TRUE;
    bool logScroll = false;
    std::function<void()> onFirstOver;  // runs once, inside the first OnDragOver
    std::string droppedText;            // CF_TEXT as OnDrop read it
    HGLOBAL droppedBlock = nullptr;     // the block OnDrop was handed (freed since)
    size_t droppedSize = 0;

    BOOL Register(CWnd* wnd)
    {
        m_wnd = wnd;
        return COleDropTarget::Register(wnd);
    }

    DROPEFFECT OnDragEnter(CWnd* wnd, COleDataObject* data, DWORD keys, CPoint point) override
    {
        Check(wnd, data);
        Add("enter " + At(point) + " k" + std::to_string(keys));
        return Answer(keys);
    }
    DROPEFFECT OnDragOver(CWnd* wnd, COleDataObject* data, DWORD keys, CPoint point) override
    {
        Check(wnd, data);
        Add("over " + At(point) + " k" + std::to_string(keys));
        if (auto hook = std::exchange(onFirstOver, nullptr)) hook();
        return Answer(keys);
    }
    DROPEFFECT OnDragScroll(CWnd* wnd, DWORD keys, CPoint point) override
    {
        Check(wnd, nullptr);
        if (logScroll) Add("scroll " + At(point) + " k" + std::to_string(keys));
        return DROPEFFECT_NONE;
    }
    void OnDragLeave(CWnd* wnd) override
    {
        Check(wnd, nullptr);
        Add("leave");
    }
    DROPEFFECT OnDropEx(CWnd* wnd, COleDataObject* data, DROPEFFECT dropDefault, DROPEFFECT dropList, CPoint point) override
    {
        Check(wnd, data);
        Add("dropex " + At(point) + " default " + std::to_string(dropDefault) + " list " + std::to_string(dropList));
        return dropExAnswer;
    }
    BOOL OnDrop(CWnd* wnd, COleDataObject* data, DROPEFFECT effect, CPoint point) override
    {
        Check(wnd, data);
        Add("drop " + At(point) + " effect " + std::to_string(effect));
        droppedBlock = data->GetGlobalData(CF_TEXT);
        droppedSize = GlobalSize(droppedBlock);
        if (!GlobalText::Read(droppedBlock, &droppedText)) droppedText = "<none>";
        EXPECT_EQ(GlobalFree(droppedBlock), nullptr) << "the copy is the target's to free";
        return dropAnswer;
    }

private:
    DROPEFFECT Answer(DWORD keys) const { return (keys & MK_CONTROL) ? withControl : plain; }
    void Add(const std::string& line) { m_log->push_back(m_name + " " + line); }
    void Check(CWnd* wnd, COleDataObject* data) const
    {
        EXPECT_EQ(wnd, m_wnd) << m_name << ": called with another window";
        if (data) {
            EXPECT_TRUE(data->IsDataAvailable(CF_TEXT)) << m_name << ": no text offered";
        }
    }

    std::string m_name;
    Log* m_log;
    CWnd* m_wnd = nullptr;
};

// A press arms a drag of `text`; the first move with the button held starts it.
class DragWnd : public CWnd {
public:
    std::string text = "row text";
    DWORD allowed = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    std::optional<CRect> startRect;  // screen coordinates
    std::vector<DROPEFFECT> results;
    int ups = 0;
    int captureLost = 0;

protected:
    DECLARE_MESSAGE_MAP()
    void OnLButtonDown(UINT, CPoint)
    {
        m_armed = true;
        SetCapture();
    }
    void OnMouseMove(UINT flags, CPoint)
    {
        if (!m_armed || !(flags & MK_LBUTTON)) return;
        m_armed = false;
        COleDataSource source;
        source.CacheGlobalData(CF_TEXT, GlobalText::Alloc(text));
        results.push_back(source.DoDragDrop(allowed, startRect ? &*startRect : nullptr));
    }
    void OnLButtonUp(UINT, CPoint)
    {
        ++ups;
        m_armed = false;
        if (GetCapture() == this) ReleaseCapture();
    }
    LRESULT OnCaptureChanged(WPARAM, LPARAM)
    {
        ++captureLost;
        return 0;
    }

private:
    bool m_armed = false;
};

class DragDrop : public ::testing::Test {
protected:
    void SetUp() override
    {
        blocks = GlobalMemory::BlockCount();
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 600, 400)));
        ASSERT_TRUE(Child(source, CRect(10, 10, 110, 110), 1));
        ASSERT_TRUE(Child(left, CRect(150, 10, 250, 110), 2));
        ASSERT_TRUE(Child(right, CRect(300, 10, 400, 110), 3));
        ASSERT_TRUE(Child(bare, CRect(10, 150, 110, 250), 4));
        ASSERT_TRUE(inner.Create(nullptr, "inner", WS_CHILD | WS_VISIBLE, CRect(50, 50, 90, 90), &left, 5));
        ASSERT_TRUE(leftTarget.Register(&left));
        ASSERT_TRUE(rightTarget.Register(&right));
        ::SetFocus(nullptr);
        Input::Wait();
    }
    void TearDown() override
    {
        EXPECT_FALSE(ModalInput::Active());
        EXPECT_FALSE(OleDrag::Active());
        EXPECT_FALSE(Input::PlayNext()) << "events left in the queue";
        EXPECT_FALSE(IsKeyDown(VK_LBUTTON));
        frame.DestroyWindow();
        EXPECT_EQ(GlobalMemory::BlockCount(), blocks);
    }
    BOOL Child(CWnd& wnd, const CRect& rect, UINT id)
    {
        return wnd.Create(nullptr, "child", WS_CHILD | WS_VISIBLE, rect, &frame, id);
    }
    // A press on the source and the move that starts the drag there.
    Input::Gesture StartDrag()
    {
        Input::Gesture gesture;
        gesture.Press(&source, CPoint(20, 20)).MoveTo(&source, CPoint(20, 30));
        return gesture;
    }

    size_t blocks = 0;
    Log log;
    CFrameWnd frame;
    DragWnd source;
    DragWnd left;
    DragWnd right;
    DragWnd bare;
    CWnd inner;
    RecordingTarget leftTarget{"left", &log};
    RecordingTarget rightTarget{"right", &log};
};

}  // namespace drag_test
