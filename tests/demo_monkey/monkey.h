// A monkey at the demo IDE: a seeded random stream of what a user does
// (clicks, double clicks, context menus answered or dismissed, drags, keys,
// typing, the wheel), aimed mostly at the places that mean something (the
// panes' rows and cells, tabs, captions, splitters, the source view) and now
// and then anywhere, mixed with the messages a host sends the library. The
// same seed plays the same stream.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "demo/ide_frame.h"
#include "platform/menu/menu_driver.h"

class Monkey {
public:
    // The frame must be created, its project open and its toolchain off: the
    // stream presses F7 and starts debugging.
    Monkey(CIdeFrame& ide, std::uint32_t seed);

    // One action of the stream.
    void Step();
    // What the step playing or last played does, for a failure's message;
    // the reference stays valid as long as the monkey.
    const char* const& LastAction() const { return m_action; }

private:
    // A point in a window's client area; no window when nothing is there to aim at.
    struct Aim {
        CWnd* window = nullptr;
        CPoint point;
    };

    // Where to aim (monkey_aims.cpp).
    Aim Anywhere();
    Aim SomewhereMeaningful();
    Aim InAView();
    Aim OnATab();
    Aim OnACaption();
    Aim OnASplitter();
    Aim OnATreeRow(CWnd& view);
    Aim OnAnEditLine(CWnd& view);
    Aim OnAGridCell(CWnd& view);
    Aim InTheClient(CWnd& window);
    // The views of the panes now shown, and the source view.
    std::vector<CWnd*> ShownViews();

    // The user (monkey_input.cpp).
    void Click();
    void DoubleClick();
    void RightClickAndAnswer();
    void Drag();
    void PressAKey();
    void TypeText();
    void TurnTheWheel();
    void HoverOrPressAlone();
    void FocusAPane();
    void DropTextFromOutside();
    void ResizeTheWindow();
    UINT ChooseFromMenu(const ShownMenu& menu);
    unsigned RandomModifiers();
    std::string RandomText();

    // The host (monkey_host.cpp).
    void SendAHostMessage();
    std::vector<std::string> RandomWatchList();
    std::string RandomPath();
    int RandomLine();

    int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    bool Chance(int percent) { return Uniform(0, 99) < percent; }
    template <class T>
    const T& Pick(const std::vector<T>& items)
    {
        return items[static_cast<std::size_t>(Uniform(0, static_cast<int>(items.size()) - 1))];
    }

    CIdeFrame& m_ide;
    std::mt19937 m_random;
    CRect m_startPlace;  // the frame's window when the monkey came
    const char* m_action = "none yet";
};
