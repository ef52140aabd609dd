#include "platform/gdi/dc.h"

#include "platform/gdi/gdi_registry.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/raster.h"

namespace {

struct DcEntry {
    CDC* dc;
};

gdi::HandleTable<DcEntry>& DcTable() { return gdi::PermanentTable<DcEntry>(); }

}  // namespace

CDC::CDC()
{
    m_hDC = gdi::MakeHandle<HDC>(DcTable().Add(std::make_unique<DcEntry>(DcEntry{this})));
    ResetState();
}

CDC::~CDC()
{
    DcTable().Remove(gdi::HandleValue(m_hDC));
}

CDC* CDC::FromHandle(HDC hdc)
{
    const DcEntry* entry = DcTable().Find(gdi::HandleValue(hdc));
    return entry ? entry->dc : nullptr;
}

void CDC::ResetState()
{
    m_state = State{};
    m_state.pen = GetStockObject(BLACK_PEN);
    m_state.brush = GetStockObject(WHITE_BRUSH);
    m_state.font = GetStockObject(SYSTEM_FONT);
    m_state.bitmap = gdi::DefaultMemoryBitmap();
    m_saved.clear();
}

void CDC::AttachToSurface(Surface* surface, CPoint origin, const CRect& clip)
{
    ResetState();
    m_memory = false;
    m_surface = surface;
    m_origin = CPoint(gdi::Sat(origin.x), gdi::Sat(origin.y));
    m_baseClip = clip;
}

BOOL CDC::CreateCompatibleDC(CDC*)
{
    ResetState();
    m_surface = nullptr;
    m_memory = true;
    m_origin = CPoint();
    return TRUE;
}

BOOL CDC::DeleteDC()
{
    const bool had = m_surface || m_memory;
    ResetState();
    m_surface = nullptr;
    m_memory = false;
    return had ? TRUE : FALSE;
}

gdi::Target CDC::GetTarget() const
{
    gdi::Target t;
    t.offset = CPoint(gdi::Sat(0LL + m_origin.x + m_state.viewportOrg.x), gdi::Sat(0LL + m_origin.y + m_state.viewportOrg.y));
    CRect base;
    if (m_memory) {
        auto* bitmap = gdi::Find<gdi::BitmapData>(m_state.bitmap);
        if (!bitmap) return t;
        t.surface = &bitmap->surface;
        t.mono = bitmap->bitsPixel == 1;
        base = t.surface->Bounds();
    } else {
        if (!m_surface) return t;
        t.surface = m_surface;
        base = m_baseClip;
    }
    CRect clip;
    clip.IntersectRect(base, t.surface->Bounds());
    if (m_state.clipped) clip.IntersectRect(clip, m_state.userClip);
    t.clip = clip;
    return t;
}

Surface* CDC::GetSurface() const
{
    return GetTarget().surface;
}

CPoint CDC::GetDeviceOffset() const
{
    return GetTarget().offset;
}

int CDC::GetDeviceCaps(int index) const
{
    const gdi::Target t = GetTarget();
    switch (index) {
    case LOGPIXELSX:
    case LOGPIXELSY: return 96;
    case BITSPIXEL: return t.mono ? 1 : 32;
    case PLANES: return 1;
    case HORZRES: return t.surface ? t.surface->Width() : 0;
    case VERTRES: return t.surface ? t.surface->Height() : 0;
    default: return 0;
    }
}

COLORREF CDC::SetTextColor(COLORREF color)
{
    const COLORREF old = m_state.textColor;
    m_state.textColor = color & 0x00FFFFFF;
    return old;
}

COLORREF CDC::SetBkColor(COLORREF color)
{
    const COLORREF old = m_state.bkColor;
    m_state.bkColor = color & 0x00FFFFFF;
    return old;
}

int CDC::SetBkMode(int mode)
{
    if (mode != OPAQUE && mode != TRANSPARENT) return 0;
    const int old = m_state.bkMode;
    m_state.bkMode = mode;
    return old;
}

int CDC::SaveDC()
{
    m_saved.push_back(m_state);
    return static_cast<int>(m_saved.size());
}

BOOL CDC::RestoreDC(int savedDC)
{
    const long long count = static_cast<long long>(m_saved.size());
    const long long level = savedDC < 0 ? count + savedDC + 1 : savedDC;
    if (savedDC == 0 || level < 1 || level > count) return FALSE;
    m_state = m_saved[static_cast<size_t>(level - 1)];
    m_saved.resize(static_cast<size_t>(level - 1));
    return TRUE;
}
