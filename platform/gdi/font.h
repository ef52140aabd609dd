// Fonts. Only the pixel height matters for layout (see font_model.h); the
// face name is kept for GetLogFont. Glyphs come from the bitmap CJK fonts of
// the system when present, else each character is a hollow box.
#pragma once

#include "platform/gdi/gdi_object.h"

class CDC;

class AFX_EXT_CLASS CFont : public CGdiObject {
public:
    // Size in tenths of a point at 96 dpi (90 is 9 pt, 12 px high). The DC
    // is accepted for the familiar call form and not needed.
    BOOL CreatePointFont(int pointSizeTenths, LPCSTR faceName, CDC* dc = nullptr);
    BOOL CreateFontIndirect(const LOGFONT* logFont);
    BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic, BYTE underline,
                    BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision, BYTE quality,
                    BYTE pitchAndFamily, LPCSTR faceName);
    // The font's description; 0 for an empty wrapper, else sizeof(LOGFONT).
    int GetLogFont(LOGFONT* logFont) const;

    static CFont* FromHandle(HFONT handle);
};

// Copies a face name into a LOGFONT, truncated at a character boundary.
AFX_API void SetFaceName(LOGFONT& logFont, LPCSTR faceName);
