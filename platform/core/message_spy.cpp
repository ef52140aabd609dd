#include "platform/core/message_spy.h"

#include <map>

namespace MessageSpy {
namespace {

struct SpyState {
    std::map<int, Observer> observers;
    int next = 1;
};

SpyState& State()
{
    static SpyState state;
    return state;
}

}  // namespace

int Add(Observer observer)
{
    SpyState& state = State();
    state.observers.emplace(state.next, std::move(observer));
    return state.next++;
}

void Remove(int cookie)
{
    State().observers.erase(cookie);
}

void Notify(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    SpyState& state = State();
    if (state.observers.empty()) return;
    // Copied, so that an observer may add or remove observers.
    const auto observers = state.observers;
    for (const auto& [cookie, observer] : observers) observer(hwnd, message, wParam, lParam);
}

Counter::Counter(HWND hwnd, UINT message)
    : m_cookie(Add([this, hwnd, message](HWND target, UINT sent, WPARAM, LPARAM) {
          if (target == hwnd && sent == message) ++m_count;
      }))
{
}

Counter::~Counter()
{
    Remove(m_cookie);
}

}  // namespace MessageSpy
