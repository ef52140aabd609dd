#include "platform/gdi/gdi_registry.h"

#include <vector>

#include "platform/gdi/bitmap.h"
#include "platform/gdi/brush.h"
#include "platform/gdi/font.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen.h"

namespace gdi {
namespace {

struct Entry {
    ObjectData data;
    bool permanent = false;
    std::unique_ptr<CGdiObject> wrapper;
};

HandleTable<Entry>& Table() { return PermanentTable<Entry>(); }

// Wrappers whose own DeleteObject removed their object: they cannot be freed
// while their member function is still running, so they wait here.
std::vector<std::unique_ptr<CGdiObject>>& Retired()
{
    static auto* retired = new std::vector<std::unique_ptr<CGdiObject>>();
    return *retired;
}

std::unique_ptr<CGdiObject> MakeWrapper(const ObjectData& data)
{
    struct Visitor {
        std::unique_ptr<CGdiObject> operator()(const PenData&) const { return std::make_unique<CPen>(); }
        std::unique_ptr<CGdiObject> operator()(const BrushData&) const { return std::make_unique<CBrush>(); }
        std::unique_ptr<CGdiObject> operator()(const FontData&) const { return std::make_unique<CFont>(); }
        std::unique_ptr<CGdiObject> operator()(const BitmapData&) const { return std::make_unique<CBitmap>(); }
    };
    return std::visit(Visitor{}, data);
}

}  // namespace

HGDIOBJ AddObject(ObjectData data, bool permanent)
{
    auto entry = std::make_unique<Entry>();
    entry->data = std::move(data);
    entry->permanent = permanent;
    return MakeHandle<HGDIOBJ>(Table().Add(std::move(entry)));
}

ObjectData* FindObject(HGDIOBJ handle)
{
    Entry* entry = Table().Find(HandleValue(handle));
    return entry ? &entry->data : nullptr;
}

bool IsPermanent(HGDIOBJ handle)
{
    const Entry* entry = Table().Find(HandleValue(handle));
    return entry && entry->permanent;
}

bool RemoveObject(HGDIOBJ handle, const CGdiObject* caller)
{
    auto& retired = Retired();
    std::erase_if(retired, [caller](const auto& w) { return w.get() != caller; });
    const Entry* found = Table().Find(HandleValue(handle));
    if (!found || found->permanent) return false;
    std::unique_ptr<Entry> entry = Table().Remove(HandleValue(handle));
    if (entry->wrapper) {
        entry->wrapper->m_hObject = nullptr;
        if (entry->wrapper.get() == caller) retired.push_back(std::move(entry->wrapper));
    }
    return true;
}

CGdiObject* WrapperFor(HGDIOBJ handle)
{
    Entry* entry = Table().Find(HandleValue(handle));
    if (!entry) return nullptr;
    if (!entry->wrapper) entry->wrapper = MakeWrapper(entry->data);
    // Reattached each time in case someone detached the shared wrapper.
    entry->wrapper->m_hObject = handle;
    return entry->wrapper.get();
}

size_t ObjectCount()
{
    return Table().Count();
}

}  // namespace gdi
