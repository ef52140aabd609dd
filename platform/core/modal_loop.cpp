#include "platform/core/modal_loop.h"

namespace ModalInput {
namespace {

std::unique_ptr<ModalLoop> g_loop;
// A loop that ends inside its own OnInput is freed once that call returns.
std::unique_ptr<ModalLoop> g_ended;

}  // namespace

void Begin(std::unique_ptr<ModalLoop> loop)
{
    g_ended = std::move(g_loop);
    g_loop = std::move(loop);
}

void End(const ModalLoop* loop)
{
    if (loop && g_loop.get() == loop) g_ended = std::move(g_loop);
}

bool Active()
{
    return g_loop != nullptr;
}

bool Dispatch(const MSG& msg)
{
    if (!g_loop) return false;
    g_loop->OnInput(msg);
    g_ended.reset();
    return true;
}

}  // namespace ModalInput
