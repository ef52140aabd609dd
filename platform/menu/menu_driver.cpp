#include "platform/menu/menu_driver.h"

#include <deque>
#include <optional>

namespace {

struct DriverState {
    std::deque<MenuDriver::Answer> answers;
    std::optional<ShownMenu> last;
    int shown = 0;
    bool interactive = false;
};

DriverState& State()
{
    static DriverState state;
    return state;
}

const ShownMenuItem* FindIn(const std::vector<ShownMenuItem>& items, UINT id)
{
    for (const ShownMenuItem& item : items) {
        if (!item.separator && !item.IsPopup() && item.id == id) return &item;
        if (const ShownMenuItem* found = FindIn(item.children, id)) return found;
    }
    return nullptr;
}

}  // namespace

const ShownMenuItem* ShownMenu::Find(UINT id) const
{
    return FindIn(items, id);
}

namespace MenuDriver {

void Queue(Answer answer)
{
    State().answers.push_back(std::move(answer));
}

void Choose(UINT id)
{
    Queue([id](const ShownMenu&) { return id; });
}

void Dismiss()
{
    Queue([](const ShownMenu&) { return 0u; });
}

UINT Run(const ShownMenu& menu, const Track& track)
{
    DriverState& state = State();
    state.last = menu;
    ++state.shown;
    UINT chosen = 0;
    if (!state.answers.empty()) {
        Answer answer = std::move(state.answers.front());
        state.answers.pop_front();
        chosen = answer ? answer(menu) : 0;
    } else if (state.interactive && track) {
        chosen = track();
    }
    const ShownMenuItem* item = chosen ? menu.Find(chosen) : nullptr;
    return item && item->enabled ? chosen : 0;
}

void SetInteractive(bool on) { State().interactive = on; }

bool IsInteractive() { return State().interactive; }

int ShownCount() { return State().shown; }

const ShownMenu* LastShown()
{
    return State().last ? &*State().last : nullptr;
}

void Reset()
{
    DriverState& state = State();
    state.answers.clear();
    state.last.reset();
    state.shown = 0;
}

}  // namespace MenuDriver
