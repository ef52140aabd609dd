// Base of the GDI object wrappers. An object owns its handle: the destructor
// and DeleteObject free it. FromHandle gives a wrapper owned by the platform
// for a handle owned elsewhere; do not delete that pointer, and do not keep it
// past the life of the object.
#pragma once

#include "platform/gdi/gdi_types.h"

class AFX_EXT_CLASS CGdiObject {
public:
    CGdiObject() = default;
    virtual ~CGdiObject();
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    operator HGDIOBJ() const { return m_hObject; }

    // Takes ownership of a handle; fails if this object already holds one.
    BOOL Attach(HGDIOBJ handle);
    // Gives up ownership without deleting.
    HGDIOBJ Detach();
    // Frees the object; FALSE if none is held. Stock objects stay alive.
    BOOL DeleteObject();
    BOOL CreateStockObject(int index);

    static CGdiObject* FromHandle(HGDIOBJ handle);

    HGDIOBJ m_hObject = nullptr;
};

// The platform's free functions for handles.
AFX_API HGDIOBJ GetStockObject(int index);  // null for an unknown index
AFX_API BOOL DeleteObject(HGDIOBJ handle);
