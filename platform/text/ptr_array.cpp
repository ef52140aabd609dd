#include "platform/text/ptr_array.h"

void CPtrArray::Reserve(size_t wanted)
{
    if (wanted <= m_items.capacity()) return;
    // The framework grows by its step, or by an eighth of the size (at least 4)
    // when no step is set; either keeps appends amortised constant.
    size_t step = m_growBy > 0 ? static_cast<size_t>(m_growBy) : std::max<size_t>(4, m_items.size() / 8);
    step = std::max(step, m_items.size() / 2);
    m_items.reserve(std::max(wanted, m_items.size() + step));
}

void CPtrArray::SetAt(int index, void* element)
{
    if (InRange(index)) m_items[static_cast<size_t>(index)] = element;
}

int CPtrArray::Add(void* element)
{
    if (GetSize() >= kPtrArrayMaxSize) return -1;
    Reserve(m_items.size() + 1);
    m_items.push_back(element);
    return GetSize() - 1;
}

void CPtrArray::InsertAt(int index, void* element, int count)
{
    if (index < 0 || count <= 0) return;
    // The room left is counted by subtraction, which cannot overflow: index
    // and the size are both at most kPtrArrayMaxSize here.
    if (index > kPtrArrayMaxSize || count > kPtrArrayMaxSize - std::max(index, GetSize())) return;
    if (index > GetSize()) SetSize(index);
    Reserve(m_items.size() + static_cast<size_t>(count));
    m_items.insert(m_items.begin() + index, static_cast<size_t>(count), element);
}

void CPtrArray::RemoveAt(int index, int count)
{
    if (!InRange(index) || count <= 0) return;
    // index + count may not fit an int; what is left after index always does.
    const int removed = std::min(count, GetSize() - index);
    m_items.erase(m_items.begin() + index, m_items.begin() + index + removed);
}

void CPtrArray::RemoveAll()
{
    SetSize(0);
}

void CPtrArray::SetSize(int newSize, int growBy)
{
    if (newSize < 0 || newSize > kPtrArrayMaxSize) return;
    if (growBy >= 0) m_growBy = growBy;
    if (newSize == 0) {
        std::vector<void*>().swap(m_items);  // size 0 releases the storage
        return;
    }
    Reserve(static_cast<size_t>(newSize));
    m_items.resize(static_cast<size_t>(newSize), nullptr);
}
