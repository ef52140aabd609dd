#include "platform/gdi/image_list.h"

#include "platform/gdi/bitmap.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/image_list_data.h"

namespace gdi {
namespace {

HandleTable<ImageListData>& Lists() { return PermanentTable<ImageListData>(); }

// A wrapper whose own DeleteImageList removed its list waits here, as it
// cannot be freed while its member function runs.
std::vector<std::unique_ptr<CImageList>>& Retired()
{
    static auto* retired = new std::vector<std::unique_ptr<CImageList>>();
    return *retired;
}

}  // namespace

ImageListData* FindImageList(HIMAGELIST handle)
{
    return Lists().Find(HandleValue(handle));
}

}  // namespace gdi

constexpr int kMaxImageSide = 4096;

CImageList::~CImageList()
{
    DeleteImageList();
}

BOOL CImageList::Create(int cx, int cy, UINT flags, int, int)
{
    if (m_hImageList || cx <= 0 || cy <= 0 || cx > kMaxImageSide || cy > kMaxImageSide) return FALSE;
    auto data = std::make_unique<gdi::ImageListData>();
    data->cx = cx;
    data->cy = cy;
    data->flags = flags;
    m_hImageList = gdi::MakeHandle<HIMAGELIST>(gdi::Lists().Add(std::move(data)));
    return TRUE;
}

BOOL CImageList::Create(UINT bitmapId, int cx, int grow, COLORREF mask)
{
    CBitmap bitmap;
    if (m_hImageList || !bitmap.LoadBitmap(bitmapId)) return FALSE;
    if (!Create(cx, bitmap.GetSize().cy, ILC_COLOR24 | (mask != CLR_NONE ? ILC_MASK : 0), 0, grow)) return FALSE;
    if (Add(&bitmap, mask) < 0) {
        DeleteImageList();
        return FALSE;
    }
    return TRUE;
}

BOOL CImageList::DeleteImageList()
{
    if (!m_hImageList) return FALSE;
    HIMAGELIST handle = Detach();
    auto& retired = gdi::Retired();
    std::erase_if(retired, [this](const auto& w) { return w.get() != this; });
    std::unique_ptr<gdi::ImageListData> data = gdi::Lists().Remove(gdi::HandleValue(handle));
    if (!data) return FALSE;
    if (data->wrapper) {
        data->wrapper->m_hImageList = nullptr;
        if (data->wrapper.get() == this) retired.push_back(std::move(data->wrapper));
    }
    return TRUE;
}

BOOL CImageList::Remove(int index)
{
    gdi::ImageListData* data = gdi::FindImageList(m_hImageList);
    if (!data) return FALSE;
    if (index == -1) {
        data->images.clear();
        return TRUE;
    }
    if (index < 0 || index >= static_cast<int>(data->images.size())) return FALSE;
    data->images.erase(data->images.begin() + index);
    return TRUE;
}

int CImageList::GetImageCount() const
{
    const gdi::ImageListData* data = gdi::FindImageList(m_hImageList);
    return data ? static_cast<int>(data->images.size()) : 0;
}

CSize CImageList::GetImageSize() const
{
    const gdi::ImageListData* data = gdi::FindImageList(m_hImageList);
    return data ? CSize(data->cx, data->cy) : CSize();
}

BOOL CImageList::GetImageInfo(int index, IMAGEINFO* info) const
{
    const gdi::ImageListData* data = gdi::FindImageList(m_hImageList);
    if (!data || !info || index < 0 || index >= static_cast<int>(data->images.size())) return FALSE;
    *info = IMAGEINFO{};
    info->rcImage = CRect(index * data->cx, 0, (index + 1) * data->cx, data->cy);
    return TRUE;
}

COLORREF CImageList::SetBkColor(COLORREF color)
{
    gdi::ImageListData* data = gdi::FindImageList(m_hImageList);
    if (!data) return CLR_NONE;
    const COLORREF old = data->bkColor;
    data->bkColor = color == CLR_NONE ? CLR_NONE : (color & 0x00FFFFFF);
    return old;
}

COLORREF CImageList::GetBkColor() const
{
    const gdi::ImageListData* data = gdi::FindImageList(m_hImageList);
    return data ? data->bkColor : CLR_NONE;
}

BOOL CImageList::Attach(HIMAGELIST handle)
{
    if (m_hImageList || !gdi::FindImageList(handle)) return FALSE;
    m_hImageList = handle;
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    HIMAGELIST handle = m_hImageList;
    m_hImageList = nullptr;
    return handle;
}

CImageList* CImageList::FromHandle(HIMAGELIST handle)
{
    gdi::ImageListData* data = gdi::FindImageList(handle);
    if (!data) return nullptr;
    if (!data->wrapper) data->wrapper = std::make_unique<CImageList>();
    data->wrapper->m_hImageList = handle;  // again, in case it was detached
    return data->wrapper.get();
}

int ImageList_GetImageCount(HIMAGELIST list)
{
    const gdi::ImageListData* data = gdi::FindImageList(list);
    return data ? static_cast<int>(data->images.size()) : 0;
}

BOOL ImageList_GetIconSize(HIMAGELIST list, int* cx, int* cy)
{
    const gdi::ImageListData* data = gdi::FindImageList(list);
    if (!data) return FALSE;
    if (cx) *cx = data->cx;
    if (cy) *cy = data->cy;
    return TRUE;
}
