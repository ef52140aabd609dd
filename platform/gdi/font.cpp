#include "platform/gdi/font.h"

#include <cstring>

#include "platform/gdi/font_model.h"
#include "platform/text/gbk.h"

void SetFaceName(LOGFONT& logFont, LPCSTR faceName)
{
    std::memset(logFont.lfFaceName, 0, sizeof logFont.lfFaceName);
    if (!faceName) return;
    CopyGbkText(faceName, logFont.lfFaceName, LF_FACESIZE);
}

BOOL CFont::CreatePointFont(int pointSizeTenths, LPCSTR faceName, CDC*)
{
    LOGFONT lf;
    lf.lfHeight = -gdi::PointTenthsToPixels(pointSizeTenths);
    lf.lfWeight = FW_NORMAL;
    lf.lfCharSet = DEFAULT_CHARSET;
    SetFaceName(lf, faceName);
    return CreateFontIndirect(&lf);
}

BOOL CFont::CreateFontIndirect(const LOGFONT* logFont)
{
    if (m_hObject || !logFont) return FALSE;
    return Attach(gdi::AddObject(gdi::MakeFontData(*logFont)));
}

BOOL CFont::CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic, BYTE underline,
                       BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision, BYTE quality,
                       BYTE pitchAndFamily, LPCSTR faceName)
{
    LOGFONT lf;
    lf.lfHeight = height;
    lf.lfWidth = width;
    lf.lfEscapement = escapement;
    lf.lfOrientation = orientation;
    lf.lfWeight = weight;
    lf.lfItalic = italic;
    lf.lfUnderline = underline;
    lf.lfStrikeOut = strikeOut;
    lf.lfCharSet = charSet;
    lf.lfOutPrecision = outPrecision;
    lf.lfClipPrecision = clipPrecision;
    lf.lfQuality = quality;
    lf.lfPitchAndFamily = pitchAndFamily;
    SetFaceName(lf, faceName);
    return CreateFontIndirect(&lf);
}

int CFont::GetLogFont(LOGFONT* logFont) const
{
    const auto* font = gdi::Find<gdi::FontData>(m_hObject);
    if (!font || !logFont) return 0;
    *logFont = font->logFont;
    return static_cast<int>(sizeof(LOGFONT));
}

CFont* CFont::FromHandle(HFONT handle)
{
    return gdi::Find<gdi::FontData>(handle) ? static_cast<CFont*>(gdi::WrapperFor(handle)) : nullptr;
}
