// The per-file, line-ordered mark lists the host fills and the bookmark and
// breakpoint views read. A list owns its groups, a group owns its marks.
//
// Both families are built the same way, so each is an instance of one pair of
// templates; the classes the host uses keep their own names.
#pragma once

#include "marks/mark_items.h"
#include "platform/text/ptr_array.h"

// The marks of one source file, in ascending line order with unique lines.
template <class Item>
class CMarkItems : public CPtrArray {
public:
    using ItemType = Item;

    ~CMarkItems() override { ReleaseAllItems(); }

    CString file;  // the source file's full path, GBK

    Item* ItemAt(int index) const { return static_cast<Item*>(GetAt(index)); }

    // Sorted insertion. Scans from the end, so marks added in ascending order
    // cost one comparison each. A mark whose line is already present is not
    // taken: the group stays as it was and the caller still owns the mark.
    void OrdAdd(Item* item)
    {
        if (!item) return;
        int i = GetSize() - 1;
        for (; i >= 0; --i) {
            const Item* entry = ItemAt(i);
            if (!entry) continue;
            if (entry->line < item->line) break;
            if (entry->line == item->line) return;
        }
        InsertAt(i + 1, item);
    }

    // Frees every mark and empties the group.
    void ReleaseAllItems()
    {
        for (int i = 0; i < GetSize(); ++i) delete ItemAt(i);
        SetSize(0);
    }
};

// All groups of one kind, in the host's order; a group's position is its file index.
template <class Group>
class CMarkList : public CPtrArray {
public:
    using GroupType = Group;

    ~CMarkList() override { ReleaseAllItems(); }

    Group* GroupAt(int index) const { return static_cast<Group*>(GetAt(index)); }

    // Frees every group with its marks and empties the list.
    void ReleaseAllItems()
    {
        for (int i = 0; i < GetSize(); ++i) {
            if (Group* group = GroupAt(i)) {
                group->ReleaseAllItems();
                delete group;
            }
        }
        SetSize(0);
    }
};

class AFX_EXT_CLASS CBookMarkItems : public CMarkItems<CBookMarkItem> {
public:
    CBookMarkItems();
    ~CBookMarkItems() override;
};

class AFX_EXT_CLASS CBreakPointItems : public CMarkItems<CBreakPointItem> {
public:
    CBreakPointItems();
    ~CBreakPointItems() override;
};

class AFX_EXT_CLASS CBookMarkList : public CMarkList<CBookMarkItems> {
public:
    CBookMarkList();
    ~CBookMarkList() override;
};

class AFX_EXT_CLASS CBreakPointList : public CMarkList<CBreakPointItems> {
public:
    CBreakPointList();
    ~CBreakPointList() override;
};

// Limits of the views' node encoding: a file index and an entry index share
// one 32-bit item data value.
constexpr int kMaxMarkGroups = 65536;
constexpr int kMaxMarksPerGroup = 32768;
