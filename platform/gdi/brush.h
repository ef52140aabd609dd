// Solid brushes (and the hollow stock brush, which paints nothing).
#pragma once

#include "platform/gdi/gdi_object.h"

class AFX_EXT_CLASS CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }

    BOOL CreateSolidBrush(COLORREF color);
    BOOL CreateSysColorBrush(int index);
    // The brush colour; FALSE for an empty wrapper or a hollow brush.
    BOOL GetColor(COLORREF* color) const;

    static CBrush* FromHandle(HBRUSH handle);
};
