// Device contexts: everything drawn goes through a CDC into a Surface.
//
// A DC is one of:
//  - a window DC, made by the painting code with AttachToSurface(surface,
//    origin, clip): logical (0, 0) lies at `origin` in the surface (the
//    window's client corner) and nothing is drawn outside `clip` (surface
//    pixels) or the surface;
//  - a memory DC, made with CreateCompatibleDC: it starts with a 1x1
//    monochrome bitmap and draws into whichever CBitmap is selected.
// Coordinates passed to the drawing calls are logical: surface pixel =
// logical + origin + viewport origin. Right and bottom edges of rectangles
// are exclusive. Text of length -1 is zero-terminated. All text is GBK and is
// laid out by the font model of font_model.h.
//
// Objects selected into a DC are held by handle: deleting one while selected
// makes the DC fall back to its default (black pen, white brush, system font).
#pragma once

#include <string_view>
#include <vector>

#include "platform/gdi/bitmap.h"
#include "platform/gdi/brush.h"
#include "platform/gdi/font.h"
#include "platform/gdi/gdi_types.h"
#include "platform/gdi/pen.h"
#include "platform/text/cstring.h"

class Surface;
namespace gdi {
struct Target;
struct PenData;
struct BrushData;
struct FontData;
}

class AFX_EXT_CLASS CDC {
public:
    CDC();
    virtual ~CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    // --- Making and finding DCs -------------------------------------------
    // Makes this a window DC over `surface` (see above). The surface must
    // outlive the DC or a later DetachFromSurface/DeleteDC. State (objects,
    // colours, viewport, clipping) is reset.
    void AttachToSurface(Surface* surface, CPoint origin, const CRect& clip);
    // Makes this a memory DC; the other DC is not needed.
    BOOL CreateCompatibleDC(CDC* dc);
    // Drops the surface or memory bitmap; the DC draws nothing afterwards.
    BOOL DeleteDC();

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    // The DC behind a handle (as passed in WM_ERASEBKGND, DRAWITEMSTRUCT),
    // or null when that DC no longer exists.
    static CDC* FromHandle(HDC hdc);

    // The surface drawn into (a memory DC's selected bitmap), or null.
    Surface* GetSurface() const;
    // Where logical (0, 0) lies in the surface, viewport origin included.
    CPoint GetDeviceOffset() const;
    // LOGPIXELSX/Y 96, BITSPIXEL 32 (1 for a monochrome bitmap), PLANES 1,
    // HORZRES/VERTRES the surface size; 0 otherwise.
    int GetDeviceCaps(int index) const;

    // --- Objects and attributes --------------------------------------------
    // Each returns the previously selected object, or null on failure (a null
    // or deleted object; a bitmap outside a memory DC).
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CFont* SelectObject(CFont* font);
    CBitmap* SelectObject(CBitmap* bitmap);
    CGdiObject* SelectObject(CGdiObject* object);
    HGDIOBJ SelectObject(HGDIOBJ object);
    CGdiObject* SelectStockObject(int index);
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;

    COLORREF SetTextColor(COLORREF color);  // each setter returns the old value
    COLORREF GetTextColor() const { return m_state.textColor; }
    COLORREF SetBkColor(COLORREF color);
    COLORREF GetBkColor() const { return m_state.bkColor; }
    int SetBkMode(int mode);  // OPAQUE or TRANSPARENT; 0 for anything else
    int GetBkMode() const { return m_state.bkMode; }

    // --- State, clipping, viewport -------------------------------------------
    // Saves objects, colours, modes, clipping, viewport and pen position;
    // returns the save level (1 for the first).
    int SaveDC();
    // -1 restores the last save, n > 0 the state saved at level n (dropping
    // later ones). FALSE for a level that does not exist.
    BOOL RestoreDC(int savedDC);
    // Narrows clipping to a logical rectangle; NULLREGION if nothing is left,
    // else SIMPLEREGION.
    int IntersectClipRect(int left, int top, int right, int bottom);
    int IntersectClipRect(LPCRECT rect);
    // Removes the narrowing done by IntersectClipRect (a window DC stays
    // within its clip rectangle).
    void ResetClip();
    // The clipping box in logical coordinates.
    int GetClipBox(LPRECT rect) const;
    BOOL PtVisible(int x, int y) const;
    BOOL RectVisible(LPCRECT rect) const;
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    CPoint OffsetViewportOrg(int dx, int dy);
    CPoint GetViewportOrg() const { return m_state.viewportOrg; }

    // --- Rectangles and pixels ----------------------------------------------
    // Fills with a colour; also makes it the background colour, as the
    // framework's version does. A rectangle given inverted is normalised.
    void FillSolidRect(LPCRECT rect, COLORREF color);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
    void FillRect(LPCRECT rect, CBrush* brush);
    void FrameRect(LPCRECT rect, CBrush* brush);  // 1-pixel border
    // Outline with the pen (inside the rectangle), fill with the brush. With
    // PS_NULL the fill covers one pixel less to the right and bottom, as on
    // the platform.
    BOOL Rectangle(int left, int top, int right, int bottom);
    BOOL Rectangle(LPCRECT rect);
    // PATCOPY, PATINVERT, DSTINVERT, BLACKNESS, WHITENESS.
    BOOL PatBlt(int x, int y, int width, int height, DWORD rop);
    void InvertRect(LPCRECT rect);
    // Top and left edges in one colour, right and bottom in the other.
    void Draw3dRect(LPCRECT rect, COLORREF topLeft, COLORREF bottomRight);
    void Draw3dRect(int x, int y, int cx, int cy, COLORREF topLeft, COLORREF bottomRight);
    // Dotted XOR frame: drawing the same rectangle twice restores the pixels.
    void DrawFocusRect(LPCRECT rect);
    // Returns the colour set, or CLR_INVALID outside the clipping.
    COLORREF SetPixel(int x, int y, COLORREF color);
    COLORREF SetPixel(POINT point, COLORREF color) { return SetPixel(point.x, point.y, color); }
    // CLR_INVALID outside the clipping.
    COLORREF GetPixel(int x, int y) const;
    COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }

    // --- Lines ---------------------------------------------------------------
    CPoint MoveTo(int x, int y);  // returns the old position
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    // Draws from the current position up to, not including, the end point,
    // then moves there. PS_DOT draws every other pixel (the gaps get the
    // background colour in OPAQUE mode).
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    CPoint GetCurrentPosition() const { return m_state.position; }

    // --- Text ----------------------------------------------------------------
    // (x, y) is the top-left of the text cell. In OPAQUE mode the cell is
    // filled with the background colour first.
    BOOL TextOut(int x, int y, LPCSTR text, int length);
    BOOL TextOut(int x, int y, const CString& text);
    // ETO_OPAQUE fills rect with the background colour; ETO_CLIPPED keeps the
    // text inside rect. widths (optional) gives the advance of each byte; a
    // double-byte character advances by the sum of its two entries.
    BOOL ExtTextOut(int x, int y, UINT options, LPCRECT rect, LPCSTR text, int length, const int* widths = nullptr);
    BOOL ExtTextOut(int x, int y, UINT options, LPCRECT rect, const CString& text, const int* widths = nullptr);
    // Draws formatted text in rect (see the DT_ flags in gdi_types.h): lines
    // break on "\n", "\r\n" and "\r" unless DT_SINGLELINE; DT_VCENTER and
    // DT_BOTTOM apply to single lines only; '&' marks an underlined
    // character ("&&" is '&') unless DT_NOPREFIX; DT_END_ELLIPSIS shortens a
    // line that does not fit to end in "..."; DT_CALCRECT draws nothing and
    // sets rect's right and bottom to the text's natural size. Returns the
    // text height (with DT_VCENTER/DT_BOTTOM, the offset from rect's top to
    // the bottom of the text). Empty text is one empty line.
    int DrawText(LPCSTR text, int length, LPRECT rect, UINT format);
    int DrawText(const CString& text, LPRECT rect, UINT format);
    CSize GetTextExtent(LPCSTR text, int length) const;
    CSize GetTextExtent(const CString& text) const;
    CSize GetOutputTextExtent(LPCSTR text, int length) const { return GetTextExtent(text, length); }
    CSize GetOutputTextExtent(const CString& text) const { return GetTextExtent(text); }
    BOOL GetTextMetrics(TEXTMETRIC* metrics) const;

    // --- Blocks and icons ----------------------------------------------------
    // Copies a block from another DC (or this one; overlaps are safe) with
    // SRCCOPY, SRCAND, SRCPAINT, SRCINVERT, SRCERASE, NOTSRCCOPY,
    // NOTSRCERASE, MERGEPAINT, or any of PatBlt's operations (no source).
    // From colour to monochrome, pixels of the source's background colour
    // become white and all others black; from monochrome to colour, black
    // becomes this DC's text colour and white its background colour.
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int srcX, int srcY, DWORD rop);
    // At the icon's own size.
    BOOL DrawIcon(int x, int y, HICON icon);
    BOOL DrawIcon(POINT point, HICON icon) { return DrawIcon(point.x, point.y, icon); }
    // Scaled to cx x cy (0 means the icon's own size). DI_NORMAL draws
    // through the mask (or alpha), DI_MASK the mask alone, DI_IMAGE the
    // colours alone. step and flickerFreeBrush are ignored.
    BOOL DrawIconEx(int x, int y, HICON icon, int cx, int cy, UINT step, HBRUSH flickerFreeBrush, UINT flags);

    // Where and how this DC draws right now: for the platform's own drawing
    // code (image lists, controls).
    gdi::Target GetTarget() const;

    HDC m_hDC = nullptr;

private:
    struct State {
        HGDIOBJ pen = nullptr;
        HGDIOBJ brush = nullptr;
        HGDIOBJ font = nullptr;
        HGDIOBJ bitmap = nullptr;
        COLORREF textColor = RGB(0, 0, 0);
        COLORREF bkColor = RGB(255, 255, 255);
        int bkMode = OPAQUE;
        CPoint viewportOrg;
        CPoint position;
        bool clipped = false;  // whether userClip narrows drawing
        CRect userClip;        // surface pixels
    };

    void ResetState();
    // The selected objects, or the defaults when a selected one was deleted.
    const gdi::PenData& CurrentPen() const;
    const gdi::BrushData& CurrentBrush() const;
    const gdi::FontData& CurrentFont() const;
    void FillWithBrush(const gdi::Target& t, const CRect& device, const gdi::BrushData& brush);
    void DrawLine(const gdi::Target& t, const gdi::PenData& pen, CPoint from, CPoint to);
    // Text with its first cell at a surface position, the background filled
    // in OPAQUE mode; clip is in surface pixels. Returns the end x.
    int OutputText(const gdi::Target& t, CPoint device, std::string_view text, const CRect& clip, const int* widths);

    Surface* m_surface = nullptr;  // window DC
    bool m_memory = false;         // memory DC
    CPoint m_origin;
    CRect m_baseClip;
    State m_state;
    std::vector<State> m_saved;
};

// The platform's free function, for code that holds only an HDC.
AFX_API BOOL DrawIconEx(HDC hdc, int x, int y, HICON icon, int cx, int cy, UINT step, HBRUSH flickerFreeBrush,
                        UINT flags);
