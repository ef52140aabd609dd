// Basic types of the windowing platform: integer aliases, handles, points and
// rectangles. Library code is written against these names so that it reads as
// code for the classic framework does.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstddef>

#define AFX_EXT_CLASS __attribute__((visibility("default")))
#define AFX_API __attribute__((visibility("default")))

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT = int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using BOOL = int;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using COLORREF = std::uint32_t;  // 0x00BBGGRR
using LPCSTR = const char*;
using LPSTR = char*;
using LPVOID = void*;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

// Opaque handles. Each is a distinct pointer type so they cannot be mixed up;
// the pointed-to structs are never defined, the platform maps values to objects.
#define DP_DECLARE_HANDLE(name) \
    struct name##__;            \
    using name = name##__*
DP_DECLARE_HANDLE(HWND);
DP_DECLARE_HANDLE(HMENU);
DP_DECLARE_HANDLE(HINSTANCE);
DP_DECLARE_HANDLE(HGDIOBJ);
DP_DECLARE_HANDLE(HICON);
DP_DECLARE_HANDLE(HDC);
DP_DECLARE_HANDLE(HTREEITEM);
DP_DECLARE_HANDLE(HIMAGELIST);
DP_DECLARE_HANDLE(HGLOBAL);
#undef DP_DECLARE_HANDLE
using HMODULE = HINSTANCE;
using HFONT = HGDIOBJ;
using HBITMAP = HGDIOBJ;
using HBRUSH = HGDIOBJ;
using HPEN = HGDIOBJ;
using HCURSOR = HICON;

constexpr COLORREF RGB(int r, int g, int b)
{
    return static_cast<COLORREF>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
constexpr int GetRValue(COLORREF c) { return c & 0xFF; }
constexpr int GetGValue(COLORREF c) { return (c >> 8) & 0xFF; }
constexpr int GetBValue(COLORREF c) { return (c >> 16) & 0xFF; }

constexpr WORD LOWORD(std::uintptr_t v) { return static_cast<WORD>(v & 0xFFFF); }
constexpr WORD HIWORD(std::uintptr_t v) { return static_cast<WORD>((v >> 16) & 0xFFFF); }
constexpr LONG MAKELONG(WORD lo, WORD hi) { return static_cast<LONG>(static_cast<DWORD>(lo) | (static_cast<DWORD>(hi) << 16)); }
constexpr LPARAM MAKELPARAM(int lo, int hi) { return static_cast<LPARAM>(MAKELONG(static_cast<WORD>(lo), static_cast<WORD>(hi))); }
constexpr WPARAM MAKEWPARAM(int lo, int hi) { return static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(static_cast<WORD>(lo), static_cast<WORD>(hi)))); }
constexpr int GET_X_LPARAM(LPARAM l) { return static_cast<short>(LOWORD(static_cast<std::uintptr_t>(l))); }
constexpr int GET_Y_LPARAM(LPARAM l) { return static_cast<short>(HIWORD(static_cast<std::uintptr_t>(l))); }

struct POINT {
    LONG x = 0;
    LONG y = 0;
};
struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
};
struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using LPPOINT = POINT*;

class CPoint : public POINT {
public:
    CPoint() = default;
    CPoint(int px, int py) { x = px; y = py; }
    CPoint(POINT p) : POINT(p) {}
    explicit CPoint(LPARAM l) { x = GET_X_LPARAM(l); y = GET_Y_LPARAM(l); }
    void Offset(int dx, int dy) { x += dx; y += dy; }
    bool operator==(const CPoint& o) const { return x == o.x && y == o.y; }
    CPoint operator+(POINT o) const { return {x + o.x, y + o.y}; }
    CPoint operator-(POINT o) const { return {x - o.x, y - o.y}; }
};

class CSize : public SIZE {
public:
    CSize() = default;
    CSize(int w, int h) { cx = w; cy = h; }
    CSize(SIZE s) : SIZE(s) {}
    bool operator==(const CSize& o) const { return cx == o.cx && cy == o.cy; }
};

class CRect : public RECT {
public:
    CRect() = default;
    CRect(int l, int t, int r, int b) { left = l; top = t; right = r; bottom = b; }
    CRect(const RECT& r) : RECT(r) {}
    CRect(POINT p, SIZE s) { left = p.x; top = p.y; right = p.x + s.cx; bottom = p.y + s.cy; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    bool PtInRect(POINT p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    void SetRect(int l, int t, int r, int b) { left = l; top = t; right = r; bottom = b; }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void OffsetRect(int dx, int dy) { left += dx; right += dx; top += dy; bottom += dy; }
    void OffsetRect(POINT p) { OffsetRect(p.x, p.y); }
    void InflateRect(int dx, int dy) { left -= dx; right += dx; top -= dy; bottom += dy; }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void NormalizeRect()
    {
        if (left > right) std::swap(left, right);
        if (top > bottom) std::swap(top, bottom);
    }
    // Empty result when the two do not overlap, as the platform's IntersectRect.
    bool IntersectRect(const RECT& a, const RECT& b)
    {
        CRect r(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom));
        if (r.IsRectEmpty()) {
            SetRectEmpty();
            return false;
        }
        *this = r;
        return true;
    }
    bool UnionRect(const RECT& a, const RECT& b)
    {
        const CRect ra(a), rb(b);
        if (ra.IsRectEmpty()) { *this = rb; return !IsRectEmpty(); }
        if (rb.IsRectEmpty()) { *this = ra; return !IsRectEmpty(); }
        SetRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom));
        return true;
    }
    bool operator==(const CRect& o) const { return left == o.left && top == o.top && right == o.right && bottom == o.bottom; }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
};

struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    DWORD time = 0;
    POINT pt{};
};
using LPMSG = MSG*;
