// Pens: PS_SOLID, PS_DOT (every other pixel; the other dash styles draw the
// same) and PS_NULL. Widths above 1 draw solid, as the platform's cosmetic
// pens do.
#pragma once

#include "platform/gdi/gdi_object.h"

class AFX_EXT_CLASS CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }

    BOOL CreatePen(int style, int width, COLORREF color);
    // Style, width and colour of the pen; FALSE for an empty wrapper.
    BOOL GetPenInfo(int* style, int* width, COLORREF* color) const;

    static CPen* FromHandle(HPEN handle);
};
