#include "platform/core/message_box.h"

#include <deque>

#include "platform/core/message_box_window.h"

namespace {

struct BoxState {
    std::vector<MessageBoxRecord> shown;
    std::deque<MessageBoxes::Answer> answers;
    bool interactive = false;
};

BoxState& State()
{
    static BoxState state;
    return state;
}

int DefaultAnswer(UINT type)
{
    switch (type & 0x0F) {
    case MB_YESNO: return IDYES;
    default: return IDOK;
    }
}

}  // namespace

int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type)
{
    BoxState& state = State();
    state.shown.push_back(MessageBoxRecord{owner, caption ? caption : "", text ? text : "", type});
    const MessageBoxRecord record = state.shown.back();
    if (state.answers.empty()) return state.interactive ? ShowMessageBoxWindow(record) : DefaultAnswer(type);
    MessageBoxes::Answer answer = std::move(state.answers.front());
    state.answers.pop_front();
    return answer ? answer(record) : DefaultAnswer(type);
}

namespace MessageBoxes {

const std::vector<MessageBoxRecord>& Shown() { return State().shown; }

void Queue(Answer answer) { State().answers.push_back(std::move(answer)); }

void SetInteractive(bool on) { State().interactive = on; }

bool IsInteractive() { return State().interactive; }

void Reset()
{
    State().shown.clear();
    State().answers.clear();
}

}  // namespace MessageBoxes
