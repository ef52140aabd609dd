#include "platform/core/modal_loop.h"

#include <vector>

namespace ModalInput {
namespace {

std::unique_ptr<ModalLoop> g_loop;
// Loops that ended, kept until no OnInput of theirs can be running.
std::vector<std::unique_ptr<ModalLoop>> g_ended;
// Dispatches on the stack: a nested loop dispatches inside another's OnInput.
int g_dispatching = 0;
EventSource g_source = nullptr;

void FreeEnded()
{
    if (g_dispatching > 0) return;
    // Destructors may end or begin loops themselves: free them one by one.
    while (!g_ended.empty()) {
        std::unique_ptr<ModalLoop> ended = std::move(g_ended.back());
        g_ended.pop_back();
    }
}

}  // namespace

void Begin(std::unique_ptr<ModalLoop> loop)
{
    if (g_loop) g_ended.push_back(std::move(g_loop));
    g_loop = std::move(loop);
    FreeEnded();
}

void End(const ModalLoop* loop)
{
    if (loop && g_loop.get() == loop) g_ended.push_back(std::move(g_loop));
    FreeEnded();
}

bool Active()
{
    return g_loop != nullptr;
}

bool Dispatch(const MSG& msg)
{
    if (!g_loop) return false;
    ModalLoop* loop = g_loop.get();
    ++g_dispatching;
    loop->OnInput(msg);
    --g_dispatching;
    FreeEnded();
    return true;
}

void SetEventSource(EventSource source)
{
    g_source = source;
}

bool Run(const ModalLoop* loop)
{
    while (loop && g_loop.get() == loop) {
        if (!g_source || !g_source()) {
            End(loop);
            return false;
        }
    }
    return true;
}

}  // namespace ModalInput
