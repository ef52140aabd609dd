#include "platform/core/window_registry.h"

#include <map>

#include "platform/gdi/surface.h"

namespace {

struct Registry {
    // Ordered by handle value, which grows with creation order.
    std::map<std::uintptr_t, std::unique_ptr<WindowData>> windows;
    std::uintptr_t next = 0x10000;
};

Registry& GetRegistry()
{
    static Registry registry;
    return registry;
}

}  // namespace

namespace WindowRegistry {

WindowData* Create()
{
    Registry& registry = GetRegistry();
    const std::uintptr_t value = registry.next;
    registry.next += 4;
    auto data = std::make_unique<WindowData>();
    data->handle = reinterpret_cast<HWND>(value);
    WindowData* raw = data.get();
    registry.windows.emplace(value, std::move(data));
    return raw;
}

WindowData* Find(HWND hwnd)
{
    if (!hwnd) return nullptr;
    auto& windows = GetRegistry().windows;
    const auto it = windows.find(reinterpret_cast<std::uintptr_t>(hwnd));
    return it == windows.end() ? nullptr : it->second.get();
}

void Remove(HWND hwnd)
{
    GetRegistry().windows.erase(reinterpret_cast<std::uintptr_t>(hwnd));
}

std::vector<HWND> TopLevelWindows()
{
    std::vector<HWND> result;
    for (const auto& [value, data] : GetRegistry().windows) {
        if (!data->parent && !data->destroying) result.push_back(data->handle);
    }
    return result;
}

}  // namespace WindowRegistry
