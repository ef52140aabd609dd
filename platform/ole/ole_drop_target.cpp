#include "platform/ole/ole_drop_target.h"

#include <unordered_map>

#include "platform/core/wnd.h"

IMPLEMENT_DYNAMIC(COleDropTarget, CCmdTarget)

struct DropTargetRegistry {
    struct Entry {
        COleDropTarget* target = nullptr;
        std::uint64_t number = 0;
    };

    static DropTargetRegistry& Get()
    {
        static DropTargetRegistry registry;
        return registry;
    }

    // Window handles are never reused, so a gone window's entry can wait
    // until the next registration to be dropped.
    const Entry* Find(HWND hwnd) const
    {
        if (!IsWindow(hwnd)) return nullptr;
        const auto it = entries.find(hwnd);
        return it == entries.end() ? nullptr : &it->second;
    }

    void Add(HWND hwnd, COleDropTarget* target)
    {
        std::erase_if(entries, [](const auto& entry) {
            if (IsWindow(entry.first)) return false;
            entry.second.target->m_hWnd = nullptr;
            return true;
        });
        Entry& entry = entries[hwnd];
        if (entry.target) entry.target->m_hWnd = nullptr;
        entry = Entry{target, ++lastNumber};
        target->m_hWnd = hwnd;
    }

    void Remove(COleDropTarget* target)
    {
        const auto it = entries.find(target->m_hWnd);
        if (it != entries.end() && it->second.target == target) entries.erase(it);
        target->m_hWnd = nullptr;
    }

    std::unordered_map<HWND, Entry> entries;
    std::uint64_t lastNumber = 0;
};

COleDropTarget::~COleDropTarget()
{
    COleDropTarget::Revoke();  // a derived class's part is gone already
}

BOOL COleDropTarget::Register(CWnd* pWnd)
{
    const HWND hwnd = pWnd ? pWnd->GetSafeHwnd() : nullptr;
    if (!IsWindow(hwnd)) return FALSE;
    Revoke();
    DropTargetRegistry::Get().Add(hwnd, this);
    return TRUE;
}

void COleDropTarget::Revoke()
{
    if (m_hWnd) DropTargetRegistry::Get().Remove(this);
}

DROPEFFECT COleDropTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

DROPEFFECT COleDropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

DROPEFFECT COleDropTarget::OnDragScroll(CWnd*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

void COleDropTarget::OnDragLeave(CWnd*) {}

DROPEFFECT COleDropTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint)
{
    return static_cast<DROPEFFECT>(-1);
}

BOOL COleDropTarget::OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint)
{
    return FALSE;
}

COleDropTarget* DropTargetOf(HWND hwnd)
{
    const auto* entry = DropTargetRegistry::Get().Find(hwnd);
    return entry ? entry->target : nullptr;
}

std::uint64_t DropTargetRegistration(HWND hwnd)
{
    const auto* entry = DropTargetRegistry::Get().Find(hwnd);
    return entry ? entry->number : 0;
}
