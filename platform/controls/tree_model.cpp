#include "platform/controls/tree_model.h"

#include "platform/controls/tree_ctrl.h"

namespace tree {
namespace {

// Handle layout: slot in the low 24 bits, the slot's generation in the next
// 20, the model's tag in the 19 above; the top bit stays clear so a handle
// never looks like one of the negative TVI_* values.
constexpr int kSlotBits = 24;
constexpr int kGenerationBits = 20;
constexpr int kTagBits = 19;
constexpr std::uint64_t kSlotMask = (std::uint64_t(1) << kSlotBits) - 1;
constexpr std::uint64_t kGenerationMask = (std::uint64_t(1) << kGenerationBits) - 1;
constexpr std::uint64_t kTagMask = (std::uint64_t(1) << kTagBits) - 1;
constexpr Slot kMaxSlots = static_cast<Slot>(kSlotMask);

// Every model (and every Clear) takes a new tag, so handles of another tree
// or of items cleared away do not resolve even when slot and generation match.
std::uint64_t NextTag()
{
    static std::uint64_t counter = 0;
    counter = counter % kTagMask + 1;
    return counter;
}

}  // namespace

TreeModel::TreeModel()
{
    Clear();
}

void TreeModel::Clear()
{
    m_items.clear();
    m_free.clear();
    m_free.shrink_to_fit();
    m_rows.clear();
    m_rows.shrink_to_fit();
    m_items.emplace_back();
    m_items[kRootSlot].alive = true;
    m_items[kRootSlot].depth = -1;
    m_items[kRootSlot].state = TVIS_EXPANDED;  // the hidden root always shows its children
    m_rowsDirty = true;
    m_count = 0;
    m_tag = NextTag();
}

HTREEITEM TreeModel::HandleOf(Slot slot) const
{
    if (!IsItem(slot)) return nullptr;
    const std::uint64_t value = (m_tag << (kSlotBits + kGenerationBits)) |
                                ((m_items[slot].generation & kGenerationMask) << kSlotBits) | slot;
    return reinterpret_cast<HTREEITEM>(static_cast<std::uintptr_t>(value));
}

Slot TreeModel::Find(HTREEITEM handle) const
{
    const auto value = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(handle));
    if (value >> (kSlotBits + kGenerationBits) != m_tag) return kNone;
    const auto slot = static_cast<Slot>(value & kSlotMask);
    if (slot == kRootSlot || slot >= m_items.size()) return kNone;
    const Item& item = m_items[slot];
    if (!item.alive || (item.generation & kGenerationMask) != ((value >> kSlotBits) & kGenerationMask)) return kNone;
    return slot;
}

Slot TreeModel::Allocate()
{
    Slot slot;
    if (!m_free.empty()) {
        slot = m_free.back();
        m_free.pop_back();
    } else {
        if (m_items.size() >= kMaxSlots) return kNone;
        slot = static_cast<Slot>(m_items.size());
        m_items.emplace_back();
    }
    Item& item = m_items[slot];
    const std::uint32_t generation = item.generation;
    item = Item{};
    item.generation = generation;
    item.alive = true;
    return slot;
}

void TreeModel::Free(Slot slot)
{
    Item& item = m_items[slot];
    const std::uint32_t generation = (item.generation + 1) & static_cast<std::uint32_t>(kGenerationMask);
    item = Item{};
    item.generation = generation ? generation : 1;
    m_free.push_back(slot);
}

Slot TreeModel::Insert(Slot parent, Where where, Slot after)
{
    const Slot slot = Allocate();
    if (slot == kNone) return kNone;
    Item& item = m_items[slot];
    Item& owner = m_items[parent];
    item.parent = parent;
    item.depth = owner.depth + 1;
    if (where == Where::First || (where == Where::After && after == kNone)) {
        item.next = owner.firstChild;
        if (owner.firstChild != kNone) m_items[owner.firstChild].prev = slot;
        else owner.lastChild = slot;
        owner.firstChild = slot;
    } else {
        const Slot before = where == Where::Last ? owner.lastChild : after;
        item.prev = before;
        if (before == kNone) {
            owner.firstChild = owner.lastChild = slot;
        } else {
            item.next = m_items[before].next;
            m_items[before].next = slot;
            if (item.next != kNone) m_items[item.next].prev = slot;
            else owner.lastChild = slot;
        }
    }
    ++m_count;
    // Filling a collapsed folder leaves the rows as they are.
    if (parent == kRootSlot || (IsExpanded(parent) && IsVisible(parent))) m_rowsDirty = true;
    return slot;
}

void TreeModel::Unlink(Slot slot)
{
    Item& item = m_items[slot];
    Item& owner = m_items[item.parent];
    if (item.prev != kNone) m_items[item.prev].next = item.next;
    else owner.firstChild = item.next;
    if (item.next != kNone) m_items[item.next].prev = item.prev;
    else owner.lastChild = item.prev;
    item.prev = item.next = kNone;
}

size_t TreeModel::Delete(Slot slot)
{
    if (!IsItem(slot)) return 0;
    if (IsVisible(slot)) m_rowsDirty = true;
    Unlink(slot);
    // Free the subtree children first, without recursion: always descend to
    // the first child, free a leaf, go on with its next sibling or, when it
    // was the last, with its parent (now a leaf).
    size_t removed = 0;
    Slot current = slot;
    while (true) {
        while (m_items[current].firstChild != kNone) current = m_items[current].firstChild;
        if (current == slot) break;
        // Only the parent's first-child link is followed again; the whole
        // subtree goes, so the other links need no repair.
        const Slot parent = m_items[current].parent;
        const Slot next = m_items[current].next;
        m_items[parent].firstChild = next;
        Free(current);
        ++removed;
        current = next != kNone ? next : parent;
    }
    Free(slot);
    ++removed;
    m_count -= removed;
    return removed;
}

bool TreeModel::IsExpanded(Slot slot) const
{
    return (m_items[slot].state & TVIS_EXPANDED) != 0;
}

bool TreeModel::IsAncestor(Slot ancestor, Slot slot) const
{
    for (Slot s = m_items[slot].parent; s != kNone; s = m_items[s].parent) {
        if (s == ancestor) return true;
    }
    return false;
}

bool TreeModel::IsVisible(Slot slot) const
{
    for (Slot s = m_items[slot].parent; s != kRootSlot && s != kNone; s = m_items[s].parent) {
        if (!IsExpanded(s)) return false;
    }
    return true;
}

Slot TreeModel::NextAfterSubtree(Slot slot) const
{
    for (Slot s = slot; IsItem(s); s = m_items[s].parent) {
        if (m_items[s].next != kNone) return m_items[s].next;
    }
    return kNone;
}

Slot TreeModel::NextVisible(Slot slot) const
{
    const Item& item = m_items[slot];
    if (item.firstChild != kNone && IsExpanded(slot)) return item.firstChild;
    return NextAfterSubtree(slot);
}

Slot TreeModel::PrevVisible(Slot slot) const
{
    const Item& item = m_items[slot];
    if (item.prev == kNone) return IsItem(item.parent) ? item.parent : kNone;
    Slot s = item.prev;
    while (m_items[s].lastChild != kNone && IsExpanded(s)) s = m_items[s].lastChild;
    return s;
}

Slot TreeModel::LastVisible() const
{
    Slot s = m_items[kRootSlot].lastChild;
    if (s == kNone) return kNone;
    while (m_items[s].lastChild != kNone && IsExpanded(s)) s = m_items[s].lastChild;
    return s;
}

const std::vector<Slot>& TreeModel::Rows()
{
    if (!m_rowsDirty) return m_rows;
    // Slots listed before may since have been freed or reused; clearing their
    // row is harmless either way.
    for (Slot s : m_rows) {
        if (s < m_items.size()) m_items[s].row = -1;
    }
    m_rows.clear();
    for (Slot s = m_items[kRootSlot].firstChild; s != kNone; s = NextVisible(s)) {
        m_items[s].row = static_cast<int>(m_rows.size());
        m_rows.push_back(s);
    }
    m_rowsDirty = false;
    ++m_rowsGeneration;
    return m_rows;
}

int TreeModel::RowOf(Slot slot)
{
    Rows();
    return IsItem(slot) ? m_items[slot].row : -1;
}

}  // namespace tree
