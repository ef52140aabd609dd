// The framework's growable arrays. CPtrArray keeps a size, a
// capacity and a growth step like the framework's; out-of-range reads give a
// null pointer instead of undefined behaviour, and out-of-range writes do nothing.
#pragma once

#include <vector>

#include "platform/core/object.h"
#include "platform/text/cstring.h"

class AFX_EXT_CLASS CPtrArray : public CObject {
public:
    CPtrArray() = default;
    ~CPtrArray() override = default;

    int GetSize() const { return static_cast<int>(m_items.size()); }
    int GetCount() const { return GetSize(); }
    int GetUpperBound() const { return GetSize() - 1; }
    bool IsEmpty() const { return m_items.empty(); }

    void* GetAt(int index) const { return InRange(index) ? m_items[static_cast<size_t>(index)] : nullptr; }
    void* operator[](int index) const { return GetAt(index); }
    void SetAt(int index, void* element);
    void** GetData() { return m_items.data(); }

    int Add(void* element);
    void InsertAt(int index, void* element, int count = 1);
    void RemoveAt(int index, int count = 1);
    void RemoveAll();
    // Grows or shrinks; new slots are null. growBy < 0 keeps the growth step.
    void SetSize(int newSize, int growBy = -1);
    int GetCapacity() const { return static_cast<int>(m_items.capacity()); }

private:
    bool InRange(int index) const { return index >= 0 && index < GetSize(); }
    void Reserve(size_t wanted);

    std::vector<void*> m_items;
    int m_growBy = 0;  // 0: let the array choose, as the framework does
};

class AFX_EXT_CLASS CStringArray : public CObject {
public:
    int GetSize() const { return static_cast<int>(m_items.size()); }
    int GetCount() const { return GetSize(); }
    CString GetAt(int index) const { return index >= 0 && index < GetSize() ? m_items[static_cast<size_t>(index)] : CString(); }
    CString operator[](int index) const { return GetAt(index); }
    int Add(const CString& text)
    {
        m_items.push_back(text);
        return GetSize() - 1;
    }
    void RemoveAll() { m_items.clear(); }

private:
    std::vector<CString> m_items;
};
