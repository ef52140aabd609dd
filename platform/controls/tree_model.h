// The tree control's items: storage, handles, links and the list of visible
// rows. Items live in a vector of slots; a handle encodes the slot, the slot's
// generation and a tag of the owning model, so a handle of a deleted item or
// of another tree finds nothing. Siblings are doubly linked and each parent
// knows its first and last child, so inserting at either end, deleting and
// stepping between siblings never walk the tree.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/win_types.h"

namespace tree {

using Slot = std::uint32_t;
constexpr Slot kNone = 0xFFFFFFFFu;
// The hidden parent of the top-level items; never handed out.
constexpr Slot kRootSlot = 0;

struct Item {
    std::string text;  // GBK
    int image = 0;
    int selectedImage = 0;
    LPARAM data = 0;
    UINT state = 0;
    bool forceButton = false;  // cChildren 1: shows a button before children exist
    bool alive = false;
    std::uint32_t generation = 1;
    int depth = 0;  // 0 for top-level items; fixed, items never move
    Slot parent = kNone;
    Slot firstChild = kNone;
    Slot lastChild = kNone;
    Slot prev = kNone;
    Slot next = kNone;
    int row = -1;  // index among the visible rows while the row list is current
};

enum class Where { First, Last, After };

// The items in chunks of fixed size: growing the tree never moves the items
// already there, and a chunk is small enough to come from the heap rather
// than from fresh pages.
class ItemStore {
public:
    size_t size() const { return m_size; }
    Item& operator[](Slot slot) { return m_chunks[slot >> kChunkBits][slot & kChunkMask]; }
    const Item& operator[](Slot slot) const { return m_chunks[slot >> kChunkBits][slot & kChunkMask]; }
    // Adds a default item at the end.
    void emplace_back()
    {
        if (m_size == m_chunks.size() << kChunkBits) m_chunks.push_back(std::make_unique<Item[]>(size_t(1) << kChunkBits));
        ++m_size;
    }
    // Frees every item.
    void clear()
    {
        m_chunks.clear();
        m_chunks.shrink_to_fit();
        m_size = 0;
    }

private:
    static constexpr int kChunkBits = 8;
    static constexpr Slot kChunkMask = (Slot(1) << kChunkBits) - 1;
    std::vector<std::unique_ptr<Item[]>> m_chunks;
    size_t m_size = 0;
};

class TreeModel {
public:
    TreeModel();

    HTREEITEM HandleOf(Slot slot) const;
    // The slot of a live item of this model; kNone for anything else
    // (null, TVI_* values, deleted items, other trees' items).
    Slot Find(HTREEITEM handle) const;
    Item& At(Slot slot) { return m_items[slot]; }
    const Item& At(Slot slot) const { return m_items[slot]; }
    // kRootSlot stands for "no parent" among these.
    bool IsItem(Slot slot) const { return slot != kNone && slot != kRootSlot; }

    // A new item under parent (kRootSlot for top level); `after` is a child
    // of parent when where is After. kNone when the model is full.
    Slot Insert(Slot parent, Where where, Slot after);
    // Removes the item and its subtree; returns how many items went.
    size_t Delete(Slot slot);
    // Forgets every item; old handles stop working.
    void Clear();
    size_t Count() const { return m_count; }

    bool HasChildren(Slot slot) const { return At(slot).firstChild != kNone || At(slot).forceButton; }
    bool IsExpanded(Slot slot) const;
    // Whether ancestor is a proper ancestor of slot.
    bool IsAncestor(Slot ancestor, Slot slot) const;
    // All ancestors expanded (top-level items always are).
    bool IsVisible(Slot slot) const;

    // Structural walks in display order, without the row list.
    Slot NextVisible(Slot slot) const;      // slot must be visible
    Slot PrevVisible(Slot slot) const;      // slot must be visible
    Slot NextAfterSubtree(Slot slot) const;  // the next item in display order outside slot's subtree
    Slot LastVisible() const;

    // The visible rows in display order, rebuilt only after structure or
    // expansion changed.
    const std::vector<Slot>& Rows();
    bool RowsCurrent() const { return !m_rowsDirty; }
    void RowsChanged() { m_rowsDirty = true; }
    // Counts the rebuilds of the row list, so that what is derived from the
    // rows knows when to derive it again.
    std::uint64_t RowsGeneration() const { return m_rowsGeneration; }
    // Row of a visible item; -1 when hidden. Rebuilds the rows if needed.
    int RowOf(Slot slot);

private:
    Slot Allocate();
    void Free(Slot slot);
    void Unlink(Slot slot);

    ItemStore m_items;
    std::vector<Slot> m_free;
    std::vector<Slot> m_rows;
    bool m_rowsDirty = true;
    std::uint64_t m_rowsGeneration = 0;
    size_t m_count = 0;
    std::uint64_t m_tag = 0;
};

}  // namespace tree
