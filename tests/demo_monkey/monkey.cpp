#include "tests/demo_monkey/monkey.h"

#include "platform/menu/menu_driver.h"

Monkey::Monkey(CIdeFrame& ide, std::uint32_t seed) : m_ide(ide), m_random(seed)
{
    m_ide.GetWindowRect(&m_startPlace);
}

// Mostly the mouse and the keys, as a user spends a session; the host's
// messages about one step in eight.
void Monkey::Step()
{
    const int roll = Uniform(0, 99);
    if (roll < 22) {
        Click();
    } else if (roll < 30) {
        DoubleClick();
    } else if (roll < 37) {
        RightClickAndAnswer();
    } else if (roll < 43) {
        Drag();
    } else if (roll < 65) {
        PressAKey();
    } else if (roll < 72) {
        TypeText();
    } else if (roll < 77) {
        TurnTheWheel();
    } else if (roll < 81) {
        HoverOrPressAlone();
    } else if (roll < 85) {
        FocusAPane();
    } else if (roll < 86) {
        DropTextFromOutside();
    } else if (roll < 87) {
        ResizeTheWindow();
    } else {
        SendAHostMessage();
    }
    // An answer a menu that never opened left behind would answer the next
    // one, far from the click it was meant for.
    MenuDriver::Reset();
}
