// The demo IDE's host side: what it does with the library's requests and the
// user's keys, and what it does with requests it cannot satisfy.
#include <gtest/gtest.h>

#include "demo/ide_frame.h"
#include "demo/sample_project.h"
#include "host/host_messages.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "tests/demo_tour/ide_frame_suite.h"

namespace {

// "清除所有断点" in the breakpoint view's menu.
constexpr UINT kClearAllBreakpointsItem = 32032;

int MarkCount(const CBreakPointList& list)
{
    int count = 0;
    for (int i = 0; i < list.GetSize(); ++i) count += list.GroupAt(i)->GetSize();
    return count;
}

class IdeFrameTest : public IdeFrameSuite {
protected:
    void SetUp() override
    {
        MenuDriver::Reset();
        ASSERT_TRUE(ide.CreateIde(CRect(0, 0, 1280, 900)));
    }
    void TearDown() override
    {
        MenuDriver::Reset();
        s_app->m_pMainWnd = nullptr;
    }

    static std::string PathOf(const char* name) { return SampleProject::kFolder + std::string(name); }

};

TEST_F(IdeFrameTest, OpensTheProjectWithItsMarksAndMain)
{
    EXPECT_EQ(ide.bookmarks.GetSize(), 4);  // main.c, lights.c, timer0.c, uart.c
    EXPECT_EQ(MarkCount(ide.breakpoints), 3);
    EXPECT_EQ(AfxGetMainWnd(), &ide);
    // The library finds the debugger service through the project context.
    EXPECT_EQ(ide.context.debuggerWindow, ide.debugger.GetSafeHwnd());
}

TEST_F(IdeFrameTest, AGotoRequestOpensTheFileAtItsLineAndABadOneChangesNothing)
{
    const std::string timer = PathOf("timer0.c");
    ide.SendMessage(UWM_GOTO_SOURCE, reinterpret_cast<WPARAM>(timer.c_str()), 29);
    EXPECT_EQ(ide.source.Path(), timer);
    EXPECT_EQ(ide.source.CaretLine(), 29);

    const std::string outside = "C:\\elsewhere\\main.c";
    ide.SendMessage(UWM_GOTO_SOURCE, reinterpret_cast<WPARAM>(outside.c_str()), 3);
    ide.SendMessage(UWM_MSGVIEW_GOTO, 0, 3);
    ide.SendMessage(UWM_WORKSPACE_OPEN_FILE, reinterpret_cast<WPARAM>(PathOf("nosuch.c").c_str()), 0);
    EXPECT_EQ(ide.source.Path(), timer);
    EXPECT_EQ(ide.source.CaretLine(), 29);
}

TEST_F(IdeFrameTest, F9InTheSourceViewSetsThenRemovesABreakpoint)
{
    ide.OpenFile(PathOf("uart.c"), 14);
    ide.source.SetFocus();
    const int before = MarkCount(ide.breakpoints);
    Input::Key(VK_F9);
    EXPECT_EQ(MarkCount(ide.breakpoints), before + 1);
    Input::Key(VK_F9);
    EXPECT_EQ(MarkCount(ide.breakpoints), before);

    // Outside the source view F9 is not the frame's.
    ide.panes.bookmarks.SetFocus();
    Input::Key(VK_F9);
    EXPECT_EQ(MarkCount(ide.breakpoints), before);
}

// Off the toolchain, F7 shows the log kept with the project even where SDCC
// is installed, and debugging runs on the simulated target.
TEST_F(IdeFrameTest, WithTheToolchainOffF7NeverStartsTheCompiler)
{
    ide.UseToolchain(false);
    ide.SetFocus();
    Input::Key(VK_F7);
    EXPECT_NE(ide.transcript.Text().find("(toolchain not in use: the build log kept with the project)"), std::string::npos);
    EXPECT_EQ(ide.transcript.Text().find("SDCC built the sample"), std::string::npos);
    auto* log = dynamic_cast<CRichEditCtrl*>(CWnd::FromHandle(ide.panes.build.GetViewHwnd()));
    ASSERT_NE(log, nullptr);
    EXPECT_GT(log->GetLineCount(), 1);
    EXPECT_FALSE(ide.StartDebugging());
}

TEST_F(IdeFrameTest, ClearAllBreakpointsFromTheViewsMenuEmptiesTheList)
{
    auto* view = CWnd::FromHandle(ide.panes.breakpoints.GetViewHwnd());
    MenuDriver::Choose(kClearAllBreakpointsItem);
    Input::RightClick(view, CPoint(20, 8));
    EXPECT_EQ(MarkCount(ide.breakpoints), 0);
    EXPECT_NE(ide.transcript.Text().find("(clear all breakpoints)"), std::string::npos);
}

TEST_F(IdeFrameTest, TheWatchListGoesToTheWatchAndComesBackWithItsEdits)
{
    ide.RestoreWatchList({"phase", "cfg"});
    auto* watch = dynamic_cast<CWatchGridCtrl*>(CWnd::FromHandle(ide.panes.watch1.GetViewHwnd()));
    ASSERT_NE(watch, nullptr);
    watch->SetFocus();
    watch->SelectItem(watch->GetItemCount() - 1);
    Input::Type("ticks");
    Input::Key(VK_RETURN);
    EXPECT_EQ(ide.SaveWatchList(), (std::vector<std::string>{"phase", "cfg", "ticks"}));
    // The fixed-list pane mirrors the service's list and keeps none of its own.
    auto* fixed = dynamic_cast<CWatchGridCtrl*>(CWnd::FromHandle(ide.panes.watch2.GetViewHwnd()));
    ASSERT_NE(fixed, nullptr);
    fixed->SendMessage(UWM_WATCH_REFRESH, 0, 0);
    EXPECT_GT(fixed->GetItemCount(), 0);
}

TEST_F(IdeFrameTest, AProjectOpensWithTheSettingsKeptWithIt)
{
    ProjectSettings kept;
    kept.watch = {"ticks", "cfg"};
    kept.regions = {{"left", 250}, {"bottom", 333}};
    ide.OpenProject(kept);
    EXPECT_EQ(ide.GetRegionSize(DockRegion::Left), 250);
    EXPECT_EQ(ide.GetRegionSize(DockRegion::Bottom), 333);
    const ProjectSettings now = ide.Settings();
    EXPECT_EQ(now.watch, kept.watch);
    EXPECT_EQ(now.regions.at("bottom"), 333);
    EXPECT_EQ(ide.source.Path(), PathOf("main.c"));
}

}  // namespace
