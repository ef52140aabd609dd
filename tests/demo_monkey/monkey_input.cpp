// What the monkey does as a user: every gesture complete (a press is always
// released, a menu always answered), so that each step leaves the input
// layer as a real session would between two gestures.
#include "tests/demo_monkey/monkey.h"

#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/ole/clipboard.h"
#include "platform/ole/format_blocks.h"
#include "platform/ole/global_text.h"
#include "platform/text/gbk.h"

namespace {

// Keys a user presses in an IDE's panes, the frame's own among them.
const std::vector<UINT> kKeys = {VK_F5,  VK_F7,   VK_F9,    VK_ESCAPE, VK_RETURN, VK_UP,   VK_DOWN,  VK_LEFT,
                                 VK_RIGHT, VK_DELETE, VK_BACK, VK_TAB,   VK_SPACE,  VK_HOME, VK_END,   VK_PRIOR,
                                 VK_NEXT, VK_INSERT, VK_F2,  VK_F3,     VK_F4,     VK_F6,   VK_F8,    VK_F10};
// Letters with Ctrl: the watch's Ctrl+M, the edits' select all, copy, paste, cut.
const std::vector<char> kControlLetters = {'M', 'A', 'C', 'V', 'X', 'Z', 'F'};

// Watch expressions, good and bad, and the odd text a user types into a tree.
const std::vector<std::string> kTexts = {
    "phase", "ticks", "cfg", "cfg.mode", "timings[2] * 3", "timings[9]", "*cursor", "&red", "lights", "total / 0",
    "0x7F", "-1", "((((", ")", "phase +", "a.b.c.d", "t", "m", "x", "12345678901234567890", "\"text\"", "'c'",
    "timings[-1]", "sizeof(cfg)", "ticks << 40", "cfg->mode", "red = 3", "   ", "",
};
const std::vector<const char*> kGbkTexts = {"观察", "断点", "变量 a", "中文表达式", "ｘ＋１"};

// How many moves a drag makes, at most: each move of a splitter lays out
// and repaints the whole frame, and three already pass over other windows.
constexpr int kMostDragSteps = 3;
// The smallest a user makes the window, and how much larger than at the start.
constexpr int kSmallest = 120;
constexpr int kLarger = 300;
// Wheel notches a turn moves, either way.
constexpr int kMostNotches = 5;
constexpr int kWheelDelta = 120;

}  // namespace

unsigned Monkey::RandomModifiers()
{
    const int roll = Uniform(0, 99);
    if (roll < 80) return Input::kNone;
    if (roll < 88) return Input::kShift;
    if (roll < 96) return Input::kControl;
    return Input::kShift | Input::kControl;
}

std::string Monkey::RandomText()
{
    const int roll = Uniform(0, 99);
    if (roll < 70) return Pick(kTexts);
    if (roll < 85) return GBK(kGbkTexts[static_cast<std::size_t>(Uniform(0, static_cast<int>(kGbkTexts.size()) - 1))]);
    // Now and then longer than a grid cell keeps (kGridCellTextBytes).
    std::string text;
    const int length = Chance(90) ? Uniform(1, 40) : Uniform(240, 400);
    for (int i = 0; i < length; ++i) text += static_cast<char>(Uniform(' ', '~'));
    return text;
}

void Monkey::Click()
{
    m_action = "click";
    const Aim aim = Chance(85) ? SomewhereMeaningful() : Anywhere();
    // Mostly apart; sometimes two clicks in a row land close enough to be a double click.
    if (Chance(80)) Input::Wait();
    Input::Click(aim.window, aim.point, RandomModifiers());
}

void Monkey::DoubleClick()
{
    m_action = "double click";
    const Aim aim = Chance(90) ? SomewhereMeaningful() : Anywhere();
    Input::Wait();
    Input::DoubleClick(aim.window, aim.point, RandomModifiers());
}

UINT Monkey::ChooseFromMenu(const ShownMenu& menu)
{
    std::vector<UINT> commands;
    std::vector<const std::vector<ShownMenuItem>*> levels = {&menu.items};
    while (!levels.empty()) {
        const std::vector<ShownMenuItem>* items = levels.back();
        levels.pop_back();
        for (const ShownMenuItem& item : *items) {
            if (item.IsPopup()) {
                levels.push_back(&item.children);
            } else if (!item.separator && (item.enabled || Chance(10))) {
                commands.push_back(item.id);
            }
        }
    }
    if (commands.empty() || Chance(20)) return 0;
    return Pick(commands);
}

void Monkey::RightClickAndAnswer()
{
    m_action = "right click and menu";
    const Aim aim = Chance(90) ? SomewhereMeaningful() : Anywhere();
    MenuDriver::Queue([this](const ShownMenu& menu) { return ChooseFromMenu(menu); });
    Input::Wait();
    Input::RightClick(aim.window, aim.point, RandomModifiers());
}

void Monkey::Drag()
{
    const int roll = Uniform(0, 99);
    Aim from;
    if (roll < 35) {
        m_action = "drag a splitter";
        from = OnASplitter();
    } else if (roll < 50) {
        m_action = "drag a tab";
        from = OnATab();
    } else if (roll < 90) {
        m_action = "drag in a view";
        from = InAView();
    } else {
        m_action = "drag anywhere";
    }
    if (!from.window) from = Anywhere();
    // The drop: in the same window mostly, else anywhere over the frame.
    Aim to = Chance(60) ? InTheClient(*from.window) : SomewhereMeaningful();
    if (!to.window) to = Anywhere();
    CPoint end = to.point;
    to.window->ClientToScreen(&end);
    from.window->ScreenToClient(&end);
    Input::Wait();
    Input::Drag(from.window, from.point, end, Uniform(1, kMostDragSteps), RandomModifiers());
}

void Monkey::PressAKey()
{
    if (Chance(15)) {
        m_action = "ctrl+letter";
        Input::Key(static_cast<UINT>(Pick(kControlLetters)), Input::kControl);
    } else if (Chance(15)) {
        m_action = "letter";
        Input::Key(static_cast<UINT>(Uniform('A', 'Z')), Chance(20) ? Input::kShift : Input::kNone);
    } else {
        m_action = "key";
        Input::Key(Pick(kKeys), RandomModifiers());
    }
}

void Monkey::TypeText()
{
    m_action = "typing";
    if (Chance(30)) {
        // Into a watch's cell, as a user adds an expression or writes a value.
        CWnd* watch = CWnd::FromHandle(Chance(80) ? m_ide.panes.watch1.GetViewHwnd() : m_ide.panes.watch2.GetViewHwnd());
        if (watch && watch->IsWindowVisible()) {
            const Aim cell = OnAGridCell(*watch);
            Input::Wait();
            if (cell.window) Input::Click(cell.window, cell.point);
        }
    }
    Input::Type(RandomText());
    if (Chance(50)) Input::Key(Chance(80) ? VK_RETURN : VK_ESCAPE);
}

void Monkey::TurnTheWheel()
{
    m_action = "wheel";
    const Aim aim = Chance(90) ? InAView() : Anywhere();
    const Aim at = aim.window ? aim : Anywhere();
    Input::Wheel(at.window, at.point, Uniform(-kMostNotches, kMostNotches) * kWheelDelta);
}

void Monkey::HoverOrPressAlone()
{
    const Aim aim = Chance(70) ? SomewhereMeaningful() : Anywhere();
    if (Chance(50)) {
        m_action = "hover";
        Input::MouseMove(aim.window, aim.point, RandomModifiers());
        return;
    }
    // Press, move and release as separate events: a drag the input layer
    // does not queue, so any drag it starts ends at once.
    m_action = "press, move, release";
    const bool right = Chance(20);
    const Aim to = SomewhereMeaningful();
    CPoint end = to.point;
    to.window->ClientToScreen(&end);
    aim.window->ScreenToClient(&end);
    if (right) MenuDriver::Queue([this](const ShownMenu& menu) { return ChooseFromMenu(menu); });
    Input::Wait();
    Input::MouseDown(aim.window, aim.point, right);
    Input::MouseMove(aim.window, end);
    Input::MouseUp(aim.window, end, right);
}

void Monkey::FocusAPane()
{
    m_action = "focus a pane";
    CBCGPDockingControlBar* bars[] = {&m_ide.panes.files,  &m_ide.panes.targets, &m_ide.panes.functions,
                                      &m_ide.panes.bookmarks, &m_ide.panes.breakpoints, &m_ide.panes.memory,
                                      &m_ide.panes.build,  &m_ide.panes.search,  &m_ide.panes.debug,
                                      &m_ide.panes.watch1, &m_ide.panes.watch2};
    const int pick = Uniform(0, static_cast<int>(std::size(bars)));
    if (pick == static_cast<int>(std::size(bars))) {
        m_ide.source.SetFocus();
        return;
    }
    // As the frame's commands that bring a pane forward do: its tab, then the focus.
    if (Chance(50)) m_ide.ShowTab(bars[pick]);
    bars[pick]->SetFocus();
}

void Monkey::DropTextFromOutside()
{
    m_action = "text dropped from outside";
    const Aim aim = Chance(80) ? InAView() : Anywhere();
    const Aim at = aim.window ? aim : Anywhere();
    FormatBlocks data;
    data.Set(CF_TEXT, GlobalText::Alloc(RandomText()));
    Input::DropFromOutside(data, Input::Gesture().MoveTo(at.window, at.point, Uniform(1, 3)).Release());
}

void Monkey::ResizeTheWindow()
{
    m_action = "resize the window";
    // Back to its size half the time, so that most steps see the panes at a usable size.
    if (Chance(50)) {
        m_ide.MoveWindow(&m_startPlace);
    } else {
        m_ide.MoveWindow(m_startPlace.left, m_startPlace.top, Uniform(kSmallest, m_startPlace.Width() + kLarger),
                         Uniform(kSmallest, m_startPlace.Height() + kLarger));
    }
}
