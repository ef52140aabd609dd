// COleDataObject: a view of data offered by a drag or held elsewhere (a data
// source of this application, or data from another one). It never owns the
// data; what it hands out are copies.
#pragma once

#include "platform/ole/format_blocks.h"
#include "platform/ole/ole_types.h"

class AFX_EXT_CLASS COleDataObject {
public:
    COleDataObject() = default;
    ~COleDataObject() { Release(); }
    COleDataObject(const COleDataObject&) = delete;
    COleDataObject& operator=(const COleDataObject&) = delete;

    // Attaches to a data set, letting go of any before; the set must outlive
    // the attachment.
    void Attach(const FormatBlocks* pData);
    // Lets go of the data set; returns it.
    const FormatBlocks* Detach();
    void Release() { Detach(); }
    bool IsAttached() const { return m_data != nullptr; }

    BOOL IsDataAvailable(CLIPFORMAT cfFormat) const;
    // A copy of the format's block, which the caller frees with GlobalFree;
    // null when not attached or the format is not there.
    HGLOBAL GetGlobalData(CLIPFORMAT cfFormat) const;

private:
    const FormatBlocks* m_data = nullptr;
};
