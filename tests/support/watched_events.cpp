#include "tests/support/watched_events.h"

#include "platform/core/modal_loop.h"
#include "platform/input/input.h"

namespace {

std::function<void()> g_look;
int g_taken = 0;

bool PlayAndLook()
{
    if (!Input::PlayNext()) return false;
    ++g_taken;
    if (g_look) g_look();
    return true;
}

}  // namespace

WatchedEvents::WatchedEvents(std::function<void()> look)
{
    g_look = std::move(look);
    g_taken = 0;
    ModalInput::SetEventSource(&PlayAndLook);
}

WatchedEvents::~WatchedEvents()
{
    ModalInput::SetEventSource(&Input::PlayNext);
    g_look = nullptr;
}

int WatchedEvents::Taken() const { return g_taken; }
