#include "demo/project/function_items.h"

#include <algorithm>

namespace {

unsigned char SearchKey(const std::string& name)
{
    if (name.empty()) return 0;
    const auto first = static_cast<unsigned char>(name[0]);
    return first >= 'a' && first <= 'z' ? static_cast<unsigned char>(first - 'a' + 'A') : first;
}

}  // namespace

void FillFuncSeekItems(const std::vector<ScannedFunction>& functions, CFuncSeekItems& items)
{
    items.ReleaseAllItems();
    std::vector<const ScannedFunction*> ordered;
    ordered.reserve(functions.size());
    for (const ScannedFunction& f : functions) ordered.push_back(&f);
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const ScannedFunction* a, const ScannedFunction* b) { return SearchKey(a->name) < SearchKey(b->name); });
    for (const ScannedFunction* f : ordered) {
        auto* item = new CFuncSeekItem;
        item->typeText = CString(std::string_view(f->type));
        item->name = CString(std::string_view(f->name));
        item->paramText = CString(std::string_view(f->params));
        item->line = f->line;
        items.Add(item);
    }
}
