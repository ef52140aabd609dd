#include "platform/gdi/font_model.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/gdi/gdi_object.h"
#include "platform/text/gbk.h"

namespace gdi {

int PixelHeightOf(const LOGFONT& logFont)
{
    const long long h = std::llabs(static_cast<long long>(logFont.lfHeight));
    if (h == 0) return kDefaultFontHeight;
    return static_cast<int>(std::min<long long>(h, kMaxFontHeight));
}

int PointTenthsToPixels(int tenths)
{
    const long long t = std::clamp(tenths, 0, 100000);
    const long long px = (t * 96 + 360) / 720;
    return static_cast<int>(std::clamp<long long>(px, 1, kMaxFontHeight));
}

FontData MakeFontData(const LOGFONT& logFont)
{
    FontData font;
    font.logFont = logFont;
    font.logFont.lfFaceName[LF_FACESIZE - 1] = '\0';
    font.pixelHeight = PixelHeightOf(logFont);
    return font;
}

FontMetrics MetricsOf(const FontData& font)
{
    FontMetrics m;
    m.height = std::clamp(font.pixelHeight, 1, kMaxFontHeight);
    m.descent = (m.height + 3) / 6;
    m.ascent = m.height - m.descent;
    m.bold = font.logFont.lfWeight >= FW_SEMIBOLD;
    m.underline = font.logFont.lfUnderline != 0;
    m.strikeOut = font.logFont.lfStrikeOut != 0;
    return m;
}

int TextWidth(const FontMetrics& metrics, std::string_view text)
{
    long long width = 0;
    for (size_t pos = 0; pos < text.size();) {
        const int bytes = GbkCharLength(text, pos);
        width += metrics.Advance(bytes);
        pos += static_cast<size_t>(bytes);
    }
    // Capped far beyond any surface so that callers can add to it safely.
    return static_cast<int>(std::min<long long>(width, 1 << 28));
}

void FillTextMetric(const FontData& font, TEXTMETRIC& tm)
{
    const FontMetrics m = MetricsOf(font);
    tm = TEXTMETRIC{};
    tm.tmHeight = m.height;
    tm.tmAscent = m.ascent;
    tm.tmDescent = m.descent;
    tm.tmAveCharWidth = m.height / 2;
    tm.tmMaxCharWidth = m.height;
    tm.tmWeight = font.logFont.lfWeight ? font.logFont.lfWeight : FW_NORMAL;
    tm.tmItalic = font.logFont.lfItalic;
    tm.tmUnderlined = font.logFont.lfUnderline;
    tm.tmStruckOut = font.logFont.lfStrikeOut;
    tm.tmPitchAndFamily = font.logFont.lfPitchAndFamily;
    tm.tmCharSet = font.logFont.lfCharSet;
}

std::string_view TextOf(const char* text, int length)
{
    if (!text || length < -1) return {};
    return length == -1 ? std::string_view(text) : std::string_view(text, static_cast<size_t>(length));
}

HGDIOBJ FontOr(HGDIOBJ font, int stockFont)
{
    return Find<FontData>(font) ? font : GetStockObject(stockFont);
}

FontMetrics MetricsOfHandle(HGDIOBJ font)
{
    const FontData* data = Find<FontData>(font);
    return data ? MetricsOf(*data) : FontMetrics();
}

}  // namespace gdi
