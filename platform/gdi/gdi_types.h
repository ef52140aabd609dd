// Structures and constants of the drawing interface, with the classic
// platform's values so that code and traces read the same as there.
#pragma once

#include "platform/core/win_types.h"

constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
constexpr COLORREF CLR_NONE = 0xFFFFFFFF;
constexpr COLORREF CLR_DEFAULT = 0xFF000000;

// Pen styles.
constexpr int PS_SOLID = 0;
constexpr int PS_DASH = 1;        // drawn as PS_DOT
constexpr int PS_DOT = 2;
constexpr int PS_DASHDOT = 3;     // drawn as PS_DOT
constexpr int PS_DASHDOTDOT = 4;  // drawn as PS_DOT
constexpr int PS_NULL = 5;
constexpr int PS_INSIDEFRAME = 6;

// Background modes.
constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

// Stock objects.
constexpr int WHITE_BRUSH = 0;
constexpr int LTGRAY_BRUSH = 1;
constexpr int GRAY_BRUSH = 2;
constexpr int DKGRAY_BRUSH = 3;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int HOLLOW_BRUSH = NULL_BRUSH;
constexpr int WHITE_PEN = 6;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int OEM_FIXED_FONT = 10;
constexpr int ANSI_FIXED_FONT = 11;
constexpr int ANSI_VAR_FONT = 12;
constexpr int SYSTEM_FONT = 13;
constexpr int DEVICE_DEFAULT_FONT = 14;
constexpr int SYSTEM_FIXED_FONT = 16;
constexpr int DEFAULT_GUI_FONT = 17;

// Raster operations.
constexpr DWORD SRCCOPY = 0x00CC0020;
constexpr DWORD SRCPAINT = 0x00EE0086;
constexpr DWORD SRCAND = 0x008800C6;
constexpr DWORD SRCINVERT = 0x00660046;
constexpr DWORD SRCERASE = 0x00440328;
constexpr DWORD NOTSRCCOPY = 0x00330008;
constexpr DWORD NOTSRCERASE = 0x001100A6;
constexpr DWORD MERGEPAINT = 0x00BB0226;
constexpr DWORD PATCOPY = 0x00F00021;
constexpr DWORD PATINVERT = 0x005A0049;
constexpr DWORD DSTINVERT = 0x00550009;
constexpr DWORD BLACKNESS = 0x00000042;
constexpr DWORD WHITENESS = 0x00FF0062;

// Region kinds returned by the clipping calls.
constexpr int RGN_ERROR = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;

// DrawText.
constexpr UINT DT_TOP = 0x0000;
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_WORDBREAK = 0x0010;  // accepted, lines break on '\n' only
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_EXPANDTABS = 0x0040;  // accepted, a tab is one character
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800;
constexpr UINT DT_END_ELLIPSIS = 0x8000;

// ExtTextOut.
constexpr UINT ETO_OPAQUE = 0x0002;
constexpr UINT ETO_CLIPPED = 0x0004;

// DrawIconEx.
constexpr UINT DI_MASK = 0x0001;
constexpr UINT DI_IMAGE = 0x0002;
constexpr UINT DI_NORMAL = 0x0003;
constexpr UINT DI_COMPAT = 0x0004;
constexpr UINT DI_DEFAULTSIZE = 0x0008;

// GetDeviceCaps.
constexpr int HORZRES = 8;
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int PLANES = 14;
constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;

// Font weights and character sets.
constexpr LONG FW_DONTCARE = 0;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_SEMIBOLD = 600;
constexpr LONG FW_BOLD = 700;
constexpr BYTE ANSI_CHARSET = 0;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr BYTE GB2312_CHARSET = 134;

constexpr int LF_FACESIZE = 32;

// Face name is GBK bytes, zero-terminated.
struct LOGFONT {
    LONG lfHeight = 0;
    LONG lfWidth = 0;
    LONG lfEscapement = 0;
    LONG lfOrientation = 0;
    LONG lfWeight = 0;
    BYTE lfItalic = 0;
    BYTE lfUnderline = 0;
    BYTE lfStrikeOut = 0;
    BYTE lfCharSet = 0;
    BYTE lfOutPrecision = 0;
    BYTE lfClipPrecision = 0;
    BYTE lfQuality = 0;
    BYTE lfPitchAndFamily = 0;
    char lfFaceName[LF_FACESIZE] = {};
};
using LPLOGFONT = LOGFONT*;

struct TEXTMETRIC {
    LONG tmHeight = 0;
    LONG tmAscent = 0;
    LONG tmDescent = 0;
    LONG tmInternalLeading = 0;
    LONG tmExternalLeading = 0;
    LONG tmAveCharWidth = 0;
    LONG tmMaxCharWidth = 0;
    LONG tmWeight = 0;
    LONG tmOverhang = 0;
    LONG tmDigitizedAspectX = 96;
    LONG tmDigitizedAspectY = 96;
    BYTE tmFirstChar = 0x20;
    BYTE tmLastChar = 0xFE;
    BYTE tmDefaultChar = '?';
    BYTE tmBreakChar = ' ';
    BYTE tmItalic = 0;
    BYTE tmUnderlined = 0;
    BYTE tmStruckOut = 0;
    BYTE tmPitchAndFamily = 0;
    BYTE tmCharSet = 0;
};
using LPTEXTMETRIC = TEXTMETRIC*;

struct BITMAP {
    LONG bmType = 0;
    LONG bmWidth = 0;
    LONG bmHeight = 0;
    LONG bmWidthBytes = 0;
    WORD bmPlanes = 0;
    WORD bmBitsPixel = 0;
    LPVOID bmBits = nullptr;
};

// Byte layout of a device-independent bitmap header (little-endian, 40 bytes).
struct BITMAPINFOHEADER {
    DWORD biSize = 40;
    LONG biWidth = 0;
    LONG biHeight = 0;
    WORD biPlanes = 1;
    WORD biBitCount = 0;
    DWORD biCompression = 0;
    DWORD biSizeImage = 0;
    LONG biXPelsPerMeter = 0;
    LONG biYPelsPerMeter = 0;
    DWORD biClrUsed = 0;
    DWORD biClrImportant = 0;
};
constexpr DWORD BI_RGB = 0;
constexpr DWORD BI_BITFIELDS = 3;

struct RGBQUAD {
    BYTE rgbBlue = 0;
    BYTE rgbGreen = 0;
    BYTE rgbRed = 0;
    BYTE rgbReserved = 0;
};
