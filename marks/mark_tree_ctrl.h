// The flat tree view shared by the bookmark and breakpoint views: one
// top-level node per mark, in list order, kept in line with the host's list
// by reusing nodes by position. The two views differ in their list, menu,
// commands and image rule, which the Traits supply.
//
// A node's item data packs the mark's place: low 16 bits the file index (the
// group's position in the list), high 16 bits the entry index in the group.
#pragma once

#include <cstdint>
#include <cstring>

#include "host/host_link.h"
#include "host/resource_ids.h"
#include "host/show_menu.h"
#include "host/view_keys.h"
#include "marks/mark_lists.h"
#include "marks/mark_text.h"
#include "platform/controls/tree_ctrl.h"
#include "platform/core/input_state.h"
#include "platform/gdi/image_list.h"
#include "platform/text/field_text.h"
#include "siblings/orv_project_misc.h"

inline DWORD EncodeMarkData(int fileIndex, int entryIndex)
{
    return (static_cast<DWORD>(entryIndex) << 16) | static_cast<DWORD>(fileIndex & 0xFFFF);
}
inline int MarkFileIndex(DWORD data) { return static_cast<int>(data & 0xFFFF); }
inline int MarkEntryIndex(DWORD data) { return static_cast<int>(data >> 16); }

template <class Traits>
class CMarkTreeCtrl : public CTreeCtrl {
public:
    using List = typename Traits::List;
    using Group = typename List::GroupType;
    using Item = typename Group::ItemType;

    CMarkTreeCtrl()
    {
        m_imageList.Create(IDB_TREE_IMAGES, kTreeImageWidth, kTreeImageGrowth, RGB(255, 255, 255));
        std::memset(m_baseDirectory, 0, sizeof m_baseDirectory);
    }

    // Creates the control as a visible child of the pane; the pane lays it out
    // on its next size change.
    virtual BOOL Create(CWnd* pParentWnd)
    {
        if (!CTreeCtrl::Create(WS_VISIBLE | Traits::kTreeStyles, CRect(0, 0, 100, 100), pParentWnd, 0)) return FALSE;
        SetImageList(&m_imageList, TVSIL_NORMAL);
        return TRUE;
    }

    void ShowMenu(CPoint point) { ShowViewMenu(this, Traits::kMenuId, point); }

    // Esc stops and F5 refreshes, except while a menu loop runs.
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (TakeStopOrRefreshKey(pMsg, m_menuLoop)) return TRUE;
        return CTreeCtrl::PreTranslateMessage(pMsg);
    }

    // What the view shows; for tests and the host's diagnostics.
    std::int32_t GetHoldFlag() const { return m_hold; }
    const char* GetBaseDirectory() const { return m_baseDirectory; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        TrackMenuLoop(message, m_menuLoop);
        switch (message) {
        case UWM_DOCK_FONT_CHANGED:
            if (Traits::kSwallowsFontChange) return 0;
            break;
        case UWM_REFRESH_VIEW:
            // A nonzero request holds the view until a zero one releases it.
            if (m_hold && wParam) return 0;
            m_hold = wParam == 0 ? 0 : (static_cast<std::int32_t>(wParam) ? static_cast<std::int32_t>(wParam) : 1);
            UpdateView();
            return 0;
        default:
            break;
        }
        return CTreeCtrl::WindowProc(message, wParam, lParam);
    }

    // The host's list as it is now, or null. The view keeps no pointer to it:
    // the host may free a list without a refresh the view carries out.
    static List* HostList()
    {
        ProjectContext* context = HostLink::QueryProjectContext();
        return context ? Traits::ListOf(*context) : nullptr;
    }

    // Brings the nodes in line with the host's list.
    void UpdateView()
    {
        List* list = HostList();
        if (!list) return;
        HostLink::QueryProjectDirectory(m_baseDirectory);

        SetRedraw(FALSE);
        const int groups = std::min(list->GetSize(), kMaxMarkGroups);
        HTREEITEM node = GetRootItem();
        for (int f = 0; f < groups; ++f) node = RefreshBranch(list->GroupAt(f), node, f);
        while (node) {
            const HTREEITEM next = GetNextSiblingItem(node);
            DeleteItem(node);
            node = next;
        }
        SetRedraw(TRUE);
    }

    // Walks the nodes in step with one group's marks: rewrites what differs,
    // appends what is missing. Returns the first node this group did not use,
    // also after a null group or a null mark (which ends the group), so that
    // the next group reuses it and no node of a freed mark is left behind.
    // Nodes are read in place and texts made in one buffer, so a node that is
    // already right costs no copy, no allocation and no message.
    HTREEITEM RefreshBranch(Group* group, HTREEITEM node, long fileIndex)
    {
        if (!group) return node;
        m_texts.BeginFile(group->file, m_baseDirectory);
        const int marks = std::min(group->GetSize(), kMaxMarksPerGroup);
        TreeItemPeek peek;
        for (int e = 0; e < marks; ++e) {
            Item* item = group->ItemAt(e);
            if (!item) return node;
            // The host may fill the whole field without a terminator.
            const std::string& text = m_texts.Text(item->line, FieldText(item->text));
            const DWORD data = EncodeMarkData(static_cast<int>(fileIndex), e);
            const int image = Traits::ImageOf(*item, m_hold);
            if (!node || !PeekItem(node, peek)) {
                // Nodes are added at the end, so nothing follows the new one.
                TreeInsertItem(nullptr, text.c_str(), static_cast<long>(data), image);
                node = nullptr;
                continue;
            }
            if (peek.text != text) SetItemText(node, text.c_str());
            if (static_cast<DWORD>(peek.data) != data) SetItemData(node, data);
            if constexpr (Traits::kRefreshesImages) {
                if (peek.image != image) SetItemImage(node, image, image);
            }
            node = peek.nextSibling;
        }
        return node;
    }

    HTREEITEM TreeInsertItem(HTREEITEM parent, const char* text, long data, int image)
    {
        const HTREEITEM node = InsertItem(text, image, image, parent ? parent : TVI_ROOT, TVI_LAST);
        SetItemData(node, static_cast<DWORD>(data));
        return node;
    }

    // Selects the node under the mouse cursor, or nothing.
    void RclickSelected()
    {
        POINT point;
        if (!GetCursorPos(&point)) return;
        ScreenToClient(&point);
        UINT flags = 0;
        const HTREEITEM hit = HitTest(CPoint(point), &flags);
        Select(hit && (flags & (TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON)) ? hit : nullptr, TVGN_CARET);
    }

    // A single click goes to the mark.
    void OnLButtonDown(UINT, CPoint)
    {
        Default();
        RclickSelected();
        GotoSelected();
    }

    // The control's own right-button handling is not run; the context menu
    // that follows reaches the pane.
    void OnRButtonDown(UINT, CPoint)
    {
        SetFocus();
        RclickSelected();
    }

    // Sends the selected mark's file and line to the host, looking the mark up
    // in the host's current list. A node whose indices are not in that list,
    // or a host with no list, sends nothing.
    void GotoSelected()
    {
        const HTREEITEM node = GetSelectedItem();
        if (!node) return;
        const auto data = static_cast<DWORD>(GetItemData(node));
        const List* list = HostList();
        const Group* group = list ? list->GroupAt(MarkFileIndex(data)) : nullptr;
        const Item* item = group ? group->ItemAt(MarkEntryIndex(data)) : nullptr;
        if (item) HostLink::GotoSource(group->file, item->line);
    }

    void EnableWhenSelected(CCmdUI* pCmdUI) { pCmdUI->Enable(GetSelectedItem() != nullptr); }

    CImageList m_imageList;
    std::int32_t m_hold = 0;
    char m_baseDirectory[kPathBytes];
    std::int32_t m_menuLoop = 0;
    CMarkTextMaker m_texts;
};
