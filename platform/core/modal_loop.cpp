#include "platform/core/modal_loop.h"

#include <vector>

namespace ModalInput {
namespace {

std::unique_ptr<ModalLoop> g_loop;
// Loops that ended, kept until no OnInput of theirs can be running.
std::vector<std::unique_ptr<ModalLoop>> g_ended;

}  // namespace

void Begin(std::unique_ptr<ModalLoop> loop)
{
    if (g_loop) g_ended.push_back(std::move(g_loop));
    g_loop = std::move(loop);
}

void End(const ModalLoop* loop)
{
    if (loop && g_loop.get() == loop) g_ended.push_back(std::move(g_loop));
}

bool Active()
{
    return g_loop != nullptr;
}

bool Dispatch(const MSG& msg)
{
    if (!g_loop) return false;
    ModalLoop* loop = g_loop.get();
    loop->OnInput(msg);
    // Destructors may end or begin loops themselves: free them one by one.
    while (!g_ended.empty()) {
        std::unique_ptr<ModalLoop> ended = std::move(g_ended.back());
        g_ended.pop_back();
    }
    return true;
}

}  // namespace ModalInput
