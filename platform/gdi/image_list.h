// Image lists: equally sized images kept together, each with an optional
// transparency mask, drawn by index. Controls keep the HIMAGELIST and find
// the object with CImageList::FromHandle. Images are held in full colour
// whatever ILC_COLORn asks for.
#pragma once

#include "platform/core/win_types.h"

class CBitmap;
class CDC;

constexpr UINT ILC_MASK = 0x0001;
constexpr UINT ILC_COLOR = 0x0000;
constexpr UINT ILC_COLORDDB = 0x00FE;
constexpr UINT ILC_COLOR4 = 0x0004;
constexpr UINT ILC_COLOR8 = 0x0008;
constexpr UINT ILC_COLOR16 = 0x0010;
constexpr UINT ILC_COLOR24 = 0x0018;
constexpr UINT ILC_COLOR32 = 0x0020;

constexpr UINT ILD_NORMAL = 0x0000;       // masked pixels get the list's background colour, if any
constexpr UINT ILD_TRANSPARENT = 0x0001;  // masked pixels are left alone
constexpr UINT ILD_BLEND25 = 0x0002;
constexpr UINT ILD_FOCUS = ILD_BLEND25;
constexpr UINT ILD_BLEND50 = 0x0004;
constexpr UINT ILD_SELECTED = ILD_BLEND50;
constexpr UINT ILD_BLEND = ILD_BLEND50;
constexpr UINT ILD_MASK = 0x0010;         // the mask alone: black image, white transparency

// Both blend styles mix visible pixels half and half with COLOR_HIGHLIGHT.

struct IMAGEINFO {
    HBITMAP hbmImage = nullptr;  // not kept as bitmaps: always null
    HBITMAP hbmMask = nullptr;
    int Unused1 = 0;
    int Unused2 = 0;
    RECT rcImage{};  // the image's place in a strip of all images, left to right
};

class AFX_EXT_CLASS CImageList {
public:
    CImageList() = default;
    virtual ~CImageList();
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    // Empty list of cx x cy images (each side 1..4096). initial and grow are
    // capacity hints.
    BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
    // The bitmap resource cut into images cx wide (its height is the image
    // height); pixels of the mask colour are transparent unless it is CLR_NONE.
    BOOL Create(UINT bitmapId, int cx, int grow, COLORREF mask);
    BOOL DeleteImageList();

    // Add images cut from a bitmap strip (width / cx of them, left to right).
    // With ILC_MASK, pixels equal to the mask colour, or white in the mask
    // bitmap, are transparent. Return the first new index, or -1 (also when
    // the list would hold more pixels than one surface may).
    int Add(CBitmap* bitmap, COLORREF mask);
    int Add(CBitmap* bitmap, CBitmap* mask);
    // An icon scaled to the image size, transparent where the icon is.
    int Add(HICON icon);
    // Removes one image, or all with -1.
    BOOL Remove(int index);

    int GetImageCount() const;
    CSize GetImageSize() const;  // (0, 0) when not created
    BOOL GetImageInfo(int index, IMAGEINFO* info) const;
    COLORREF SetBkColor(COLORREF color);  // CLR_NONE for none; returns the old one
    COLORREF GetBkColor() const;

    // Draws image `index` with its top-left at `point` (logical). FALSE for
    // an invalid index or DC, and then nothing is drawn.
    BOOL Draw(CDC* dc, int index, POINT point, UINT style);

    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    operator HIMAGELIST() const { return m_hImageList; }
    BOOL Attach(HIMAGELIST handle);
    HIMAGELIST Detach();
    // A wrapper owned by the platform, valid while the list lives; null for
    // a stale handle.
    static CImageList* FromHandle(HIMAGELIST handle);

    HIMAGELIST m_hImageList = nullptr;
};

// The platform's free functions, for code that holds only the handle.
AFX_API BOOL ImageList_Draw(HIMAGELIST list, int index, HDC hdc, int x, int y, UINT style);
AFX_API int ImageList_GetImageCount(HIMAGELIST list);
AFX_API BOOL ImageList_GetIconSize(HIMAGELIST list, int* cx, int* cy);
