#include "platform/ole/ole_drag.h"

#include "platform/ole/drag_session.h"

namespace OleDrag {
namespace {

bool g_active = false;

// Hands the modal loop's events to the session on Run's stack. Once the
// session ends the loop, it is never called again.
class SessionInput : public ModalLoop {
public:
    explicit SessionInput(DragSession* session) : m_session(session) {}
    void OnInput(const MSG& msg) override { m_session->OnInput(msg); }

private:
    DragSession* m_session;
};

DROPEFFECT RunSession(const FormatBlocks& data, DWORD dwEffects, LPCRECT lpRectStartDrag, bool trackAtStart)
{
    if (g_active) return DROPEFFECT_NONE;
    g_active = true;
    std::optional<CRect> startRect;
    if (lpRectStartDrag) startRect = CRect(*lpRectStartDrag);
    DragSession session(data, dwEffects, startRect);
    auto input = std::make_unique<SessionInput>(&session);
    const ModalLoop* loop = input.get();
    ModalInput::Begin(std::move(input));
    session.Start(loop, trackAtStart);
    ModalInput::Run(loop);
    const DROPEFFECT result = session.Finish();
    g_active = false;
    return result;
}

}  // namespace

DROPEFFECT Run(const FormatBlocks& data, DWORD dwEffects, LPCRECT lpRectStartDrag)
{
    return RunSession(data, dwEffects, lpRectStartDrag, true);
}

DROPEFFECT RunFromOutside(const FormatBlocks& data, DWORD dwEffects)
{
    return RunSession(data, dwEffects, nullptr, false);
}

bool Active()
{
    return g_active;
}

}  // namespace OleDrag
