// The font model. Text layout depends only on a font's pixel height h, never
// on the fonts installed: a single-byte character advances h/2 pixels and a
// GBK double-byte character (lead byte 0x81-0xFE and a trail byte) advances h.
// The descent is h/6 rounded ((h + 3) / 6), the ascent the rest; there is no
// leading. At h = 12 that gives ascent 10, descent 2; at 16, 13 and 3.
#pragma once

#include <string_view>

#include "platform/gdi/gdi_registry.h"

namespace gdi {

constexpr int kDefaultFontHeight = 12;  // for lfHeight 0
constexpr int kMaxFontHeight = 1024;

struct FontMetrics {
    int height = 16;
    int ascent = 13;
    int descent = 3;
    bool bold = false;
    bool underline = false;
    bool strikeOut = false;

    int Advance(int charBytes) const { return charBytes == 2 ? height : height / 2; }
};

// h: -lfHeight if negative, else lfHeight; 0 gives the default; capped.
AFX_API int PixelHeightOf(const LOGFONT& logFont);
// Point size in tenths at 96 dpi, rounded: 90 gives 12.
AFX_API int PointTenthsToPixels(int tenths);
AFX_API FontData MakeFontData(const LOGFONT& logFont);
AFX_API FontMetrics MetricsOf(const FontData& font);
// The font a handle names, or the stock font when it names none.
AFX_API HGDIOBJ FontOr(HGDIOBJ font, int stockFont);
// Metrics of the font a handle names; the default metrics when it names none.
AFX_API FontMetrics MetricsOfHandle(HGDIOBJ font);
// Width of GBK text by the model (no line breaks: '\n' is a character).
AFX_API int TextWidth(const FontMetrics& metrics, std::string_view text);
AFX_API void FillTextMetric(const FontData& font, TEXTMETRIC& tm);

// The bytes of a text argument: length -1 means zero-terminated; a null
// text or any other negative length is empty.
AFX_API std::string_view TextOf(const char* text, int length);

}  // namespace gdi
