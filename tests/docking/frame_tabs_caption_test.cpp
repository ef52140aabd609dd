// What the user sees and clicks in the frame's own strips: tabs that switch
// the shown bar while the hidden one keeps its state, and captions that show
// the shown bar's title and light up while the focus is in their group.
#include "platform/docking/dock_layout.h"
#include "platform/gdi/sys_color.h"
#include "tests/docking/dock_frame_fixture.h"
#include "tests/support/window_pixels.h"

namespace {

using docktest::Centre;
using docktest::EditBar;
using namespace docklayout;

class FrameTabs : public docktest::DockFrameFixture {
protected:
    void SetUp() override
    {
        DockFrameFixture::SetUp();
        output = &MakeBar("output");
        search = &MakeBar("search");
        files = &MakeBar("files");
        frame.DockControlBar(output, DockRegion::Bottom);
        frame.AttachToTabs(search, output);
        frame.DockControlBar(files, DockRegion::Left);
        Paint::UpdateAllWindows();
    }

    // Pixels of a colour in a rectangle of the frame's client.
    int Count(COLORREF colour, const CRect& area) const
    {
        Paint::UpdateAllWindows();
        return WindowPixels(frame).Count(colour, area);
    }

    EditBar* output = nullptr;
    EditBar* search = nullptr;
    EditBar* files = nullptr;
};

TEST_F(FrameTabs, ClickingATabShowsItsBarAndTheHiddenOneKeepsItsText)
{
    Input::Click(output, CPoint(20, 10));
    Input::Type("build 1");
    ASSERT_EQ(output->Text(), "build 1");

    Input::Click(&frame, Centre(frame.TabRect(search)));
    EXPECT_TRUE(frame.IsTabShown(search));
    EXPECT_TRUE(search->IsWindowVisible());
    EXPECT_FALSE(output->IsWindowVisible());
    EXPECT_EQ(::GetFocus(), search->view.GetSafeHwnd());
    Input::Type("needle");

    Input::Click(&frame, Centre(frame.TabRect(output)));
    EXPECT_TRUE(output->IsWindowVisible());
    EXPECT_FALSE(search->IsWindowVisible());
    EXPECT_EQ(::GetFocus(), output->view.GetSafeHwnd());
    EXPECT_EQ(output->Text(), "build 1");
    EXPECT_EQ(search->Text(), "needle");
    // Typing goes on where the caret was left.
    Input::Type("2");
    EXPECT_EQ(output->Text(), "build 12");
}

TEST_F(FrameTabs, TheShownTabIsHighlightedAndTheCaptionNamesItsBar)
{
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const CRect outputTab = frame.TabRect(output);
    const CRect searchTab = frame.TabRect(search);
    EXPECT_GT(Count(window, outputTab), outputTab.Width() * outputTab.Height() / 2);
    EXPECT_EQ(Count(window, searchTab), 0);

    // The caption's text: pixels of the text colour, which differ with the title.
    const COLORREF text = GetSysColor(COLOR_INACTIVECAPTIONTEXT);
    const CRect caption = frame.CaptionRect(output);
    const int outputTitle = Count(text, caption);
    EXPECT_GT(outputTitle, 0);

    frame.ShowTab(search);
    EXPECT_EQ(Count(window, outputTab), 0);
    EXPECT_GT(Count(window, searchTab), searchTab.Width() * searchTab.Height() / 2);
    EXPECT_NE(Count(text, caption), outputTitle);
}

TEST_F(FrameTabs, ShowingAnotherTabTakesTheFocusOutOfTheHiddenBar)
{
    output->SetFocus();
    ASSERT_EQ(::GetFocus(), output->view.GetSafeHwnd());
    frame.ShowTab(search);
    EXPECT_EQ(::GetFocus(), search->view.GetSafeHwnd());
    // Focus elsewhere stays where it is.
    files->SetFocus();
    frame.ShowTab(output);
    EXPECT_EQ(::GetFocus(), files->view.GetSafeHwnd());
}

TEST_F(FrameTabs, CaptionsLightUpWhileTheFocusIsInTheirGroup)
{
    const COLORREF active = GetSysColor(COLOR_ACTIVECAPTION);
    const COLORREF inactive = GetSysColor(COLOR_INACTIVECAPTION);
    const CRect filesCaption = frame.CaptionRect(files);
    const CRect outputCaption = frame.CaptionRect(output);
    const int area = filesCaption.Width() * filesCaption.Height();
    EXPECT_EQ(Count(active, filesCaption), 0);
    EXPECT_GT(Count(inactive, filesCaption), area / 2);

    // Focus arrives in the view inside the bar, as a click on it gives it.
    Input::Click(&files->view, CPoint(10, 5));
    EXPECT_GT(Count(active, filesCaption), area / 2);
    EXPECT_EQ(Count(inactive, filesCaption), 0);
    EXPECT_EQ(Count(active, outputCaption), 0);

    // A click on the other caption moves the focus and the light with it.
    Input::Click(&frame, Centre(outputCaption));
    EXPECT_EQ(::GetFocus(), output->view.GetSafeHwnd());
    EXPECT_EQ(Count(active, filesCaption), 0);
    EXPECT_GT(Count(active, outputCaption), outputCaption.Width() * outputCaption.Height() / 2);
    EXPECT_GT(Count(GetSysColor(COLOR_CAPTIONTEXT), outputCaption), 0);

    // Focus leaving every bar leaves every caption inactive.
    central.SetFocus();
    EXPECT_EQ(Count(active, outputCaption), 0);
    EXPECT_EQ(Count(active, filesCaption), 0);
}

TEST_F(FrameTabs, WithoutACentralViewTheCentreShowsTheWorkspaceColour)
{
    const CRect splitter = frame.RegionSplitterRect(DockRegion::Bottom);
    const CRect centre(splitter.left, 0, splitter.right, splitter.top);
    const CRect spot(Centre(centre), CSize(10, 10));
    const COLORREF workspace = GetSysColor(COLOR_APPWORKSPACE);
    EXPECT_EQ(Count(workspace, spot), 0);  // the view covers it

    central.DestroyWindow();
    frame.SetCentralView(nullptr);
    EXPECT_EQ(Count(workspace, spot), 100);
    // Splitters are raised strips: light along one edge, face inside.
    EXPECT_EQ(Count(GetSysColor(COLOR_BTNHIGHLIGHT), CRect(splitter.left + 1, splitter.top, splitter.right - 1, splitter.top + 1)),
              splitter.Width() - 2);
    EXPECT_EQ(Count(GetSysColor(COLOR_BTNFACE), CRect(splitter.left + 1, splitter.top + 1, splitter.right - 1, splitter.bottom - 1)),
              (splitter.Width() - 2) * (splitter.Height() - 2));
}

}  // namespace
