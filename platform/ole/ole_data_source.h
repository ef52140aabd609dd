// COleDataSource: the data an application offers to a drag, as global memory
// blocks by format, and the call that drags it.
#pragma once

#include "platform/core/cmd_target.h"
#include "platform/ole/format_blocks.h"
#include "platform/ole/ole_types.h"

class AFX_EXT_CLASS COleDataSource : public CCmdTarget {
    DECLARE_DYNAMIC(COleDataSource)

    COleDataSource() = default;
    ~COleDataSource() override = default;
    COleDataSource(const COleDataSource&) = delete;
    COleDataSource& operator=(const COleDataSource&) = delete;

    // Takes the block over: the source frees it when it is emptied, destroyed
    // or given another block for the format. The caller must not free it
    // (GlobalFree refuses to). A null block, format 0 or a block already
    // taken over elsewhere is refused and stays the caller's.
    void CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal);
    void Empty();

    // Drags the data until the mouse button is released over a window whose
    // drop target accepts it (the effect it chose), or the drag is cancelled
    // (DROPEFFECT_NONE). lpRectStartDrag, in screen coordinates, holds the
    // drag back until the mouse leaves it; a release inside it ends with
    // DROPEFFECT_NONE. Null starts at once. platform/input/input.h tells how
    // a test feeds the drag its events.
    DROPEFFECT DoDragDrop(DWORD dwEffects = DROPEFFECT_COPY | DROPEFFECT_MOVE, LPCRECT lpRectStartDrag = nullptr);

    // What a COleDataObject attaches to.
    const FormatBlocks& Blocks() const { return m_blocks; }

private:
    FormatBlocks m_blocks;
};
