// The framework's growable arrays. CPtrArray keeps a size, a
// capacity and a growth step like the framework's; out-of-range reads give a
// null pointer instead of undefined behaviour, and out-of-range writes do nothing.
//
// Indices and counts from a caller are never trusted:
// - RemoveAt(index, count) removes from index to index + count, cut at the
//   end of the array; an index outside the array or a count of 0 or less
//   removes nothing.
// - InsertAt(index, element, count) first pads the array with nulls up to an
//   index past its end; a negative index, a count of 0 or less, or a result
//   larger than kPtrArrayMaxSize leaves the array as it was.
// - SetSize(size) with a size below 0 or above kPtrArrayMaxSize, and Add on
//   a full array (which returns -1), leave the array as it was.
// So the size always fits an int, and nothing is allocated for a hostile count.
#pragma once

#include <vector>

#include "platform/core/object.h"
#include "platform/text/cstring.h"

// The most elements an array holds: 128 MB of pointers, far above any list
// the panes show.
constexpr int kPtrArrayMaxSize = 1 << 24;

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
