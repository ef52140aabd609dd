// Dragging rows out of the watch and dropping rows or text onto it. A row
// dragged within the grid is moved, or copied with Ctrl; text from anywhere
// else becomes a new expression before the row under the cursor.
#include <cstring>
#include <string>

#include "platform/core/input_state.h"
#include "platform/ole/clipboard.h"
#include "platform/ole/global_text.h"
#include "platform/ole/ole_data_source.h"
#include "watch/watch_grid_ctrl.h"

namespace {

// Moveable, shareable and zero-filled, grown in steps of a page.
constexpr UINT kDragBlockFlags = GMEM_MOVEABLE | GMEM_SHARE | GMEM_ZEROINIT;
static_assert(kDragBlockFlags == 0x2042);
constexpr std::size_t kDragBlockStep = 4096;
constexpr DWORD kDragEffects = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;

}  // namespace

void CWatchGridCtrl::OnBeginDrag(NMHDR* pNMHDR, LRESULT* pResult)
{
    *pResult = 0;
    const int item = reinterpret_cast<NMLISTVIEW*>(pNMHDR)->iItem;
    if (!IsEditable() || item == -1 || item == GetItemCount() - 1) return;
    const CGridRow* row = GetRowAt(item);
    // Only expressions travel: members and elements belong to their parent.
    if (!row || row->Level() != 0) return;

    const std::string text(row->text);
    // Room for the terminating zero even when the text fills whole steps.
    const std::size_t bytes = (text.size() / kDragBlockStep + 1) * kDragBlockStep;
    HGLOBAL block = GlobalAlloc(kDragBlockFlags, bytes);
    if (!block) return;
    if (void* data = GlobalLock(block)) {
        std::memcpy(data, text.data(), text.size());
        GlobalUnlock(block);
    }
    m_dragging = TRUE;
    m_dragSourceLine = item;
    COleDataSource source;
    source.CacheGlobalData(CF_TEXT, block);
    source.DoDragDrop(kDragEffects);
    // Wherever the drop went, or if it was cancelled, the drag is over.
    m_dragging = FALSE;
}

DROPEFFECT CWatchGridCtrl::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint)
{
    SetFocus();
    return DROPEFFECT_COPY;
}

DROPEFFECT CWatchGridCtrl::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint)
{
    if (!m_dragging) return DROPEFFECT_COPY;
    RecordCtrlHeld();
    return IsCtrlHeld() ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
}

DROPEFFECT CWatchGridCtrl::OnDropEx(CWnd*, COleDataObject* pDataObject, DROPEFFECT dropDefault, DROPEFFECT,
                                    CPoint)
{
    CPoint cursor;
    if (!GetCursorPos(&cursor)) return DROPEFFECT_NONE;
    ScreenToClient(&cursor);
    m_dropLine = HitTest(cursor);
    if (m_dragging) {
        if (dropDefault == DROPEFFECT_COPY) {
            CopyRow(m_dragSourceLine, m_dropLine);
        } else if (dropDefault == DROPEFFECT_MOVE) {
            MoveRow(m_dragSourceLine, m_dropLine);
        }
        m_dragging = FALSE;
        return dropDefault;
    }
    if (pDataObject && pDataObject->IsDataAvailable(CF_TEXT)) {
        HGLOBAL block = pDataObject->GetGlobalData(CF_TEXT);
        std::string text;
        if (block && GlobalText::Read(block, &text)) AddExpression(text.c_str(), m_dropLine);
        if (block) GlobalFree(block);
    }
    return dropDefault;
}

void CWatchGridCtrl::OnDragLeave(CWnd*) {}
