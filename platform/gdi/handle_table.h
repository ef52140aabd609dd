// Maps opaque handle values to the objects behind them. Values come from one
// process-wide counter and are never reused, so a stale handle (or a handle
// of another kind) simply finds nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "platform/core/win_types.h"

namespace gdi {

// A fresh handle value: never null, never a small integer, never reused.
AFX_API std::uintptr_t NextHandleValue();

template <class T>
class HandleTable {
public:
    std::uintptr_t Add(std::unique_ptr<T> object)
    {
        const std::uintptr_t value = NextHandleValue();
        m_items.emplace(value, std::move(object));
        return value;
    }
    T* Find(std::uintptr_t value) const
    {
        const auto it = m_items.find(value);
        return it == m_items.end() ? nullptr : it->second.get();
    }
    std::unique_ptr<T> Remove(std::uintptr_t value)
    {
        const auto it = m_items.find(value);
        if (it == m_items.end()) return nullptr;
        std::unique_ptr<T> object = std::move(it->second);
        m_items.erase(it);
        return object;
    }
    size_t Count() const { return m_items.size(); }

private:
    std::unordered_map<std::uintptr_t, std::unique_ptr<T>> m_items;
};

// A table that lives until the process ends: objects held by statics in
// other files may still release handles while statics are destroyed.
template <class T>
HandleTable<T>& PermanentTable()
{
    static auto* table = new HandleTable<T>();
    return *table;
}

template <class H>
std::uintptr_t HandleValue(H handle) { return reinterpret_cast<std::uintptr_t>(handle); }
template <class H>
H MakeHandle(std::uintptr_t value) { return reinterpret_cast<H>(value); }

}  // namespace gdi
